// The decoder of run-length coded pictures: its orders move a pen over the picture, and the pen never leaves it.
#include "platform/media/RunLength.h"

#include <QImage>

#include <algorithm>
#include <cstddef>

namespace {

enum Order : BYTE { EndOfRow = 0, EndOfPicture = 1, Move = 2 };

class Decoder {
public:
    Decoder(std::span<const BYTE> coded, int bits, std::span<const DWORD, 256> palette, QImage& picture)
        : m_coded(coded), m_palette(palette), m_picture(picture), m_isNibbles(bits == 4) {
        FindRow();
    }

    void Run() {
        while (m_coded.size() >= 2 && m_row != nullptr) {
            const BYTE first = m_coded[0];
            const BYTE second = m_coded[1];
            m_coded = m_coded.subspan(2);
            if (first != 0)
                DrawRun(first, second);
            else if (second == EndOfPicture)
                return;
            else if (second == EndOfRow)
                MoveTo(0, m_y + 1);
            else if (second == Move)
                MoveBy();
            else
                DrawPixels(second);
        }
    }

private:
    // Where the pen's row is; null above the picture.
    void FindRow() {
        const int height = m_picture.height();
        m_row = m_y < height ? reinterpret_cast<DWORD*>(m_picture.scanLine(height - 1 - m_y)) : nullptr;
    }

    // Columns and rows outside count as the first one outside.
    void MoveTo(int x, int y) {
        m_x = std::min(x, m_picture.width());
        m_y = std::min(y, m_picture.height());
        FindRow();
    }

    void MoveBy() {
        if (m_coded.size() < 2) {
            m_coded = {};
            return;
        }
        MoveTo(m_x + m_coded[0], m_y + m_coded[1]);
        m_coded = m_coded.subspan(2);
    }

    void Draw(std::size_t index) {
        if (m_x < m_picture.width())
            m_row[m_x++] = m_palette[index];
    }

    // In 4 bits a run alternates between the two colours of its byte.
    void DrawRun(int count, BYTE value) {
        for (int i = 0; i < count; ++i)
            Draw(IndexIn(value, i));
    }

    // Pixels as they are, filled up to an even number of bytes.
    void DrawPixels(int count) {
        const int inByte = m_isNibbles ? 2 : 1;
        for (int i = 0; i < count; ++i) {
            const auto at = static_cast<std::size_t>(i / inByte);
            if (at >= m_coded.size())
                break;
            Draw(IndexIn(m_coded[at], i));
        }
        const auto bytes = static_cast<std::size_t>((count + inByte - 1) / inByte);
        m_coded = m_coded.subspan(std::min((bytes + 1) / 2 * 2, m_coded.size()));
    }

    std::size_t IndexIn(BYTE value, int i) const {
        if (!m_isNibbles)
            return value;
        return i % 2 == 0 ? static_cast<std::size_t>(value >> 4) : static_cast<std::size_t>(value & 0xF);
    }

    std::span<const BYTE> m_coded;
    std::span<const DWORD, 256> m_palette;
    QImage& m_picture;
    DWORD* m_row = nullptr;
    int m_x = 0;
    int m_y = 0;
    bool m_isNibbles;
};

}  // namespace

void DecodeRunLengths(std::span<const BYTE> coded, int bits, std::span<const DWORD, 256> palette, QImage& picture) {
    Decoder(coded, bits, palette, picture).Run();
}
