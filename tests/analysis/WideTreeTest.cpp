// The tree holds each thing once, within every box above it.
#include "analysis/WideTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

constexpr double Vector3::*kAxes[] = {&Vector3::x, &Vector3::y, &Vector3::z};

struct Things {
    std::vector<Box> boxes;
    std::vector<double> tops;
};

Things RandomThings(std::size_t count, unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    Things things;
    while (things.boxes.size() < count) {
        const double far = random() % 4 == 0 ? 1e9 : 1e4;
        const Vector3 least = {far * unit(random), far * unit(random), far * unit(random)};
        const Vector3 size = {std::abs(100.0 * unit(random)), std::abs(100.0 * unit(random)), 0.0};
        things.boxes.push_back({least, least + size});
        things.tops.push_back(1000.0 * unit(random));
    }
    return things;
}

class Visit {
public:
    Visit(const WideTree& tree, const Things& things) : m_tree(tree), m_things(things) {
        m_times.resize(things.boxes.size());
        if (!tree.IsEmpty())
            LookInto(0, {});
    }
    // How often each thing was met.
    const std::vector<int>& Times() const { return m_times; }
    int Deepest() const { return m_deepest; }
    std::size_t Nodes() const { return m_nodes; }

private:
    struct Lane {
        const WideNode& node;
        int lane;
    };

    void LookInto(std::uint32_t number, const std::vector<Lane>& above) {
        ++m_nodes;
        m_deepest = std::max(m_deepest, static_cast<int>(above.size()));
        const WideNode& node = m_tree.At(number);
        for (int lane = 0; lane < WideNode::kWidth; ++lane) {
            if (node.least[0][lane] > node.most[0][lane])
                continue;
            std::vector<Lane> way = above;
            way.push_back({node, lane});
            if (!node.IsThing(lane))
                LookInto(node.NumberAt(lane), way);
            else
                Meet(m_tree.Order()[node.NumberAt(lane)], way);
        }
    }
    void Meet(std::uint32_t thing, const std::vector<Lane>& way) {
        ++m_times[thing];
        const Box& box = m_things.boxes[thing];
        for (const Lane& each : way) {
            for (int i = 0; i < 3; ++i) {
                EXPECT_LE(static_cast<double>(each.node.least[i][each.lane]), box.least.*kAxes[i]);
                EXPECT_GE(static_cast<double>(each.node.most[i][each.lane]), box.most.*kAxes[i]);
            }
            EXPECT_GE(static_cast<double>(each.node.top[each.lane]), m_things.tops[thing]);
        }
    }

    const WideTree& m_tree;
    const Things& m_things;
    std::vector<int> m_times;
    int m_deepest = 0;
    std::size_t m_nodes = 0;
};

TEST(WideTree, HoldsEachThingOnceWithinTheBoxesAboveIt) {
    for (const std::size_t count : {1U, 2U, 7U, 8U, 9U, 100U, 5000U}) {
        const Things things = RandomThings(count, static_cast<unsigned>(count));
        const WideTree tree(things.boxes, things.tops);
        const Visit visit(tree, things);
        EXPECT_EQ(visit.Times(), std::vector<int>(count, 1)) << count;
        EXPECT_LE(visit.Nodes(), count / 2 + 1) << "memory in proportion to the things";
    }
    EXPECT_TRUE(WideTree({}, {}).IsEmpty());
}

// All in one place: nothing tells them apart, and the tree is still no list.
TEST(WideTree, DividesWhatLiesInOnePlace) {
    Things things;
    things.boxes.assign(4096, {{1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}});
    things.tops.assign(4096, 6.0);
    const WideTree tree(things.boxes, things.tops);
    const Visit visit(tree, things);
    EXPECT_EQ(visit.Times(), std::vector<int>(4096, 1));
    EXPECT_LE(visit.Deepest(), 12);
}

// Each thing twice as far away as the one before: whatever bins are made, the last one is alone in its.
TEST(WideTree, IsNotAsDeepAsThingsAreMany) {
    Things things;
    double place = 1e-150;
    for (int i = 0; i < 500; ++i, place *= 2.0) {
        things.boxes.push_back({{place, 0.0, 0.0}, {place, 1.0, 1.0}});
        things.tops.push_back(1.0);
    }
    const WideTree tree(things.boxes, things.tops);
    const Visit visit(tree, things);
    EXPECT_EQ(visit.Times(), std::vector<int>(500, 1));
    EXPECT_LE(visit.Deepest(), 64);
}

}  // namespace
