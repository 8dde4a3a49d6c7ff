// City records: defaults, comparisons, splitting and formatting of positions, and the zone tree.
#include "zone/OrvoZoneRecord.h"

#include <gtest/gtest.h>

#include <climits>

#include "containers/QcList.h"
#include "frame/ConfigDictionaries.h"
#include "platform/base/QcDtDictionary.h"
#include "support/GermanLocale.h"
#include "zone/SunZoneInfo.h"

namespace {

OrvoZoneRecord At(const wchar_t* longitude, const wchar_t* latitude) {
    OrvoZoneRecord record;
    record.m_strLongitude = longitude;
    record.m_strLatitude = latitude;
    return record;
}

OrvoZoneRecord Named(const wchar_t* province, const wchar_t* city) {
    OrvoZoneRecord record;
    record.m_strProvince = province;
    record.m_strCity = city;
    return record;
}

// Every test has the process's zone tree to itself.
class ZoneTree : public testing::Test {
protected:
    void SetUp() override { g_dictSunZone.RemoveAll(); }
    void TearDown() override { g_dictSunZone.RemoveAll(); }

    static QcDtDictItem* AddCity(const wchar_t* province, const wchar_t* city) {
        return g_dictSunZone.FindOrAddDict(province)->FindOrAddItem(city, 5);
    }
};

}  // namespace

TEST(OrvoZoneRecord, BeginsUndefinedAtZero) {
    const OrvoZoneRecord record;
    EXPECT_EQ(record.m_strCity, L"未定义");
    EXPECT_EQ(record.m_strProvince, L"未定义");
    EXPECT_EQ(record.m_strLongitude, L"0.0");
    EXPECT_EQ(record.m_strLatitude, L"0.0");
    EXPECT_EQ(record.m_strComment, L"");
}

TEST(OrvoZoneRecord, ResetChangesNothing) {
    OrvoZoneRecord record = Named(L"浙江", L"杭州");
    record.m_strLongitude = L"120.15";
    record.m_strLatitude = L"30.28";
    record.m_strComment = L"西湖";
    record.Reset();
    EXPECT_EQ(record.m_strCity, L"杭州");
    EXPECT_EQ(record.m_strProvince, L"浙江");
    EXPECT_EQ(record.m_strLongitude, L"120.15");
    EXPECT_EQ(record.m_strLatitude, L"30.28");
    EXPECT_EQ(record.m_strComment, L"西湖");
}

TEST(OrvoZoneRecord, CopiesAllFiveFields) {
    OrvoZoneRecord record = Named(L"浙江", L"杭州");
    record.m_strLongitude = L" 120.15";
    record.m_strLatitude = L"30.280";
    record.m_strComment = L"西湖";
    OrvoZoneRecord assigned;
    EXPECT_EQ(&(assigned = record), &assigned);
    for (const OrvoZoneRecord& copy : {OrvoZoneRecord(record), assigned}) {
        EXPECT_EQ(copy.m_strCity, L"杭州");
        EXPECT_EQ(copy.m_strProvince, L"浙江");
        EXPECT_EQ(copy.m_strLongitude, L" 120.15");
        EXPECT_EQ(copy.m_strLatitude, L"30.280");
        EXPECT_EQ(copy.m_strComment, L"西湖");
    }
}

TEST(OrvoZoneRecord, IsTheSameByCityNameAlone) {
    EXPECT_TRUE(Named(L"吉林", L"吉林") == Named(L"别处", L"吉林"));
    EXPECT_FALSE(Named(L"吉林", L"吉林") != Named(L"别处", L"吉林"));
    EXPECT_TRUE(Named(L"a", L"X") != Named(L"a", L"x"));
    EXPECT_FALSE(Named(L"a", L"X") == Named(L"a", L"x"));
}

TEST(OrvoZoneRecord, HasNoOrder) {
    const OrvoZoneRecord first = Named(L"a", L"a");
    const OrvoZoneRecord second = Named(L"b", L"b");
    EXPECT_FALSE(first < second);
    EXPECT_FALSE(second < first);
    EXPECT_FALSE(first > second);
    EXPECT_FALSE(second > first);
    QcList<OrvoZoneRecord> list(0);
    for (const wchar_t* city : {L"c", L"a", L"b"})
        list.Append(Named(L"p", city));
    list.Sort(true);
    EXPECT_EQ(list.GetAt(0)->m_strCity, L"c");
    EXPECT_EQ(list.GetAt(1)->m_strCity, L"a");
    EXPECT_EQ(list.GetAt(2)->m_strCity, L"b");
}

