// Stretched columns, against the longest way from edge to edge.
#include "platform/window/toolkit/ColumnStretch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

// The least places of all edges, found by pushing edges to the right until nothing has to move any more.
std::map<int, int> Pushed(const std::vector<ColumnSpan>& spans) {
    std::map<int, int> places;
    for (const ColumnSpan& span : spans) {
        places[span.left] = span.left;
        places[span.right] = span.right;
    }
    for (bool moved = true; moved;) {
        moved = false;
        const auto push = [&](int edge, int least) {
            if (places[edge] < least) {
                places[edge] = least;
                moved = true;
            }
        };
        for (auto it = places.begin(); it != places.end() && std::next(it) != places.end(); ++it)
            push(std::next(it)->first, it->second + std::next(it)->first - it->first);
        for (const ColumnSpan& span : spans)
            push(span.right, places[span.left] + span.needed);
    }
    return places;
}

using Places = std::map<int, int>;

TEST(ColumnStretch, LeavesWhatIsWideEnough) {
    EXPECT_EQ(StretchColumns({}), Places());
    EXPECT_EQ(StretchColumns({{0, 100, 0}, {10, 40, 30}, {50, 90, 5}}),
              (Places{{0, 0}, {10, 10}, {40, 40}, {50, 50}, {90, 90}, {100, 100}}));
}

TEST(ColumnStretch, MovesEverythingRightOfWhatGrows) {
    // A label that needs 5 more, an edit beside it, and a button below that begins where the edit does.
    EXPECT_EQ(StretchColumns({{0, 100, 0}, {10, 40, 35}, {50, 90, 0}, {50, 70, 20}}),
              (Places{{0, 0}, {10, 10}, {40, 45}, {50, 55}, {70, 75}, {90, 95}, {100, 105}}));
}

TEST(ColumnStretch, GrowsOnceForSpansThatShareAColumn) {
    EXPECT_EQ(StretchColumns({{0, 10, 15}, {0, 10, 12}, {0, 20, 24}}), (Places{{0, 0}, {10, 15}, {20, 25}}));
}

TEST(ColumnStretch, GivesTheLeastPlaces) {
    std::mt19937 random(20);
    const auto pick = [&](int least, int most) { return std::uniform_int_distribution(least, most)(random); };
    for (int round = 0; round < 500; ++round) {
        std::vector<ColumnSpan> spans;
        for (int i = pick(1, 12); i > 0; --i) {
            const int left = pick(-5, 60);
            const int width = pick(1, 40);
            spans.push_back({left, left + width, pick(0, 2) == 0 ? 0 : pick(0, 70)});
        }
        EXPECT_EQ(StretchColumns(spans), Pushed(spans)) << round;
    }
}

TEST(ColumnStretch, HasNoTroubleWithEmptyAndMirroredSpans) {
    const Places places = StretchColumns({{10, 10, 50}, {30, 20, 50}});
    EXPECT_EQ(places, (Places{{10, 10}, {20, 20}, {30, 30}}));
}

}  // namespace
