// Single values of the settings, in all their copies, and choosing a standard.
#include "facts/SettingsEdit.h"

#include <limits>

#include "facts/FactsStage.h"
#include "facts/Place.h"
#include "facts/Settings.h"
#include "facts/StandardSearch.h"

namespace {

class SettingsEdit : public FactsStage {
protected:
    SettingsEdit() {
        for (const wchar_t* name : {L"甲", L"乙"}) {
            OrvoStdSet standard;
            standard.m_strName = name;
            standard.m_date = OrvoDate(2024, 12, 21);
            standard.m_dgStartTime = 8.0;
            standard.m_dgEndTime = 16.0;
            standard.m_dSpace = 3.0;
            m_settings.NewStd(standard);
        }
        m_settings.m_nCurStd = 1;
    }

    // Whether a standard is as it was made.
    static void ExpectUntouched(const OrvoStdSet& standard) {
        EXPECT_EQ(standard.m_date.GetDateXmlString(), L"2024-12-21");
        EXPECT_EQ(standard.m_dgStartTime.getDegree(), 8.0);
        EXPECT_EQ(standard.m_dgEndTime.getDegree(), 16.0);
        EXPECT_EQ(standard.m_dSpace, 3.0);
    }

    OrvoStdSet& Other() { return m_settings.GetStd(0); }
    OrvoStdSet& Current() { return m_settings.GetStd(1); }

    OrvoDataSet m_settings;
};

// A table of terms whose first row somebody has changed.
double FirstDeclination(OrvoDate& date) {
    return date.GetTerm(0)->m_dgLat.getDegree();
}

}  // namespace

TEST_F(SettingsEdit, PutsAPlaceWithTheDatabasesOwnTexts) {
    Read(g_dictSunZone,
         "<ORVO_ZONEDATA><甲省 type=\"PROVINCE\"><甲城 type=\"CITY\" longitude=\"121.4700\" "
         "latitude=\"+31\">海边</甲城></甲省></ORVO_ZONEDATA>");
    SetPlace(m_settings, {L"甲省", L"甲城", 121.47, 31.0});
    EXPECT_EQ(m_settings.m_strCurCity, L"甲城");
    EXPECT_EQ(m_settings.m_strProvince, L"甲省");
    EXPECT_EQ(m_settings.m_strCity, L"甲城");
    EXPECT_EQ(m_settings.m_strLongitude, L"121.4700");
    EXPECT_EQ(m_settings.m_strLatitude, L"+31");
    EXPECT_EQ(m_settings.m_strComment, L"海边");
    SetPlace(m_settings, {L"丙省", L"丙城", 100.25, -20.5});
    EXPECT_EQ(m_settings.m_strCurCity, L"丙城");
    EXPECT_EQ(m_settings.m_strLongitude, L"100.25");
    EXPECT_EQ(m_settings.m_strLatitude, L"-20.5");
    EXPECT_EQ(m_settings.m_strComment, L"");
}

TEST_F(SettingsEdit, PutsADayIntoTheSettingsAndTheCurrentStandard) {
    SetDay(m_settings, {2026, 1, 20});
    EXPECT_EQ(m_settings.m_date.GetDateXmlString(), L"2026- 1-20");
    EXPECT_EQ(Current().m_date.GetDateXmlString(), L"2026- 1-20");
    ExpectUntouched(Other());
    SetOwnDay(m_settings, {2027, 2, 3});
    EXPECT_EQ(m_settings.m_date.GetDateXmlString(), L"2027- 2- 3");
    EXPECT_EQ(Current().m_date.GetDateXmlString(), L"2026- 1-20");
}

TEST_F(SettingsEdit, KeepsTheTermsOfADayThatItChanges) {
    m_settings.m_date.GetTerm(0)->m_dgLat = -10.0;
    Current().m_date.GetTerm(0)->m_dgLat = -11.0;
    const long rows = m_settings.m_date.m_listTerm.GetLength();
    SetDay(m_settings, {2024, 1, 20});  // both stay in a leap year
    SetDay(m_settings, {2028, 12, 21});
    EXPECT_EQ(m_settings.m_date.m_listTerm.GetLength(), rows) << "none are piled up";
    m_settings.m_date.SetYear(OrvoDate().GetYear());
    EXPECT_EQ(FirstDeclination(m_settings.m_date), -10.0);
    EXPECT_EQ(FirstDeclination(Current().m_date), -11.0);
}

TEST_F(SettingsEdit, PutsASpanAsAnglesAndInWholeNumbers) {
    SetStart(m_settings, 7 * 60 + 5);
    SetEnd(m_settings, 23 * 60 + 45);
    EXPECT_EQ(m_settings.m_dgStartTime.getDegree(), 7.0 + 5.0 / 60.0);
    EXPECT_EQ(m_settings.m_nStartHour, 7);
    EXPECT_EQ(m_settings.m_nStartMinute, 5);
    EXPECT_EQ(m_settings.m_dgEndTime.getDegree(), 23.75);
    EXPECT_EQ(m_settings.m_nEndHour, 23);
    EXPECT_EQ(m_settings.m_nEndMinute, 45);
    EXPECT_EQ(Current().m_dgStartTime.getDegree(), 7.0 + 5.0 / 60.0);
    EXPECT_EQ(Current().m_dgEndTime.getDegree(), 23.75);
    ExpectUntouched(Other());
    int hour = 0;
    int minute = 0;
    int second = 0;
    Current().m_dgStartTime.getDegree(hour, minute, second);
    EXPECT_EQ(hour * 3600 + minute * 60 + second, 7 * 3600 + 5 * 60) << "the angle's own split";
    SetOwnStart(m_settings, 10 * 60 + 59);
    SetOwnEnd(m_settings, 24 * 60);
    EXPECT_EQ(m_settings.m_nStartHour * 60 + m_settings.m_nStartMinute, 10 * 60 + 59);
    EXPECT_EQ(m_settings.m_dgStartTime.getDegree(), 10.0 + 59.0 / 60.0);
    EXPECT_EQ(m_settings.m_nEndHour * 60 + m_settings.m_nEndMinute, 24 * 60);
    EXPECT_EQ(m_settings.m_dgEndTime.getDegree(), 24.0);
    EXPECT_EQ(Current().m_dgStartTime.getDegree(), 7.0 + 5.0 / 60.0);
    EXPECT_EQ(Current().m_dgEndTime.getDegree(), 23.75);
}

