// Finds which groups of an object stayed the same, so that their bytes can stay.
#include "platform/host/DxfObjectText.h"

#include <algorithm>

#include "platform/base/Characters.h"
#include "platform/host/DxfIndex.h"
#include "platform/host/DxfScanner.h"

namespace {

// How far ahead the two lists of groups are searched for where they agree again.
constexpr std::size_t kMostDistance = 32;

// A group of the former text with all that belongs to it.
struct Piece {
    int code = 0;
    std::string_view codeLine;  // with its line end
    std::string_view value;
    std::string_view rest;  // the value's line end and the comments that follow
    std::string_view all;
};

bool IsSame(const Piece& piece, const DxfGroup& group) {
    return piece.code == group.code && piece.value == group.value;
}

std::vector<Piece> ReadPieces(std::string_view text) {
    std::vector<Piece> pieces;
    DxfScanner scanner(text);
    DxfRawGroup group;
    std::size_t start = 0;
    std::size_t valueEnd = 0;
    while (scanner.Next(group)) {
        if (group.code != kDxfComment) {
            start = group.start;
            valueEnd = group.valueEnd;
            pieces.push_back({group.code, text.substr(start, group.valueStart - start), group.ValueIn(text), {}, {}});
        }
        pieces.back().rest = text.substr(valueEnd, group.groupEnd - valueEnd);
        pieces.back().all = text.substr(start, group.groupEnd - start);
    }
    return pieces;
}

class Rewriter {
public:
    Rewriter(std::string_view before, const std::vector<DxfGroup>& groups, const DxfStyle& style)
        : m_pieces(ReadPieces(before)), m_groups(groups), m_style(style) {
        m_text.reserve(before.size() + 64);
    }

    std::string Run() {
        std::size_t same = 0;
        const std::size_t most = std::min(m_pieces.size(), m_groups.size());
        while (same < most && IsSame(m_pieces[same], m_groups[same]))
            ++same;
        std::size_t tail = 0;
        while (tail < most - same && IsSame(m_pieces[m_pieces.size() - 1 - tail], m_groups[m_groups.size() - 1 - tail]))
            ++tail;
        m_pieceEnd = m_pieces.size() - tail;
        m_groupEnd = m_groups.size() - tail;
        Keep(same);
        while (m_piece < m_pieceEnd && m_group < m_groupEnd)
            Step();
        WriteNew(m_groupEnd - m_group);
        m_piece = m_pieceEnd;
        Keep(tail);
        return std::move(m_text);
    }

private:
    bool IsSameAt(std::size_t pieces, std::size_t groups) const {
        return pieces < m_pieceEnd && groups < m_groupEnd && IsSame(m_pieces[pieces], m_groups[groups]);
    }

    // Goes on to where the lists agree again with the least left out; without such a place, by one group.
    void Step() {
        if (IsSameAt(m_piece, m_group)) {
            Keep(1);
            return;
        }
        // One value has been replaced: what is most often the case comes before the nearest place of all.
        if (IsSameAt(m_piece + 1, m_group + 1)) {
            Replace(1);
            return;
        }
        for (std::size_t distance = 1; distance <= kMostDistance; ++distance) {
            for (std::size_t old = 0; old <= distance; ++old) {
                if (IsSameAt(m_piece + old, m_group + distance - old)) {
                    const std::size_t both = std::min(old, distance - old);
                    Replace(both);
                    m_piece += old - both;
                    WriteNew(distance - old - both);
                    return;
                }
            }
        }
        Replace(1);
    }

    void Keep(std::size_t count) {
        for (; count > 0; --count, ++m_piece, ++m_group)
            m_text += m_pieces[m_piece].all;
    }
    void Replace(std::size_t count) {
        for (; count > 0; --count, ++m_piece, ++m_group) {
            const Piece& piece = m_pieces[m_piece];
            const DxfGroup& group = m_groups[m_group];
            if (piece.code == group.code)
                m_text += piece.codeLine;
            else
                WriteCode(group.code);
            m_text += group.value;
            m_text += piece.rest;
        }
    }
    void WriteNew(std::size_t count) {
        for (; count > 0; --count, ++m_group) {
            WriteCode(m_groups[m_group].code);
            m_text += m_groups[m_group].value;
            m_text += m_style.lineEnd;
        }
    }
    void WriteCode(int code) {
        const std::string digits = std::to_string(code);
        m_text.append(m_style.codeWidth > digits.size() ? m_style.codeWidth - digits.size() : 0, ' ');
        m_text += digits;
        m_text += m_style.lineEnd;
    }

    std::vector<Piece> m_pieces;
    const std::vector<DxfGroup>& m_groups;
    const DxfStyle& m_style;
    std::string m_text;
    std::size_t m_piece = 0;
    std::size_t m_group = 0;
    std::size_t m_pieceEnd = 0;
    std::size_t m_groupEnd = 0;
};

}  // namespace

DxfStyle DxfStyleOf(std::string_view text) {
    constexpr std::size_t kMostWidth = 8;
    if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark)
        text.remove_prefix(kByteOrderMark.size());
    DxfStyle style;
    const std::string_view line = text.substr(0, text.find('\n'));
    if (!line.empty() && line.back() == '\r')
        style.lineEnd = "\r\n";
    const std::size_t digits = line.find_first_not_of(' ');
    if (digits != std::string_view::npos)
        style.codeWidth = std::min(kMostWidth, std::min(line.find_first_not_of("0123456789", digits), line.size()));
    return style;
}

std::vector<DxfGroup> ReadDxfGroups(std::string_view text) {
    std::vector<DxfGroup> groups;
    DxfScanner scanner(text);
    DxfRawGroup group;
    while (scanner.Next(group))
        if (group.code != kDxfComment)
            groups.push_back({group.code, std::string(group.ValueIn(text))});
    return groups;
}

DxfIdentity IdentityOf(const std::vector<DxfGroup>& groups, int handleCode) {
    DxfIdentity identity;
    if (!groups.empty() && groups[0].code == 0)
        identity.type = groups[0].value;
    const auto handle =
        std::find_if(groups.begin(), groups.end(), [=](const DxfGroup& group) { return group.code == handleCode; });
    if (handle != groups.end())
        identity.handle = ParseDxfHandle(handle->value);
    return identity;
}

bool AreDxfGroupsSound(const std::vector<DxfGroup>& groups) {
    if (groups.empty() || groups[0].code != 0)
        return false;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        const DxfGroup& group = groups[i];
        const bool isCodeGood = group.code >= kLeastDxfCode && group.code <= kMostDxfCode &&
                                group.code != kDxfComment && (i == 0 || group.code != 0);
        if (!isCodeGood || group.value.size() > kLongestDxfLine ||
            group.value.find_first_of(std::string_view("\r\n\0", 3)) != std::string::npos)
            return false;
    }
    return true;
}

std::string RewriteDxfObject(std::string_view before, const std::vector<DxfGroup>& groups, const DxfStyle& style) {
    return Rewriter(before, groups, style).Run();
}
