// Which texts of a city's record are shown in the user's language.
#include <gtest/gtest.h>

#include "support/TableSwitch.h"
#include "zone/OrvoZoneRecord.h"

TEST(ZoneTexts, TranslateTheNamesOfAnUndefinedPlaceAndNotItsPosition) {
    const TableSwitch language{{L"未定义", L"undefined"}, {L"0.0", L"translated"}, {L"", L"translated"}};
    const OrvoZoneRecord record;
    EXPECT_EQ(record.m_strCity, L"undefined");
    EXPECT_EQ(record.m_strProvince, L"undefined");
    EXPECT_EQ(record.m_strLongitude, L"0.0");
    EXPECT_EQ(record.m_strLatitude, L"0.0");
    EXPECT_EQ(record.m_strComment, L"");
}

TEST(ZoneTexts, TranslateTheFormatOfAPosition) {
    const TableSwitch language{{L"%3d度%2d分", L"%ddeg %dmin"}};
    OrvoZoneRecord record;
    record.m_strLongitude = L"39.9";
    CString text;
    record.FormatLongitude(text);
    EXPECT_EQ(text, L"39deg 54min");
    record.FormatLatitude(text);
    EXPECT_EQ(text, L"0deg 0min");
}