TEST(OrvoZoneRecord, ParsesPositionsLeniently) {
    EXPECT_EQ(At(L" 116.4000000000", L"    39.9000000000").GetTotalLong(), 116.4);
    EXPECT_EQ(At(L" 116.4000000000", L"    39.9000000000").GetTotalLat(), 39.9);
    EXPECT_EQ(At(L"116.4E", L"north").GetTotalLong(), 116.4);
    EXPECT_EQ(At(L"116.4E", L"north").GetTotalLat(), 0.0);
    EXPECT_EQ(At(L"999", L"-999").GetTotalLong(), 999.0);
    EXPECT_EQ(At(L"999", L"-999").GetTotalLat(), -999.0);
}

TEST(OrvoZoneRecord, SplitsWithoutCarryingMinutes) {
    struct Row {
        const wchar_t* text;
        int degree;
        int minute;
    };
    const Row rows[] = {
        {L"39.9", 39, 54},     {L"39.9999", 39, 60},   {L"-0.5", 0, -30},  {L"-39.9999", -39, -60},
        {L"0", 0, 0},          {L"121.4667", 121, 28}, {L"10.125", 10, 8},  // 7.5 minutes round away from zero
        {L"-10.125", -10, -8}, {L"90", 90, 0},         {L"", 0, 0},        {L"10.1249", 10, 7},
    };
    for (const Row& row : rows) {
        int degree = 999;
        int minute = 999;
        At(row.text, L"77").GetLongitude(degree, minute);
        EXPECT_EQ(degree, row.degree) << ToUtf8(row.text);
        EXPECT_EQ(minute, row.minute) << ToUtf8(row.text);
        At(L"77", row.text).GetLatitude(degree, minute);
        EXPECT_EQ(degree, row.degree) << ToUtf8(row.text);
        EXPECT_EQ(minute, row.minute) << ToUtf8(row.text);
    }
}

TEST(OrvoZoneRecord, SaturatesPositionsBeyondInt) {
    int degree = 0;
    int minute = 0;
    At(L"1e300", L"-1e999").GetLongitude(degree, minute);
    EXPECT_EQ(degree, INT_MAX);
    EXPECT_EQ(minute, INT_MAX);
    At(L"1e300", L"-1e999").GetLatitude(degree, minute);
    EXPECT_EQ(degree, INT_MIN);
    EXPECT_EQ(minute, INT_MIN);
}

TEST(OrvoZoneRecord, FormatsDegreesAndMinutes) {
    CString text;
    OrvoZoneRecord().FormatLongitude(text);
    EXPECT_EQ(text, L"  0度 0分");
    At(L"121.46", L"39.9").FormatLatitude(text);
    EXPECT_EQ(text, L" 39度54分");
    At(L"121.46", L"39.9").FormatLongitude(text);
    EXPECT_EQ(text, L"121度28分");
    At(L"-0.5", L"-33.9").FormatLongitude(text);
    EXPECT_EQ(text, L"  0度-30分");
    At(L"-0.5", L"-33.9").FormatLatitude(text);
    EXPECT_EQ(text, L"-33度-54分");
}

TEST(OrvoZoneRecord, DoesNotDependOnTheLocale) {
    const GermanLocale german;
    CString text;
    At(L"121.5", L"39.9").FormatLatitude(text);
    EXPECT_EQ(text, L" 39度54分");
    EXPECT_EQ(At(L"121.5", L"39.9").GetTotalLong(), 121.5);
}

