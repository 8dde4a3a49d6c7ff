// Finding places: the walk through the database, names, and what is said about unknown ones.
#include "facts/PlaceSearch.h"

#include <limits>

#include "facts/FactsStage.h"
#include "zone/OrvoZoneRecord.h"

namespace {

// A province without cities, one city's name in two provinces, a province that stands twice, a city's name twice in one
// province, deeper levels (one bears a city's name), names with strokes, and items that are no provinces.
const char* const kPlaces =
    "<ORVO_ZONEDATA xmlns:dt=\"urn:orvo:dictionary\">"
    "<甲省 type=\"PROVINCE\">"
    "<甲城 type=\"CITY\" longitude=\"121.4700\" latitude=\"+31.230\">海边</甲城>"
    "<同城 type=\"CITY\" longitude=\"100\" latitude=\"10\"/>"
    "<深处 type=\"PROVINCE\"><暗城 type=\"CITY\" longitude=\"1\" latitude=\"1\"/></深处>"
    "<深处 type=\"CITY\" longitude=\"101\" latitude=\"11\"/>"
    "<Abc type=\"CITY\" longitude=\" 102.5x\" latitude=\"\"/>"
    "</甲省>"
    "<乙省 type=\"PROVINCE\">"
    "<同城 type=\"CITY\" longitude=\"110\" latitude=\"20\"/>"
    "<双城 type=\"CITY\" longitude=\"111\" latitude=\"21\">一</双城>"
    "<双城 type=\"CITY\" longitude=\"111.0\" latitude=\"22.00\">二</双城>"
    "</乙省>"
    "<空省 type=\"PROVINCE\"><里 type=\"PROVINCE\"><甲城 type=\"CITY\" longitude=\"5\" latitude=\"5\"/></里></空省>"
    "<散文 type=\"CITY\" longitude=\"7\" latitude=\"7\"/>"
    "<甲省 type=\"PROVINCE\">"
    "<后城 type=\"CITY\" longitude=\"120.50\" latitude=\"30\"/>"
    "<同城 type=\"CITY\" longitude=\"120\" latitude=\"40\"/>"
    "</甲省>"
    "<p dt:name=\"左/右\" type=\"PROVINCE\"><c dt:name=\"上/下\" type=\"CITY\" longitude=\"9\" latitude=\"8\"/></p>"
    "</ORVO_ZONEDATA>";

class PlaceSearch : public FactsStage {
protected:
    PlaceSearch() { Read(g_dictSunZone, kPlaces); }

    static std::vector<std::string> NamesWith(const wchar_t* text) {
        std::vector<std::string> names;
        for (const Place& place : PlacesWith(text))
            names.push_back(ToUtf8(place.FullName().View()));
        return names;
    }
    static std::string Unknown(const wchar_t* name) { return ToUtf8(UnknownPlaceText(name).View()); }
};

using Names = std::vector<std::string>;

}  // namespace

TEST_F(PlaceSearch, GoesThroughTheCitiesInTheOrderOfTheDatabase) {
    const Names all = {"甲省/甲城", "甲省/同城", "甲省/深处", "甲省/Abc",  "乙省/同城",
                       "乙省/双城", "乙省/双城", "甲省/后城", "甲省/同城", "左/右/上/下"};
    EXPECT_EQ(NamesWith(L""), all);
    const std::vector<Place> places = AllPlaces();
    ASSERT_EQ(places.size(), all.size());
    EXPECT_EQ(places[0].longitude, 121.47);
    EXPECT_EQ(places[0].latitude, 31.23);
    EXPECT_EQ(places[3].longitude, 102.5) << "as far as it is a number";
    EXPECT_EQ(places[3].latitude, 0.0);
    EXPECT_EQ(places[8].latitude, 40.0);
}

TEST_F(PlaceSearch, LooksForATextInBothNames) {
    EXPECT_EQ(NamesWith(L"乙"), (Names{"乙省/同城", "乙省/双城", "乙省/双城"}));
    EXPECT_EQ(NamesWith(L"双"), (Names{"乙省/双城", "乙省/双城"}));
    EXPECT_EQ(NamesWith(L"aBC"), (Names{"甲省/Abc"}));
    EXPECT_EQ(NamesWith(L"省/同"), Names()) << "the two together are not looked at";
    EXPECT_EQ(NamesWith(L"散文"), Names()) << "no province";
    EXPECT_EQ(NamesWith(L"暗"), Names()) << "too deep";
    g_dictSunZone.ReadFromXML(nullptr);
    EXPECT_TRUE(AllPlaces().empty());
}

TEST_F(PlaceSearch, FindsTheFirstCityOfAName) {
    EXPECT_EQ(FindPlace(L"同城").value().latitude, 10.0);
    EXPECT_EQ(FindPlace(L"双城").value().latitude, 21.0);
    EXPECT_EQ(FindPlace(L"后城").value().longitude, 120.5);
    EXPECT_EQ(FindPlace(L"深处").value().longitude, 101.0) << "the city, not the level of the same name";
    EXPECT_EQ(FindPlace(L"上/下").value().longitude, 9.0);
    for (const wchar_t* name : {L"", L"同", L"同城 ", L"abc", L"甲省", L"暗城", L"里", L"散文"})
        EXPECT_FALSE(FindPlace(name)) << ToUtf8(name);
}

TEST_F(PlaceSearch, FindsACityOfAProvince) {
    EXPECT_EQ(FindPlace(L"甲省/同城").value().latitude, 10.0);
    EXPECT_EQ(FindPlace(L"乙省/同城").value().latitude, 20.0);
    EXPECT_EQ(FindPlace(L"乙省/同城").value().province, L"乙省");
    for (const wchar_t* name :
         {L"乙省/甲城", L"丙省/同城", L"/同城", L"乙省/", L"乙省", L"/", L"甲省/深处/暗城", L"乙省/同城/"})
        EXPECT_FALSE(FindPlace(name)) << ToUtf8(name);
}

