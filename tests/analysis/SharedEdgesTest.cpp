// The edges that faces share.
#include "analysis/SharedEdges.h"

#include <gtest/gtest.h>

namespace {

// Edges from the first corner to each other one, of places in one line.
struct Comb {
    std::vector<Vector3> places{{0, 0, 0}};
    std::vector<FaceEdge> edges;

    explicit Comb(std::uint32_t count) {
        for (std::uint32_t i = 1; i <= count; ++i) {
            places.push_back({i * 10.0, i * 20.0, i * -30.0});
            edges.push_back({0, i, i});
        }
        SortEdges(edges);
    }
};

std::vector<std::pair<std::uint32_t, std::uint32_t>> EndsOf(const std::vector<FaceEdge>& edges) {
    std::vector<std::pair<std::uint32_t, std::uint32_t>> ends;
    for (const FaceEdge& edge : edges)
        ends.emplace_back(edge.from, edge.to);
    return ends;
}

}  // namespace

TEST(SharedEdges, AreDividedAtCornersThatLieOnThem) {
    Comb comb(3);
    DivideOddEdges(comb.edges, comb.places, 0.1);
    EXPECT_EQ(EndsOf(comb.edges),
              (std::vector<std::pair<std::uint32_t, std::uint32_t>>{{0, 1}, {0, 1}, {0, 1}, {1, 2}, {1, 2}, {2, 3}}));
}

TEST(SharedEdges, AreNotDividedAtCornersBesideThem) {
    Comb comb(2);
    comb.places[1].x += 0.5;
    DivideOddEdges(comb.edges, comb.places, 0.1);
    EXPECT_EQ(comb.edges.size(), 2U);
    comb.places[1].x -= 0.45;
    DivideOddEdges(comb.edges, comb.places, 0.1);
    EXPECT_EQ(comb.edges.size(), 3U);
}

TEST(SharedEdges, StayWholeWhereAnEvenNumberIsTheSame) {
    Comb comb(2);
    comb.edges.push_back({0, 2, 9});
    SortEdges(comb.edges);
    DivideOddEdges(comb.edges, comb.places, 0.1);
    EXPECT_EQ(comb.edges.size(), 3U);
}

TEST(SharedEdges, StayWholeWhereTheirPartsWouldBeMillions) {
    Comb comb(3000);
    DivideOddEdges(comb.edges, comb.places, 0.1);
    EXPECT_EQ(comb.edges.size(), 3000U) << "and not half the square of that";
}
