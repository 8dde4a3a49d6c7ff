// The settings as a value: read, laid over, and told in one line.
#include "facts/Settings.h"

#include "facts/FactsStage.h"

namespace {

class SettingsValue : public FactsStage {
protected:
    SettingsValue() {
        Read(g_dictSunZone,
             "<ORVO_ZONEDATA><甲省 type=\"PROVINCE\"><甲城 type=\"CITY\" longitude=\"100.25\" "
             "latitude=\"-20.5\"/></甲省>"
             "<乙省 type=\"PROVINCE\"><乙城 type=\"CITY\" longitude=\"110\" latitude=\"30\"/></乙省></ORVO_ZONEDATA>");
        g_SunDataSet.m_strCurCity = L"甲城";
        g_SunDataSet.m_date = OrvoDate(2025, 3, 1);
        OrvoStdSet standard;
        standard.m_strName = L"一号";
        standard.m_date = OrvoDate(2024, 12, 21);
        g_SunDataSet.NewStd(standard);
    }

    static Standard Other() {
        Standard other;
        other.name = L"二号";
        other.day = {2026, 1, 20};
        other.start = 8.5;
        other.end = 16.0;
        other.step = 5.0;
        return other;
    }
};

}  // namespace

TEST_F(SettingsValue, HasWhatTheModuleHasAndThePlaceLocated) {
    const Settings settings = CurrentSettings();
    EXPECT_EQ(settings.placeName, L"甲城");
    ASSERT_TRUE(settings.place);
    EXPECT_EQ(settings.place->province, L"甲省");
    EXPECT_EQ(settings.place->longitude, 100.25);
    EXPECT_EQ(settings.place->latitude, -20.5);
    EXPECT_EQ(settings.ownDay, (CalendarDay{2025, 3, 1}));
    EXPECT_EQ(settings.Day(), (CalendarDay{2024, 12, 21})) << "the standard's";
    EXPECT_EQ(settings.start.hour, 9);
    EXPECT_EQ(settings.end.hour, 15);
    EXPECT_EQ(settings.step, 10);
    EXPECT_EQ(settings.standard.value().name, L"一号");
    EXPECT_EQ(g_SunDataSet.m_strLongitude, OrvoZoneRecord().m_strLongitude) << "reading writes nothing";
}

TEST_F(SettingsValue, HasNoPlaceWhereNobodyKnowsIt) {
    g_SunDataSet.m_strCurCity = L"丙城";
    EXPECT_FALSE(CurrentSettings().place);
    EXPECT_EQ(CurrentSettings().placeName, L"丙城");
}

TEST_F(SettingsValue, HasItsOwnDayWithoutAStandard) {
    g_SunDataSet.m_nCurStd = 7;
    EXPECT_FALSE(CurrentSettings().standard);
    EXPECT_EQ(CurrentSettings().Day(), (CalendarDay{2025, 3, 1}));
}

TEST_F(SettingsValue, TakesOverWhatIsAskedAndLeavesTheModuleAlone) {
    Settings settings = CurrentSettings();
    settings.UseStandard(Other());
    EXPECT_EQ(settings.Day(), (CalendarDay{2026, 1, 20}));
    EXPECT_EQ(settings.ownDay, (CalendarDay{2026, 1, 20}));
    EXPECT_EQ(settings.start.hour, 8);
    EXPECT_EQ(settings.start.minute, 30);
    EXPECT_EQ(settings.end.hour, 16);
    EXPECT_EQ(settings.step, 5);
    settings.UseDay({2028, 2, 29});
    EXPECT_EQ(settings.Day(), (CalendarDay{2028, 2, 29}));
    EXPECT_EQ(settings.ownDay, (CalendarDay{2028, 2, 29}));
    settings.UsePlace({L"乙省", L"乙城", 110.0, 30.0});
    EXPECT_EQ(settings.placeName, L"乙城");
    EXPECT_EQ(settings.place.value().latitude, 30.0);
    EXPECT_EQ(CurrentSettings().placeName, L"甲城");
    EXPECT_EQ(CurrentSettings().Day(), (CalendarDay{2024, 12, 21}));
}

TEST_F(SettingsValue, TakesOfAStandardOnlyTheSpanAndStepThatMakeSense) {
    Settings settings = CurrentSettings();
    Standard other = Other();
    other.end = 8.5;
    other.step = 61.0;
    settings.UseStandard(other);
    EXPECT_EQ(settings.start.hour, 9);
    EXPECT_EQ(settings.end.hour, 15);
    EXPECT_EQ(settings.step, 10);
}