TEST_F(PlaceSearch, FindsEveryPlaceByItsFullName) {
    for (const Place& place : AllPlaces()) {
        const std::optional<Place> found = FindPlace(place.FullName());
        ASSERT_TRUE(found) << ToUtf8(place.FullName().View());
        EXPECT_EQ(found->FullName(), place.FullName());
    }
}

TEST_F(PlaceSearch, LooksUpTheCurrentPlaceByItsNameAlone) {
    g_SunDataSet.m_strCurCity = L"同城";
    g_SunDataSet.m_strProvince = L"乙省";
    g_SunDataSet.m_strLongitude = L"1";
    EXPECT_EQ(CurrentPlace().value().latitude, 10.0);
    g_SunDataSet.m_strCurCity = L"乙省/同城";
    EXPECT_EQ(CurrentPlace().value().latitude, 20.0);
    g_SunDataSet.m_strCurCity = L"消失的城";
    EXPECT_FALSE(CurrentPlace());
}

TEST_F(PlaceSearch, SaysThatANameIsAProvinces) {
    EXPECT_EQ(Unknown(L"甲省"), "“甲省”是省份，请写其中的一个地区，例如：甲城、同城、深处");
    EXPECT_EQ(Unknown(L"乙省"), "“乙省”是省份，请写其中的一个地区，例如：同城、双城");
    EXPECT_EQ(Unknown(L"空省"), "“空省”是省份，其中没有地区。");
}

TEST_F(PlaceSearch, SaysWhichNamesComeNear) {
    EXPECT_EQ(Unknown(L"后诚"), "没有名为“后诚”的地区。相近的有：后城");
    EXPECT_EQ(Unknown(L"双城市"), "没有名为“双城市”的地区。相近的有：双城") << "each name once";
    EXPECT_EQ(Unknown(L"甲省/后诚"), "没有名为“甲省/后诚”的地区。相近的有：甲省/后城、甲省/甲城、甲省/同城");
}

TEST_F(PlaceSearch, SaysHowToSeeAllWhereNothingComesNear) {
    EXPECT_EQ(Unknown(L"qwertyuiop\x1b["), "没有名为“qwertyuiop\uFFFD[”的地区。用“orvo places”可列出所有地区。");
    g_dictSunZone.ReadFromXML(nullptr);
    EXPECT_EQ(Unknown(L"甲城"), "没有名为“甲城”的地区：地区数据库是空的。");
}

TEST_F(PlaceSearch, GivesTheRecordAsItStandsInTheDatabase) {
    const OrvoZoneRecord record = RecordOf(FindPlace(L"甲城").value());
    EXPECT_EQ(record.m_strProvince, L"甲省");
    EXPECT_EQ(record.m_strCity, L"甲城");
    EXPECT_EQ(record.m_strLongitude, L"121.4700");
    EXPECT_EQ(record.m_strLatitude, L"+31.230");
    EXPECT_EQ(record.m_strComment, L"海边");
    EXPECT_EQ(RecordOf(FindPlace(L"Abc").value()).m_strLongitude, L" 102.5x");
    const std::vector<Place> places = AllPlaces();
    EXPECT_EQ(RecordOf(places[2]).m_strLatitude, L"11") << "behind a level of its name";
    EXPECT_EQ(RecordOf(places[5]).m_strComment, L"一");
    EXPECT_EQ(RecordOf(places[6]).m_strComment, L"二") << "the second of its name";
    EXPECT_EQ(RecordOf(places[6]).m_strLatitude, L"22.00");
    EXPECT_EQ(RecordOf(places[7]).m_strLongitude, L"120.50") << "in a province that stands twice";
}

TEST_F(PlaceSearch, MakesARecordOfTheNumbersWhereTheDatabaseHasNone) {
    for (const Place& place : {Place{L"甲省", L"甲城", 121.4701, 31.23}, Place{L"乙省", L"甲城", 121.47, 31.23},
                               Place{L"丙", L"丁", -0.1, 1e-7}}) {
        const OrvoZoneRecord record = RecordOf(place);
        EXPECT_EQ(record.m_strProvince, place.province);
        EXPECT_EQ(record.m_strCity, place.city);
        EXPECT_EQ(record.GetTotalLong(), place.longitude);
        EXPECT_EQ(record.GetTotalLat(), place.latitude);
        EXPECT_EQ(record.m_strComment, L"");
    }
    EXPECT_EQ(RecordOf(Place{L"丙", L"丁", -0.1, 31.0}).m_strLongitude, L"-0.1");
}

TEST(PlaceOnTheGlobe, EndsAtThePolesAndAtTheDateLine) {
    EXPECT_TRUE((Place{L"", L"", 180.0, -90.0}).IsOnTheGlobe());
    EXPECT_TRUE((Place{L"", L"", -180.0, 90.0}).IsOnTheGlobe());
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double beyond : {180.0000001, -180.0000001, 1e300, nan, infinity, -infinity})
        EXPECT_FALSE((Place{L"", L"", beyond, 0.0}).IsOnTheGlobe()) << beyond;
    for (const double beyond : {90.0000001, -90.0000001, 1e300, nan, infinity, -infinity})
        EXPECT_FALSE((Place{L"", L"", 0.0, beyond}).IsOnTheGlobe()) << beyond;
}

TEST(PlaceOnTheGlobe, BearsItsProvincesName) {
    EXPECT_EQ((Place{L"甲省", L"乙城"}).FullName(), L"甲省/乙城");
    EXPECT_EQ((Place{L"", L"乙城"}).FullName(), L"乙城") << "a position";
}
