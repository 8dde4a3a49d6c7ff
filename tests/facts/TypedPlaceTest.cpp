// Places as they are typed: names before positions before Latin letters, and what fits several places.
#include "facts/TypedPlace.h"

#include "facts/BareName.h"
#include "facts/FactsStage.h"
#include "facts/PlaceSearch.h"

namespace {

const char* const kPlaces =
    "<ORVO_ZONEDATA xmlns:dt=\"urn:orvo:dictionary\">"
    "<北京 type=\"PROVINCE\"><北京 type=\"CITY\" longitude=\"116\" latitude=\"40\"/>"
    "<朝阳区 type=\"CITY\" longitude=\"116.5\" latitude=\"40\"/></北京>"
    "<辽宁 type=\"PROVINCE\"><朝阳 type=\"CITY\" longitude=\"120\" latitude=\"41\"/></辽宁>"
    "<天津 type=\"PROVINCE\"><河北区 type=\"CITY\" longitude=\"117\" latitude=\"39\"/></天津>"
    "<河北 type=\"PROVINCE\"><唐山 type=\"CITY\" longitude=\"118\" latitude=\"39\"/></河北>"
    "<江苏 type=\"PROVINCE\"><苏州 type=\"CITY\" longitude=\"120.6\" latitude=\"31\"/></江苏>"
    "<安徽 type=\"PROVINCE\"><宿州 type=\"CITY\" longitude=\"117\" latitude=\"33\"/></安徽>"
    "<山西 type=\"PROVINCE\"><太原 type=\"CITY\" longitude=\"112\" latitude=\"37\"/></山西>"
    "<陕西 type=\"PROVINCE\"><西安 type=\"CITY\" longitude=\"108\" latitude=\"34\"/>"
    "<咸阳 type=\"CITY\" longitude=\"108.7\" latitude=\"34\"/></陕西>"
    "<湖北 type=\"PROVINCE\"><恩施土家族苗族自治州 type=\"CITY\" longitude=\"109\" latitude=\"30\"/></湖北>"
    "<上海 type=\"PROVINCE\"><浦东新区 type=\"CITY\" longitude=\"121.5\" latitude=\"31\"/>"
    "<浦东新区 type=\"CITY\" longitude=\"121.5\" latitude=\"31\"/></上海>"
    "<p dt:name=\"测\" type=\"PROVINCE\"><c dt:name=\"1,2\" type=\"CITY\" longitude=\"50\" latitude=\"51\"/>"
    "<c dt:name=\"suzhou-x\" type=\"CITY\" longitude=\"52\" latitude=\"53\"/></p>"
    "</ORVO_ZONEDATA>";

class TypedPlaces : public FactsStage {
protected:
    TypedPlaces() { Read(g_dictSunZone, kPlaces); }

    static std::string Found(const wchar_t* text) {
        const TypedPlace typed = FindTypedPlace(text);
        EXPECT_NE(typed.place.has_value(), !typed.trouble.IsEmpty()) << ToUtf8(text);
        return ToUtf8((typed.place ? typed.place->FullName() : typed.trouble).View());
    }
};

}  // namespace

TEST_F(TypedPlaces, AreNamesFirst) {
    EXPECT_EQ(Found(L"朝阳"), "辽宁/朝阳");
    EXPECT_EQ(Found(L"北京/朝阳区"), "北京/朝阳区");
    EXPECT_EQ(Found(L"1,2"), "测/1,2") << "a name, though it looks like a position";
    EXPECT_EQ(FindTypedPlace(L"1,2").kind, TypedPlace::Kind::Named);
}

TEST_F(TypedPlaces, AreThenPositions) {
    EXPECT_EQ(Found(L"121.47,31.23"), "121.47E,31.23N");
    EXPECT_EQ(FindTypedPlace(L"31N,121E").place.value().latitude, 31.0);
    EXPECT_EQ(FindTypedPlace(L"31N,121E").kind, TypedPlace::Kind::Position);
    EXPECT_EQ(FindTypedPlace(L"31,121").kind, TypedPlace::Kind::Position) << "also where it lies nowhere";
    EXPECT_FALSE(FindTypedPlace(L"31,121").place);
}

TEST_F(TypedPlaces, AreThenNamesInLatinLetters) {
    for (const wchar_t* text : {L"xian", L"Xi'an", L"XI AN", L"Xī’ān", L"shanxi/xian", L"Shaanxi/Xi'an", L"陕西/xian"})
        EXPECT_EQ(Found(text), "陕西/西安") << ToUtf8(text);
    EXPECT_EQ(Found(L"xianyang"), "陕西/咸阳");
    EXPECT_EQ(Found(L"beijing"), "北京/北京") << "the province of that name is no other place";
    EXPECT_EQ(Found(L"suzhou x"), "测/suzhou-x");
    EXPECT_EQ(Found(L"jiangsu/宿州").substr(0, 3), "没") << "the province counts";
}

