// Columns of rows, as wide as their longest one.
#include "workbench/view/Plate.h"

#include <QPainter>
#include <algorithm>

namespace {

const QColor kInk(30, 34, 40);
const QColor kPlate(255, 255, 255, 215);

QFont FontOf(int pixels) {
    QFont font;
    font.setPixelSize(pixels);
    return font;
}

}  // namespace

Plate::Plate(int textHeight) : m_height(textHeight), m_font(FontOf(textHeight)), m_metrics(m_font) {}

int Plate::Height() const {
    return std::min(static_cast<int>(m_rows.size()), m_most) * Line() + 2 * Margin();
}

void Plate::MakeNoHigherThan(int height) {
    m_most = std::max((height - 2 * Margin()) / Line(), 1);
}

std::size_t Plate::EndOfColumn(std::size_t first) const {
    return std::min(m_rows.size() - first, Step()) + first;
}

int Plate::ColumnWidth(std::size_t first) const {
    int wide = 0;
    for (std::size_t i = first; i < EndOfColumn(first); ++i)
        wide = std::max(wide, Indent(m_rows[i]) + m_metrics.horizontalAdvance(m_rows[i].text));
    return wide + m_height / 2;  // a little more: texts of two fonts are measured too short
}

int Plate::Width() const {
    int wide = 2 * Margin();
    for (std::size_t first = 0; first < m_rows.size(); first += Step())
        wide += ColumnWidth(first) + (first > 0 ? Gap() : 0);
    return wide;
}

void Plate::Draw(QPainter& painter, int x, int y, int most) const {
    const int wide = std::min(Width(), most);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kPlate);
    painter.drawRoundedRect(x, y, wide, Height(), m_height / 3.0, m_height / 3.0);
    painter.setFont(m_font);
    int left = x + Margin();
    const int right = x + wide - Margin();
    for (std::size_t first = 0; first < m_rows.size() && left < right; first += Step()) {
        const int column = ColumnWidth(first);
        for (std::size_t i = first; i < EndOfColumn(first); ++i)
            DrawRow(painter, m_rows[i],
                    QRect(left, y + Margin() + static_cast<int>(i - first) * Line(), std::min(column, right - left),
                          Line()));
        left += column + Gap();
    }
}

void Plate::DrawRow(QPainter& painter, const PlateRow& row, const QRect& room) const {
    painter.setPen(kInk);
    const QRect sample(room.x(), room.y() + (Line() - m_height) / 2, m_height * 3 / 2, m_height - 1);
    if (row.rgb >= 0) {
        painter.setBrush(QColor(static_cast<QRgb>(row.rgb)));
        painter.drawRect(sample);
    } else if (row.isMark) {
        painter.fillRect(QRect(sample.x(), sample.center().y(), sample.width() + 1, std::max(2, m_height / 6)), kInk);
    }
    const QRect rest = room.adjusted(Indent(row), 0, 0, 0);
    painter.drawText(rest, Qt::AlignVCenter | Qt::AlignLeft,
                     m_metrics.elidedText(row.text, Qt::ElideRight, rest.width()));
}
