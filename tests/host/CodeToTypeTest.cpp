// The type and the place of the value of every group code.
#include "platform/host/CodeToType.h"

#include <gtest/gtest.h>

#include <climits>
#include <initializer_list>
#include <map>

#include "platform/host/GroupStorage.h"

namespace {

struct Span {
    int first;
    int last;
};

// The published ranges by what they hold, as a map from every single code.
std::map<int, int> ExpectedTypes() {
    std::map<int, int> types;
    const auto add = [&types](int type, std::initializer_list<Span> spans) {
        for (const Span& span : spans)
            for (int code = span.first; code <= span.last; ++code)
                types[code] = type;
    };
    add(RTENAME, {{-5, -5}, {-2, -1}, {330, 369}, {390, 399}, {480, 481}});
    add(RTSTR, {{-4, -4}, {0, 9}, {100, 100}, {102, 102}, {105, 105}, {300, 309}, {320, 329}, {410, 419}});
    add(RTSTR, {{430, 439}, {470, 479}, {999, 1003}, {1005, 1009}});
    add(RT3DPOINT, {{10, 18}, {110, 119}, {210, 219}, {1010, 1019}});
    add(RTREAL, {{38, 49}, {59, 59}, {140, 149}, {460, 469}, {1040, 1059}});
    add(RTANG, {{50, 58}});
    add(RTSHORT, {{60, 79}, {170, 179}, {270, 299}, {370, 389}, {400, 409}, {1060, 1070}});
    add(RTLONG, {{90, 99}, {420, 429}, {440, 459}, {1071, 1071}});
    return types;
}

}  // namespace

TEST(CodeToType, KnowsEveryPublishedRangeAndNothingElse) {
    const std::map<int, int> expected = ExpectedTypes();
    for (int code = -20; code <= 6000; ++code) {
        const auto found = expected.find(code);
        EXPECT_EQ(CodeToType(code), found == expected.end() ? RTNONE : found->second) << "code " << code;
    }
}

TEST(CodeToType, KnowsNothingOfExtremeCodes) {
    EXPECT_EQ(CodeToType(INT_MIN), RTNONE);
    EXPECT_EQ(CodeToType(INT_MAX), RTNONE);
}

TEST(CodeToType, GivesTheNumbersThatCallersAreBuiltWith) {
    EXPECT_EQ(CodeToType(19), 5000);
    EXPECT_EQ(CodeToType(40), 5001);
    EXPECT_EQ(CodeToType(70), 5003);
    EXPECT_EQ(CodeToType(50), 5004);
    EXPECT_EQ(CodeToType(1), 5005);
    EXPECT_EQ(CodeToType(330), 5006);
    EXPECT_EQ(CodeToType(10), 5009);
    EXPECT_EQ(CodeToType(90), 5010);
    EXPECT_EQ(RTPOINT, 5002);
    EXPECT_EQ(RTPICKS, 5007);
    EXPECT_EQ(RTORINT, 5008);
    EXPECT_EQ(RTNORM, 5100);
    EXPECT_EQ(RTERROR, -5001);
}

TEST(GroupStorage, FitsTheTypeOfEveryCodeThatHasOne) {
    const std::map<int, GroupStorage> fitting = {
        {RTENAME, GroupStorage::Name}, {RTSTR, GroupStorage::Text}, {RT3DPOINT, GroupStorage::Point},
        {RTREAL, GroupStorage::Real},  {RTANG, GroupStorage::Real}, {RTSHORT, GroupStorage::Short},
        {RTLONG, GroupStorage::Long},
    };
    for (const auto& [code, type] : ExpectedTypes())
        EXPECT_EQ(StorageOf(code), fitting.at(type)) << "code " << code;
}

TEST(GroupStorage, KnowsWhereCodesWithoutATypeLie) {
    for (const int code : {20, 28, 30, 37, 120, 139, 220, 239, 1020, 1039})
        EXPECT_EQ(StorageOf(code), GroupStorage::Real) << "code " << code;
    for (const int code : {160, 169})
        EXPECT_EQ(StorageOf(code), GroupStorage::Int64) << "code " << code;
    for (const int code : {310, 319, 1004})
        EXPECT_EQ(StorageOf(code), GroupStorage::Binary) << "code " << code;
    for (const int code : {-6, -3, 19, 80, 101, 103, 150, 180, 240, 482, 998})
        EXPECT_EQ(StorageOf(code), GroupStorage::Text) << "code " << code;
}

TEST(GroupStorage, KnowsTheResultTypes) {
    for (const int type : {RTREAL, RTANG, RTORINT})
        EXPECT_EQ(StorageOf(type), GroupStorage::Real) << type;
    for (const int type : {RTPOINT, RT3DPOINT})
        EXPECT_EQ(StorageOf(type), GroupStorage::Point) << type;
    for (const int type : {RTENAME, RTPICKS})
        EXPECT_EQ(StorageOf(type), GroupStorage::Name) << type;
    EXPECT_EQ(StorageOf(RTSTR), GroupStorage::Text);
    EXPECT_EQ(StorageOf(RTSHORT), GroupStorage::Short);
    for (const int type : {RTLONG, RTNONE, 5011, 1072, INT_MAX})
        EXPECT_EQ(StorageOf(type), GroupStorage::Long) << type;
}
