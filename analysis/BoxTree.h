// A tree of boxes over things in space, so that whoever looks for few of many need not look at all.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "analysis/Vector3.h"

// With its sides along the axes.
struct Box {
    Vector3 least;  // its lowest corner
    Vector3 most;   // its highest corner
};

// The boxes are copied, the things are the caller's. Any number of threads may walk at once.
class BoxTree {
public:
    // Over nothing.
    BoxTree() = default;
    // Over boxes that are finite; the things are known by their index.
    explicit BoxTree(const std::vector<Box>& boxes);

    // Calls visit(index) for every thing for whose box, and for all boxes around that, reaches(box) is true.
    template <class Reaches, class Visit>
    void Walk(const Reaches& reaches, const Visit& visit) const {
        std::vector<std::uint32_t> open;
        if (!m_nodes.empty())
            open.push_back(0);
        while (!open.empty()) {
            const Node& node = m_nodes[open.back()];
            open.pop_back();
            if (!reaches(node.box))
                continue;
            if (node.isLeaf) {
                visit(static_cast<std::size_t>(node.first));
            } else {
                open.push_back(node.second);
                open.push_back(node.first);
            }
        }
    }

private:
    struct Node {
        Box box;
        std::uint32_t first = 0;   // of a leaf the thing, else a node
        std::uint32_t second = 0;  // a node
        bool isLeaf = false;
    };

    std::uint32_t Build(const std::vector<Box>& boxes, std::uint32_t* first, std::uint32_t* last);

    std::vector<Node> m_nodes;  // the root first
};