TEST_F(TypedPlaces, MayLeaveOutWhatKindOfPlaceTheyAre) {
    EXPECT_EQ(Found(L"pudong"), "上海/浦东新区") << "twice in the database, and one place";
    EXPECT_EQ(Found(L"pudongxinqu"), "上海/浦东新区");
    EXPECT_EQ(Found(L"enshi"), "湖北/恩施土家族苗族自治州");
    EXPECT_EQ(Found(L"tianjin/hebei"), "天津/河北区");
    EXPECT_EQ(Found(L"pudongxin").substr(0, 3), "没");
}

TEST_F(TypedPlaces, OfWhichSeveralFitAreAllNamed) {
    EXPECT_EQ(Found(L"suzhou"), "“suzhou”可以指几个地区，请写其中的一个：江苏/苏州、安徽/宿州");
    EXPECT_EQ(Found(L"ChaoYang"), "“ChaoYang”可以指几个地区，请写其中的一个：北京/朝阳区、辽宁/朝阳");
    EXPECT_EQ(Found(L"anhui/suzhou"), "安徽/宿州");
}

TEST_F(TypedPlaces, OfAProvincesNameMeanTheProvince) {
    EXPECT_EQ(Found(L"hebei"), "“河北”是省份，请写其中的一个地区，例如：唐山") << "and not the part of 天津";
    EXPECT_EQ(Found(L"shanxi"), "“shanxi”可以指几个省份：山西、陕西；请写其中的一个地区。");
    EXPECT_EQ(Found(L"shaanxi"), "“陕西”是省份，请写其中的一个地区，例如：西安、咸阳");
}

TEST_F(TypedPlaces, ThatNobodyKnowsAreToldWithThoseNearThem) {
    EXPECT_EQ(Found(L"beijin"), "没有名为“beijin”的地区。相近的有：北京");
    EXPECT_EQ(Found(L"tiyuan"), "没有名为“tiyuan”的地区。相近的有：太原、西安") << "three of six letters";
    EXPECT_EQ(Found(L"qqqqqqqq"), "没有名为“qqqqqqqq”的地区。用“orvo places”可列出所有地区。");
    EXPECT_EQ(Found(L""), "没有名为“”的地区。用“orvo places”可列出所有地区。");
    g_dictSunZone.ReadFromXML(nullptr);
    EXPECT_EQ(Found(L"xian"), "没有名为“xian”的地区：地区数据库是空的。");
}

TEST_F(TypedPlaces, AreListedByTheBeginningOfTheirLatinNames) {
    const auto namesWith = [](const wchar_t* text) {
        std::string names;
        for (const Place& place : PlacesWith(text))
            names += ToUtf8(place.FullName().View()) + " ";
        return names;
    };
    EXPECT_EQ(namesWith(L"xian"), "陕西/西安 陕西/咸阳 ");
    EXPECT_EQ(namesWith(L"An Hui"), "安徽/宿州 ") << "of a province";
    EXPECT_EQ(namesWith(L"suzhou"), "江苏/苏州 安徽/宿州 测/suzhou-x ");
    EXPECT_EQ(namesWith(L"dong"), "") << "from the beginning alone";
}

TEST(BareNames, LoseTheWordsForTheKindOfPlace) {
    for (const auto& [name, bare] : {std::pair(L"浦东新区", L"浦东"),
                                     {L"新竹县", L"新竹"},
                                     {L"嘉义市", L"嘉义"},
                                     {L"兴安盟", L"兴安"},
                                     {L"阿克苏地区", L"阿克苏"},
                                     {L"神农架林区", L"神农架"},
                                     {L"大理白族自治州", L"大理"},
                                     {L"上海", L"上海"},
                                     {L"克孜勒苏柯尔克孜自治州", L"克孜勒苏"},
                                     {L"海西蒙古族藏族自治州", L"海西"},
                                     {L"博尔塔拉蒙古自治州", L"博尔塔拉"},
                                     {L"黔西南布依族苗族自治州", L"黔西南"},
                                     {L"石柱土家族自治县", L"石柱"},
                                     {L"怒江傈僳族自治州", L"怒江"},
                                     {L"延边朝鲜族自治州", L"延边"},
                                     {L"忠县", L"忠县"},
                                     {L"东区", L"东区"},
                                     {L"", L""},
                                     {L"区", L"区"}})
        EXPECT_EQ(BareName(name), bare) << ToUtf8(bare);
}
