// What is left of what is asked.
#include "analysis/OpenSpans.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

using Pairs = std::vector<std::pair<double, double>>;

Pairs LeftOf(const OpenSpans& open) {
    Pairs pairs;
    for (const TangentSpan& span : open.All())
        pairs.emplace_back(span.least, span.most);
    return pairs;
}

TEST(OpenSpans, LoseWhatIsHidden) {
    OpenSpans open({{0.0, 1.0}, {2.0, 3.0}, {4.0, 5.0}});
    EXPECT_FALSE(open.Take({1.0, 2.0})) << "between two";
    EXPECT_TRUE(open.Take({0.25, 0.5}));
    EXPECT_EQ(LeftOf(open), (Pairs{{0.0, 0.25}, {0.5, 1.0}, {2.0, 3.0}, {4.0, 5.0}}));
    EXPECT_TRUE(open.Take({0.75, 4.5}));
    EXPECT_EQ(LeftOf(open), (Pairs{{0.0, 0.25}, {0.5, 0.75}, {4.5, 5.0}}));
    EXPECT_EQ(open.Around().least, 0.0);
    EXPECT_EQ(open.Around().most, 5.0);
    EXPECT_TRUE(open.Take({-1.0, 9.0}));
    EXPECT_TRUE(open.IsEmpty());
    EXPECT_FALSE(open.Take({-1.0, 9.0}));
}

TEST(OpenSpans, MeetWhatTouchesThem) {
    const OpenSpans open({{0.0, 1.0}, {2.0, 3.0}});
    EXPECT_TRUE(open.MayMeet(1.0F, 1.5F));
    EXPECT_TRUE(open.MayMeet(-1.0F, 9.0F));
    EXPECT_FALSE(open.MayMeet(1.25F, 1.5F));
    EXPECT_FALSE(open.MayMeet(3.5F, 4.0F));
}

}  // namespace
