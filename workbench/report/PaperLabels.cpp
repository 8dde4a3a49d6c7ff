// Keeps the boxes that are taken in a grid.
#include "workbench/report/PaperLabels.h"

#include <algorithm>
#include <cstddef>

#include "platform/base/PlainText.h"
#include "workbench/report/Markup.h"
#include "workbench/terminal/TextWidth.h"

namespace {

constexpr int kCell = 500;

// Cells left of and above 0 have numbers, too.
int CellOf(int place) {
    return place >= 0 ? place / kCell : -1 - (-1 - place) / kCell;
}

}  // namespace

int TextWidthOnPaper(const CString& text, int size) {
    constexpr int kPercentOfWide = 103;
    constexpr int kPercentOfOther = 65;
    const int count = static_cast<int>(CodePoints(text).size());
    const int wide = std::clamp(DisplayWidth(text) - count, 0, count);
    return (wide * kPercentOfWide + (count - wide) * kPercentOfOther) * size / 100;
}

PaperBox BoxForText(const CString& text, int size, PaperPoint middle) {
    const int half = TextWidthOnPaper(text, size) / 2;
    return {middle.x - half, middle.y - size / 2, middle.x + half, middle.y + size / 2};
}

std::string TextInBox(const CString& text, const PaperBox& box, int size) {
    // Capitals and digits are about seven tenths of the size high.
    const int baseline = box.top + box.Height() / 2 + size * 35 / 100;
    return "<text x=\"" + std::to_string(box.left + box.Width() / 2) + "\" y=\"" + std::to_string(baseline) + "\">" +
           Markup(text) + "</text>\n";
}

template <class Visit>
bool PaperLabels::WalkCells(const PaperBox& box, const Visit& visit) {
    for (int y = CellOf(box.top); y <= CellOf(box.bottom); ++y)
        for (int x = CellOf(box.left); x <= CellOf(box.right); ++x)
            if (!visit(static_cast<std::uint64_t>(static_cast<std::uint32_t>(x)) << 32 | static_cast<std::uint32_t>(y)))
                return false;
    return true;
}

bool PaperLabels::IsFree(const PaperBox& box) const {
    return m_frame.Holds(box) && WalkCells(box, [&](std::uint64_t cell) {
               const auto found = m_cells.find(cell);
               return found == m_cells.end() ||
                      std::none_of(found->second.begin(), found->second.end(),
                                   [&](std::uint32_t index) { return m_boxes[index].Meets(box); });
           });
}

void PaperLabels::Take(const PaperBox& box) {
    // What is far out needs no cells.
    const PaperBox inside = {std::max(box.left, m_frame.left), std::max(box.top, m_frame.top),
                             std::min(box.right, m_frame.right), std::min(box.bottom, m_frame.bottom)};
    if (inside.Width() < 0 || inside.Height() < 0)
        return;
    const auto number = static_cast<std::uint32_t>(m_boxes.size());
    m_boxes.push_back(inside);
    WalkCells(inside, [&](std::uint64_t cell) {
        m_cells[cell].push_back(number);
        return true;
    });
}

bool PaperLabels::TryTake(const PaperBox& box) {
    const bool isFree = IsFree(box);
    if (isFree)
        Take(box);
    return isFree;
}
