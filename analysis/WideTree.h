// A tree of boxes with eight children to a node, laid out so that all eight are looked at together.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/BoxTree.h"

// The boxes of a node's children in single precision, rounded outwards; what reaches farther than 1e13 has a box around
// everything. A child that is missing has its greatest coordinates before its least ones; their size keeps quotients
// and squares within what processors compute quickly.
struct alignas(64) WideNode {
    static constexpr int kWidth = 8;

    float least[3][kWidth];
    float most[3][kWidth];
    float top[kWidth];            // how high it reaches, upright
    std::uint32_t child[kWidth];  // the number of a node, or kThing and the place of a thing in WideTree::Order

    static constexpr std::uint32_t kThing = 1U << 31;
    bool IsThing(int lane) const { return (child[lane] & kThing) != 0; }
    std::uint32_t NumberAt(int lane) const { return child[lane] & ~kThing; }
};

class WideTree {
public:
    WideTree() = default;
    // Over boxes in whatever axes; `tops` says how high each thing reaches.
    WideTree(const std::vector<Box>& boxes, const std::vector<double>& tops);

    // The root is number 0, unless there are no things.
    bool IsEmpty() const { return m_nodes.empty(); }
    const WideNode& At(std::uint32_t number) const { return m_nodes[number]; }
    // The things, by their index, in an order in which those of one node are neighbours.
    const std::vector<std::uint32_t>& Order() const { return m_order; }

private:
    std::vector<WideNode> m_nodes;
    std::vector<std::uint32_t> m_order;
};