TEST_F(ZoneTree, TakesARecordAsProvinceAndCity) {
    OrvoZoneRecord record = Named(L"浙江", L"杭州");
    record.m_strLongitude = L"120.15";
    record.m_strLatitude = L" 30.28";
    record.m_strComment = L"西湖";
    EXPECT_TRUE(record.SaveToXml());

    ASSERT_EQ(g_dictSunZone.GetCount(), 1);
    QcDtDictionary* province = g_dictSunZone.FindDict(L"浙江");
    ASSERT_NE(province, nullptr);
    EXPECT_EQ(province->GetTag(), L"浙江");
    EXPECT_EQ(province->GetName(), L"浙江");
    EXPECT_EQ(province->GetAttributeValue(L"type"), L"PROVINCE");
    ASSERT_EQ(province->GetCount(), 1);
    const QcDtDictItem* city = province->GetItem(0);
    EXPECT_EQ(city->GetType(), 5);
    EXPECT_EQ(city->GetTag(), L"杭州");
    EXPECT_EQ(city->GetName(), L"杭州");
    ASSERT_EQ(city->GetAttributeCount(), 3);
    EXPECT_EQ(city->GetAttributeName(0), L"type");
    EXPECT_EQ(city->GetAttributeText(0), L"CITY");
    EXPECT_EQ(city->GetAttributeName(1), L"latitude");
    EXPECT_EQ(city->GetAttributeText(1), L" 30.28");
    EXPECT_EQ(city->GetAttributeName(2), L"longitude");
    EXPECT_EQ(city->GetAttributeText(2), L"120.15");
    EXPECT_EQ(city->GetStringValue(), L"西湖");
}

TEST_F(ZoneTree, UpdatesACityInPlaceAndKeepsItsOtherAttributes) {
    QcDtDictItem* city = AddCity(L"浙江", L"杭州");
    city->SetAttributeValue(L"comment", L"of the editor");
    city->SetAttributeValue(L"type", L"TOWN");
    city->SetAttributeValue(L"longitude", L"1");
    city->SetStringValue(L"old");
    OrvoZoneRecord record = Named(L"浙江", L"杭州");
    record.m_strLongitude = L"120.15";
    record.m_strComment = L"new";
    EXPECT_TRUE(record.SaveToXml());
    EXPECT_TRUE(record.SaveToXml());
    EXPECT_EQ(g_dictSunZone.GetCount(), 1);
    EXPECT_EQ(g_dictSunZone.FindDict(L"浙江")->GetCount(), 1);
    EXPECT_EQ(city->GetAttributeValue(L"comment"), L"of the editor");
    EXPECT_EQ(city->GetAttributeValue(L"type"), L"CITY");
    EXPECT_EQ(city->GetAttributeValue(L"longitude"), L"120.15");
    EXPECT_EQ(city->GetAttributeValue(L"latitude"), L"0.0");
    EXPECT_EQ(city->GetStringValue(), L"new");
}

TEST_F(ZoneTree, RefusesARecordWhoseNameAnotherKindOfItemBears) {
    g_dictSunZone.FindOrAddItem(L"浙江", 5)->SetStringValue(L"a text");
    EXPECT_FALSE(Named(L"浙江", L"杭州").SaveToXml());
    EXPECT_EQ(g_dictSunZone.GetCount(), 1);
    EXPECT_EQ(g_dictSunZone.GetItem(0)->GetStringValue(), L"a text");

    g_dictSunZone.FindOrAddDict(L"江苏")->FindOrAddDict(L"苏州")->SetAttributeValue(L"type", L"PROVINCE");
    EXPECT_FALSE(Named(L"江苏", L"苏州").SaveToXml());
    EXPECT_EQ(g_dictSunZone.FindDict(L"江苏")->FindDict(L"苏州")->GetAttributeValue(L"type"), L"PROVINCE");
}

TEST_F(ZoneTree, GivesARecordBackAsItStands) {
    QcDtDictItem* city = AddCity(L"浙江", L"杭州");
    city->SetAttributeValue(L"longitude", L"  120.1500000000");
    city->SetAttributeValue(L"latitude", L"not a number");
    city->SetAttributeValue(L"comment", L"the attribute is not read");
    city->SetStringValue(L"西湖");
    OrvoZoneRecord record;
    EXPECT_TRUE(record.ReadFromXml(L"浙江", L"杭州"));
    EXPECT_EQ(record.m_strProvince, L"浙江");
    EXPECT_EQ(record.m_strCity, L"杭州");
    EXPECT_EQ(record.m_strLongitude, L"  120.1500000000");
    EXPECT_EQ(record.GetTotalLong(), 120.15);
    EXPECT_EQ(record.m_strLatitude, L"not a number");
    EXPECT_EQ(record.GetTotalLat(), 0.0);
    EXPECT_EQ(record.m_strComment, L"西湖");
}

