// Counts whole branches of a tree that lie on one side.
#include "analysis/HalfPlaneCount.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr std::size_t kPointsInALeaf = 16;

}  // namespace

HalfPlaneCount::HalfPlaneCount(std::vector<Vector3> points) : m_points(std::move(points)) {
    if (!m_points.empty())
        Build(0, m_points.size());
}

std::size_t HalfPlaneCount::Build(std::size_t first, std::size_t end) {
    const std::size_t self = m_nodes.size();
    Node node{m_points[first], m_points[first], first, end, 0, 0};
    for (std::size_t i = first; i < end; ++i) {
        node.least = {std::min(node.least.x, m_points[i].x), std::min(node.least.y, m_points[i].y), 0.0};
        node.most = {std::max(node.most.x, m_points[i].x), std::max(node.most.y, m_points[i].y), 0.0};
    }
    m_nodes.push_back(node);
    if (end - first <= kPointsInALeaf)
        return self;
    const auto at = [&](std::size_t i) { return m_points.begin() + static_cast<std::ptrdiff_t>(i); };
    const std::size_t middle = first + (end - first) / 2;
    const bool isWide = node.most.x - node.least.x > node.most.y - node.least.y;
    std::nth_element(at(first), at(middle), at(end),
                     [=](const Vector3& a, const Vector3& b) { return isWide ? a.x < b.x : a.y < b.y; });
    const std::size_t left = Build(first, middle);
    const std::size_t right = Build(middle, end);
    m_nodes[self].left = left;
    m_nodes[self].right = right;
    return self;
}

HalfPlaneCount::Sides HalfPlaneCount::Count(const Vector3& place, const Vector3& normal, double beyond) const {
    Sides sides;
    std::vector<std::size_t> open;
    if (!m_nodes.empty())
        open.push_back(0);
    while (!open.empty()) {
        const Node& node = m_nodes[open.back()];
        open.pop_back();
        // The middle of the box, and how far its corners are from there along the normal.
        const Vector3 to = (node.least - place) * 0.5 + (node.most - place) * 0.5;
        const double distance = to.x * normal.x + to.y * normal.y;
        const double reach =
            ((node.most.x - node.least.x) * std::fabs(normal.x) + (node.most.y - node.least.y) * std::fabs(normal.y)) /
            2.0;
        if (distance - reach > beyond) {
            sides.before += node.end - node.first;
        } else if (distance + reach < -beyond) {
            sides.behind += node.end - node.first;
        } else if (node.left != 0) {
            open.push_back(node.left);
            open.push_back(node.right);
        } else if (std::fabs(distance) + reach > beyond) {
            for (std::size_t i = node.first; i < node.end; ++i) {
                const Vector3 point = m_points[i] - place;
                const double away = point.x * normal.x + point.y * normal.y;
                sides.before += away > beyond ? 1 : 0;
                sides.behind += away < -beyond ? 1 : 0;
            }
        }
    }
    return sides;
}
