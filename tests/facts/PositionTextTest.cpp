// Positions as they are typed: order, words for the sides, and what is refused.
#include "facts/PositionText.h"

#include <gtest/gtest.h>

namespace {

void ExpectPosition(const wchar_t* text, double longitude, double latitude) {
    const std::optional<TypedPosition> typed = ParsePosition(text);
    ASSERT_TRUE(typed && typed->place) << ToUtf8(text);
    EXPECT_EQ(typed->place->longitude, longitude) << ToUtf8(text);
    EXPECT_EQ(typed->place->latitude, latitude) << ToUtf8(text);
    EXPECT_EQ(typed->trouble, L"");
}

std::string TroubleWith(const wchar_t* text) {
    const std::optional<TypedPosition> typed = ParsePosition(text);
    EXPECT_TRUE(typed && !typed->place) << ToUtf8(text);
    const std::string trouble = typed ? ToUtf8(typed->trouble.View()) : std::string();
    return trouble.substr(0, trouble.find("；"));
}

}  // namespace

TEST(TypedPositions, AreLongitudeAndLatitudeInThisOrder) {
    ExpectPosition(L"121.47,31.23", 121.47, 31.23);
    ExpectPosition(L" 121.47 , 31.23 ", 121.47, 31.23);
    ExpectPosition(L"121.47，31.23", 121.47, 31.23);
    ExpectPosition(L"-70.5,-33", -70.5, -33.0);
    ExpectPosition(L".5,0", 0.5, 0.0);
    ExpectPosition(L"121.47°,31.23度", 121.47, 31.23);
    ExpectPosition(L"180,-90", 180.0, -90.0);
}

TEST(TypedPositions, HaveAnyOrderWhenTheySayWhichIsWhich) {
    for (const wchar_t* text :
         {L"31.23N,121.47E", L"121.47E,31.23N", L"n31.23, e121.47", L"31.23N,121.47", L"121.47,N31.23",
          L"31.23,121.47E", L"121.47°E,31.23°N", L"北纬31.23度，东经121.47度", L"东经121.47,31.23"})
        ExpectPosition(text, 121.47, 31.23);
    ExpectPosition(L"33.4S,70.6W", -70.6, -33.4);
    ExpectPosition(L"西经70.6，南纬33.4", -70.6, -33.4);
}

TEST(TypedPositions, ThatLieNowhereAreRefused) {
    EXPECT_EQ(TroubleWith(L"31.23,121.47"), "“31.23,121.47”不在地球上：经度从 -180 到 180，纬度从 -90 到 90");
    for (const wchar_t* text : {L"180.1,0", L"-181,0", L"0,90.5", L"121E,91N", L"1e3,0"})
        EXPECT_NE(TroubleWith(text).find("不在地球上"), std::string::npos) << ToUtf8(text);
    EXPECT_EQ(TroubleWith(L"121E,31E"), "“121E,31E”给出了同一方向的两个角度");
    EXPECT_EQ(TroubleWith(L"31N,121S"), "“31N,121S”给出了同一方向的两个角度");
    for (const wchar_t* text :
         {L"121.47,31.2x", L"1,2,3", L"121d,31", L"-121W,31N", L"+31N,121", L"121EW,31", L"1 2,3", L"1e999,3"})
        EXPECT_NE(TroubleWith(text).find("不是一个位置"), std::string::npos) << ToUtf8(text);
    EXPECT_EQ(TroubleWith(L"1\x1b,2"), "“1\uFFFD,2”不是一个位置") << "made printable";
}

TEST(TypedPositions, RefusalsTellHowToWriteOne) {
    const std::string all = ToUtf8(ParsePosition(L"31,121")->trouble.View());
    EXPECT_NE(all.find("121.47,31.23"), std::string::npos) << all;
    EXPECT_NE(all.find("31.23N,121.47E"), std::string::npos) << all;
}

TEST(TypedPositions, AreNotSeenInNames) {
    for (const wchar_t* text : {L"", L",", L"上海", L"121.47", L"121.47 31.23", L"a,b", L"EE121,31", L"E,N", L"5,x",
                                L"x,5", L"东城,西城", L"-,1"})
        EXPECT_FALSE(ParsePosition(text)) << ToUtf8(text);
}

TEST(TypedPositions, HaveANameThatCanBeTyped) {
    EXPECT_EQ(PositionName(121.47, 31.23), L"121.47E,31.23N");
    EXPECT_EQ(PositionName(-70.6, -33.4), L"70.6W,33.4S");
    EXPECT_EQ(PositionName(0.0, 0.0), L"0E,0N");
    for (const double longitude : {-180.0, -0.1, 0.0, 1e-7, 121.4726})
        for (const double latitude : {-90.0, -33.000001, 0.0, 31.2317})
            ExpectPosition(PositionName(longitude, latitude), longitude, latitude);
    EXPECT_EQ(ParsePosition(L"31N,121E")->place->FullName(), L"121E,31N") << "without a province";
}