TEST_F(ZoneTree, ReadsMissingAttributesAsEmptyTexts) {
    AddCity(L"浙江", L"杭州");
    OrvoZoneRecord record = At(L"1", L"2");
    EXPECT_TRUE(record.ReadFromXml(L"浙江", L"杭州"));
    EXPECT_EQ(record.m_strLongitude, L"");
    EXPECT_EQ(record.m_strLatitude, L"");
}

TEST_F(ZoneTree, ReadsUnderTheRecordsOwnNames) {
    AddCity(L"浙江", L"杭州")->SetAttributeValue(L"longitude", L"120.15");
    OrvoZoneRecord record = Named(L"浙江", L"杭州");
    EXPECT_TRUE(record.ReadFromXml(record.m_strProvince, record.m_strCity));
    EXPECT_EQ(record.m_strProvince, L"浙江");
    EXPECT_EQ(record.m_strCity, L"杭州");
    EXPECT_EQ(record.m_strLongitude, L"120.15");
}

TEST_F(ZoneTree, LeavesTheRecordAloneWhenThePlaceIsUnknown) {
    AddCity(L"Zhejiang", L"Hangzhou")->SetAttributeValue(L"longitude", L"120.15");
    g_dictSunZone.FindOrAddItem(L"a text", 5);
    OrvoZoneRecord record = Named(L"p", L"c");
    record.m_strLongitude = L"7";
    EXPECT_FALSE(record.ReadFromXml(L"Jiangsu", L"Hangzhou"));
    EXPECT_FALSE(record.ReadFromXml(L"Zhejiang", L"Ningbo"));
    EXPECT_FALSE(record.ReadFromXml(L"zhejiang", L"Hangzhou"));
    EXPECT_FALSE(record.ReadFromXml(L"Zhejiang", L"hangzhou"));
    EXPECT_FALSE(record.ReadFromXml(L"a text", L"Hangzhou"));
    EXPECT_EQ(record.m_strProvince, L"p");
    EXPECT_EQ(record.m_strCity, L"c");
    EXPECT_EQ(record.m_strLongitude, L"7");
}

TEST_F(ZoneTree, SearchesACityInItsProvinceOnly) {
    AddCity(L"吉林", L"长春")->SetAttributeValue(L"longitude", L"125");
    AddCity(L"别处", L"吉林")->SetAttributeValue(L"longitude", L"1");
    AddCity(L"吉林", L"吉林")->SetAttributeValue(L"longitude", L"126");
    OrvoZoneRecord record;
    EXPECT_TRUE(record.ReadFromXml(L"吉林", L"吉林"));
    EXPECT_EQ(record.m_strLongitude, L"126");
    EXPECT_FALSE(record.ReadFromXml(L"别处", L"长春"));
}

TEST_F(ZoneTree, TellsAPositionByNames) {
    QcDtDictItem* city = AddCity(L"浙江", L"杭州");
    city->SetAttributeValue(L"longitude", L" 120.15");
    city->SetAttributeValue(L"latitude", L"30.28");
    CString longitude(L"lo");
    CString latitude(L"la");
    EXPECT_EQ(SunZoneInfo(L"江苏", L"杭州", longitude, latitude), 0);
    EXPECT_EQ(SunZoneInfo(L"浙江", L"宁波", longitude, latitude), 0);
    EXPECT_EQ(longitude, L"lo");
    EXPECT_EQ(latitude, L"la");
    EXPECT_EQ(SunZoneInfo(L"浙江", L"杭州", longitude, latitude), 1);
    EXPECT_EQ(longitude, L" 120.15");
    EXPECT_EQ(latitude, L"30.28");
}

TEST_F(ZoneTree, TellsAPositionBehindATextOfTheProvincesName) {
    g_dictSunZone.FindOrAddItem(L"浙江", 5);
    auto* province = new QcDtDictionary(L"浙江");
    ASSERT_TRUE(g_dictSunZone.AppendItem(province));
    province->FindOrAddItem(L"杭州", 5)->SetAttributeValue(L"longitude", L"120");
    CString longitude;
    CString latitude;
    EXPECT_EQ(SunZoneInfo(L"浙江", L"杭州", longitude, latitude), 1);
    EXPECT_EQ(longitude, L"120");
    // A record looks at the first item of that name, whatever it is.
    EXPECT_FALSE(OrvoZoneRecord().ReadFromXml(L"浙江", L"杭州"));
}
