// Builds the tree: what belongs to a node is divided in two, and the largest part again, until there are eight.
#include "analysis/WideTree.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "analysis/BoxDivision.h"
#include "analysis/Boxes.h"

namespace {

// Farther than anything is, and near enough for squares of quotients.
constexpr float kNowhere = 1e13F;
// A tree this deep is one of boxes that somebody chose for it, and goes on by halves.
constexpr int kDeepest = 40;

constexpr double Vector3::*kAxes[] = {&Vector3::x, &Vector3::y, &Vector3::z};

float RoundedDown(double value) {
    const auto rounded = static_cast<float>(value);
    return rounded <= value ? rounded : std::nextafterf(rounded, -std::numeric_limits<float>::infinity());
}

float RoundedUp(double value) {
    return -RoundedDown(-value);
}

bool IsFar(const Box& box) {
    bool isFar = false;
    for (const auto axis : kAxes)
        isFar = isFar || !(box.least.*axis > -kNowhere) || !(box.most.*axis < kNowhere);
    return isFar;
}

void PutNothing(WideNode& node, int lane) {
    for (int i = 0; i < 3; ++i) {
        node.least[i][lane] = kNowhere;
        node.most[i][lane] = -kNowhere;
    }
    node.top[lane] = 0.0F;
    node.child[lane] = 0;
}

class Builder {
public:
    Builder(const std::vector<Box>& boxes, const std::vector<double>& tops, std::vector<std::uint32_t>& order,
            std::vector<WideNode>& nodes)
        : m_boxes(boxes), m_tops(tops), m_order(order), m_nodes(nodes) {}

    std::uint32_t Build(const BoxPart& whole, int depth = 0);

private:
    std::vector<BoxPart> Divide(const BoxPart& whole, bool byHalves);
    void Put(WideNode& node, int lane, const BoxPart& part) const;

    const std::vector<Box>& m_boxes;
    const std::vector<double>& m_tops;
    std::vector<std::uint32_t>& m_order;
    std::vector<WideNode>& m_nodes;
};

std::uint32_t Builder::Build(const BoxPart& whole, int depth) {
    const std::vector<BoxPart> parts = Divide(whole, depth > kDeepest);
    const auto self = static_cast<std::uint32_t>(m_nodes.size());
    m_nodes.emplace_back();
    for (int lane = 0; lane < WideNode::kWidth; ++lane) {
        if (static_cast<std::size_t>(lane) >= parts.size()) {
            PutNothing(m_nodes[self], lane);
            continue;
        }
        const BoxPart& part = parts[static_cast<std::size_t>(lane)];
        Put(m_nodes[self], lane, part);
        const std::uint32_t child = part.Count() == 1
                                        ? static_cast<std::uint32_t>(part.first - m_order.data()) | WideNode::kThing
                                        : Build(part, depth + 1);
        m_nodes[self].child[lane] = child;
    }
    return self;
}

std::vector<BoxPart> Builder::Divide(const BoxPart& whole, bool byHalves) {
    const auto size = [](const BoxPart& part) { return part.Count() > 1 ? HalfSurface(part.box) : -1.0; };
    std::vector<BoxPart> parts{whole};
    while (parts.size() < WideNode::kWidth) {
        const auto largest = std::max_element(parts.begin(), parts.end(),
                                              [&](const BoxPart& a, const BoxPart& b) { return size(a) < size(b); });
        if (largest->Count() == 1)
            break;
        const BoxPart part = *largest;
        std::uint32_t* const middle = byHalves ? part.first + part.Count() / 2 : DivideBoxes(m_boxes, part);
        *largest = PartOf(m_boxes, part.first, middle);
        parts.push_back(PartOf(m_boxes, middle, part.last));
    }
    return parts;
}

void Builder::Put(WideNode& node, int lane, const BoxPart& part) const {
    const bool isFar = IsFar(part.box);
    for (int i = 0; i < 3; ++i) {
        node.least[i][lane] = isFar ? -kNowhere : RoundedDown(part.box.least.*kAxes[i]);
        node.most[i][lane] = isFar ? kNowhere : RoundedUp(part.box.most.*kAxes[i]);
    }
    const std::uint32_t highest = *std::max_element(
        part.first, part.last, [&](std::uint32_t a, std::uint32_t b) { return m_tops[a] < m_tops[b]; });
    node.top[lane] = isFar ? kNowhere : RoundedUp(m_tops[highest]);
}

}  // namespace

WideTree::WideTree(const std::vector<Box>& boxes, const std::vector<double>& tops) {
    if (boxes.empty())
        return;
    m_order.resize(boxes.size());
    std::iota(m_order.begin(), m_order.end(), 0U);
    m_nodes.reserve(boxes.size() / 4 + 1);
    Builder(boxes, tops, m_order, m_nodes).Build(PartOf(boxes, m_order.data(), m_order.data() + m_order.size()));
    m_nodes.shrink_to_fit();
}
