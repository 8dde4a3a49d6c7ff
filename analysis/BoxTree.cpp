// Builds the tree: each node's things are divided at the middle one along the longest side of their middles.
#include "analysis/BoxTree.h"

#include <algorithm>
#include <numeric>

namespace {

using Axis = double Vector3::*;
constexpr Axis kAxes[] = {&Vector3::x, &Vector3::y, &Vector3::z};

double TwiceMiddle(const Box& box, Axis axis) {
    return box.least.*axis + box.most.*axis;
}

void Widen(Box& box, const Box& other) {
    for (const Axis axis : kAxes) {
        box.least.*axis = std::min(box.least.*axis, other.least.*axis);
        box.most.*axis = std::max(box.most.*axis, other.most.*axis);
    }
}

Axis LongestOfMiddles(const std::vector<Box>& boxes, const std::uint32_t* first, const std::uint32_t* last) {
    Axis longest = kAxes[0];
    double most = -1.0;
    for (const Axis axis : kAxes) {
        const auto [least, greatest] = std::minmax_element(first, last, [&](std::uint32_t a, std::uint32_t b) {
            return TwiceMiddle(boxes[a], axis) < TwiceMiddle(boxes[b], axis);
        });
        const double length = TwiceMiddle(boxes[*greatest], axis) - TwiceMiddle(boxes[*least], axis);
        if (length > most) {
            most = length;
            longest = axis;
        }
    }
    return longest;
}

}  // namespace

BoxTree::BoxTree(const std::vector<Box>& boxes) {
    if (boxes.empty())
        return;
    std::vector<std::uint32_t> order(boxes.size());
    std::iota(order.begin(), order.end(), 0U);
    m_nodes.reserve(2 * boxes.size() - 1);
    Build(boxes, order.data(), order.data() + order.size());
}

std::uint32_t BoxTree::Build(const std::vector<Box>& boxes, std::uint32_t* first, std::uint32_t* last) {
    const auto self = static_cast<std::uint32_t>(m_nodes.size());
    m_nodes.emplace_back();
    Box around = boxes[*first];
    for (const std::uint32_t* each = first; each != last; ++each)
        Widen(around, boxes[*each]);
    m_nodes[self].box = around;
    if (last - first == 1) {
        m_nodes[self].first = *first;
        m_nodes[self].isLeaf = true;
        return self;
    }
    const Axis axis = LongestOfMiddles(boxes, first, last);
    std::uint32_t* const middle = first + (last - first) / 2;
    // Of equal middles the earlier thing goes first, so that the tree is the same everywhere.
    std::nth_element(first, middle, last, [&](std::uint32_t a, std::uint32_t b) {
        const double atA = TwiceMiddle(boxes[a], axis);
        const double atB = TwiceMiddle(boxes[b], axis);
        return atA < atB || (atA == atB && a < b);
    });
    const std::uint32_t left = Build(boxes, first, middle);
    const std::uint32_t right = Build(boxes, middle, last);
    m_nodes[self].first = left;
    m_nodes[self].second = right;
    return self;
}