TEST_F(SettingsValue, IsToldInTheModulesOwnWords) {
    EXPECT_EQ(NoteOf(CurrentSettings()), g_SunDataSet.GetNoteString());
    g_SunDataSet.m_date = OrvoDate(2024, 12, 21);  // a term's day
    EXPECT_EQ(NoteOf(CurrentSettings()), g_SunDataSet.GetNoteString());
    EXPECT_GE(g_SunDataSet.GetNoteString().Find(L"(冬至)"), 0);
    g_SunDataSet.m_nCurStd = 7;
    EXPECT_EQ(NoteOf(CurrentSettings()), g_SunDataSet.GetNoteString());
    g_SunDataSet.m_nStartHour = 2000000000;  // as a file may have it
    g_SunDataSet.m_nEndMinute = -7;
    EXPECT_EQ(NoteOf(CurrentSettings()), g_SunDataSet.GetNoteString());
}

TEST_F(SettingsValue, IsToldAsItWasAsked) {
    Settings settings = CurrentSettings();
    settings.UseStandard(Other());
    settings.UsePlace({L"乙省", L"乙城", 110.0, 30.0});
    EXPECT_EQ(NoteOf(settings), L"分析标准:二号;地区:乙城;时间:2026年 1月20日(大寒)08:30～16:00,计算精度:5分钟");
}

TEST(TheValueOfAStandard, HasEveryField) {
    OrvoStdSet standard;
    standard.m_strName = L"甲";
    standard.m_date = OrvoDate(2023, 4, 5);
    standard.m_dgStartTime = 8.25;
    standard.m_dgEndTime = 15.75;
    standard.m_dSpace = 2.5;
    standard.m_nFullWin = 11;
    standard.m_nLimitWidth = 12;
    standard.m_dMinWidth = 13.5;
    standard.m_dMaxWidth = 14.5;
    standard.m_nMaxContinue = 15;
    standard.m_nBJTime = 16;
    standard.m_nAllMaxContinueTime = 17;
    standard.m_nMinContinueTime = 18;
    standard.m_nValidSunType = 19;
    standard.m_nMinValidAngle = 20;
    standard.m_nMinValidTime = 21;
    standard.m_nTotalTimeType = 22;
    standard.m_nMinMaxValidTime = 23;
    standard.m_colors.GetAt(1)[0]->m_dValue = 1.5;
    standard.m_colors.GetAt(1)[0]->m_nColor = 77;
    standard.m_colors.m_listType.Append(6);
    const Standard value = StandardOf(standard);
    EXPECT_EQ(value.name, L"甲");
    EXPECT_EQ(value.day, (CalendarDay{2023, 4, 5}));
    EXPECT_EQ(value.start, 8.25);
    EXPECT_EQ(value.end, 15.75);
    EXPECT_EQ(value.step, 2.5);
    EXPECT_EQ(value.fullWindow, 11);
    EXPECT_EQ(value.limitWidth, 12);
    EXPECT_EQ(value.minWidth, 13.5);
    EXPECT_EQ(value.maxWidth, 14.5);
    EXPECT_EQ(value.maxContinue, 15);
    EXPECT_EQ(value.beijingTime, 16);
    EXPECT_EQ(value.allMaxContinueTime, 17);
    EXPECT_EQ(value.minContinueTime, 18);
    EXPECT_EQ(value.validSunType, 19);
    EXPECT_EQ(value.minValidAngle, 20);
    EXPECT_EQ(value.minValidTime, 21);
    EXPECT_EQ(value.totalTimeType, 22);
    EXPECT_EQ(value.minMaxValidTime, 23);
    ASSERT_EQ(value.timeColors.size(), 8U);
    EXPECT_EQ(value.timeColors[1].hours, 1.5);
    EXPECT_EQ(value.timeColors[1].color, 77);
    EXPECT_EQ(value.timeColors[7].hours, 7.0);
    EXPECT_EQ(value.typeColors, (std::vector<int>{1, 2, 3, 4, 5, 6}));
}

TEST(TheValueOfAStandard, KnowsWhichSpansAndStepsMakeSense) {
    Standard standard;
    EXPECT_FALSE(standard.HasSpan()) << "not set";
    standard.end = 24.0;
    EXPECT_TRUE(standard.HasSpan());
    standard.end = 24.1;
    EXPECT_FALSE(standard.HasSpan());
    standard.start = -0.1;
    standard.end = 12.0;
    EXPECT_FALSE(standard.HasSpan());
    for (const auto& [step, makesSense] : {std::pair(0.99, false), {1.0, true}, {60.0, true}, {60.5, false}}) {
        standard.step = step;
        EXPECT_EQ(standard.HasStep(), makesSense) << step;
    }
}