TEST_F(SettingsEdit, PutsAStepAndItsWholeNumber) {
    SetStep(m_settings, 7);
    EXPECT_EQ(m_settings.m_dSpace, 7.0);
    EXPECT_EQ(m_settings.m_nSpace, 7);
    EXPECT_EQ(Current().m_dSpace, 7.0);
    ExpectUntouched(Other());
    SetOwnStep(m_settings, 9);
    EXPECT_EQ(m_settings.m_dSpace, 9.0);
    EXPECT_EQ(m_settings.m_nSpace, 9);
    EXPECT_EQ(Current().m_dSpace, 7.0);
}

TEST_F(SettingsEdit, ChangesTheSettingsAloneWhereThereIsNoCurrentStandard) {
    m_settings.m_nCurStd = 2;
    SetDay(m_settings, {2026, 1, 20});
    SetStart(m_settings, 60);
    SetEnd(m_settings, 120);
    SetStep(m_settings, 5);
    EXPECT_EQ(m_settings.m_date.GetDateXmlString(), L"2026- 1-20");
    EXPECT_EQ(m_settings.m_nStartHour, 1);
    EXPECT_EQ(m_settings.m_nEndHour, 2);
    EXPECT_EQ(m_settings.m_nSpace, 5);
    ExpectUntouched(Other());
    ExpectUntouched(Current());
}

TEST_F(SettingsEdit, TakesOverWhatTheChosenOneHas) {
    OrvoStdSet& standard = Current();
    standard.m_date = OrvoDate(2026, 1, 20);
    standard.m_dgStartTime = 8.0 + 20.0 / 60.0;
    standard.m_dgEndTime = 24.0;
    standard.m_dSpace = 2.75;
    m_settings.m_nCurStd = 0;
    UseStandard(m_settings, 1);
    EXPECT_EQ(m_settings.m_nCurStd, 1);
    const Settings settings = ReadSettings(m_settings);
    EXPECT_EQ(settings.ownDay, (CalendarDay{2026, 1, 20}));
    EXPECT_EQ(settings.start.hour, 8);
    EXPECT_EQ(settings.start.minute, 20);
    EXPECT_EQ(settings.end.hour, 24);
    EXPECT_EQ(settings.end.minute, 0);
    EXPECT_EQ(settings.step, 2) << "whole minutes";
    EXPECT_EQ(m_settings.m_dSpace, 2.0);
    EXPECT_EQ(m_settings.m_dgStartTime.getDegree(), OrvoDegree(8, 20, 0).getDegree());
    EXPECT_EQ(m_settings.m_dgEndTime.getDegree(), 24.0);
    EXPECT_EQ(standard.m_dSpace, 2.75) << "the standard itself stays";
}

TEST_F(SettingsEdit, TakesOverNoSpanAndNoStepThatMakeNoSense) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const std::pair<double, double> spans[] = {{0.0, 0.0}, {9.0, 9.0},   {15.0, 9.0}, {-1.0, 9.0},       {9.0, 24.5},
                                               {nan, 9.0}, {9.0, 1e300}, {9.0, nan},  {-infinity, 1e300}};
    for (const auto& [start, end] : spans) {
        for (const double step : {nan, infinity, -infinity, 1e300, -1e300, -5.0, 0.0, 0.99, 60.01}) {
            OrvoStdSet& standard = Other();
            standard.m_dgStartTime = start;
            standard.m_dgEndTime = end;
            standard.m_dSpace = step;
            UseStandard(m_settings, 0);
            const Settings settings = ReadSettings(m_settings);
            EXPECT_EQ(settings.start.hour, 9) << start << " " << end;
            EXPECT_EQ(settings.end.hour, 15) << start << " " << end;
            EXPECT_EQ(settings.step, 10) << step;
            EXPECT_EQ(m_settings.m_dSpace, 10.0) << step;
        }
    }
}

TEST_F(SettingsEdit, LeavesTheOwnFieldsAloneWhereThereIsNoSuchStandard) {
    m_settings.m_date = OrvoDate(2025, 3, 1);
    m_settings.m_dSpace = 4.0;
    m_settings.m_nSpace = 4;
    for (const int index : {-1, 2, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        UseStandard(m_settings, index);
        EXPECT_EQ(m_settings.m_nCurStd, index);
        EXPECT_FALSE(HasCurrentStandard(m_settings));
        EXPECT_EQ(ReadSettings(m_settings).Day(), (CalendarDay{2025, 3, 1}));
        EXPECT_EQ(m_settings.m_dSpace, 4.0);
    }
}
