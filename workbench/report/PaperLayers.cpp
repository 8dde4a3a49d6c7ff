// Remembers how many layers lie on each cell of the paper.
#include "workbench/report/PaperLayers.h"

#include <algorithm>

namespace {

constexpr int kCell = 100;

int CellOf(int place, int count) {
    return std::clamp(place / kCell, 0, count - 1);
}

}  // namespace

PaperLayers::PaperLayers(const PaperBox& frame)
    : m_frame(frame), m_columns(frame.Width() / kCell + 1), m_rows(frame.Height() / kCell + 1) {
    m_free.assign(static_cast<std::size_t>(m_columns) * static_cast<std::size_t>(m_rows), 0);
}

std::string& PaperLayers::LayerFor(int style, const PaperBox& box) {
    const int left = CellOf(box.left - m_frame.left, m_columns);
    const int right = CellOf(box.right - m_frame.left, m_columns);
    const int top = CellOf(box.top - m_frame.top, m_rows);
    const int bottom = CellOf(box.bottom - m_frame.top, m_rows);
    const auto walk = [&](const auto& visit) {
        for (int row = top; row <= bottom; ++row)
            for (int column = left; column <= right; ++column)
                visit(m_free[static_cast<std::size_t>(row) * static_cast<std::size_t>(m_columns) +
                             static_cast<std::size_t>(column)]);
    };
    std::size_t layer = 0;
    walk([&](std::size_t free) { layer = std::max(layer, free); });
    while (layer < m_layers.size() && m_layers[layer].style != style)
        ++layer;
    if (layer == m_layers.size())
        m_layers.push_back({style, {}});
    walk([&](std::size_t& free) { free = layer + 1; });
    return m_layers[layer].content;
}
