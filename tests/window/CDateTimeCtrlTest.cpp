// The date picker: which dates it takes, what can be typed, and what the parent hears of.
#include "platform/window/CDateTimeCtrl.h"

#include <gtest/gtest.h>

#include <QCalendarWidget>
#include <QDateEdit>
#include <QLocale>
#include <string>
#include <tuple>

#include "platform/base/Language.h"
#include "support/Environment.h"
#include "window/Notifications.h"

namespace {

constexpr const char* kItems =
    "EDITTEXT 9, 7, 30, 40, 14\n"
    "CONTROL \"\", 10, \"SysDateTimePick32\", DTS_SHORTDATEFORMAT | WS_TABSTOP, 7, 7, 80, 14\n";

struct DatePickers : testing::Test {
    DialogForTests dialog{kItems};
    Notifications heard{dialog};
    CDateTimeCtrl picker;
    QDateEdit* widget = nullptr;

    void Run(const std::function<void()>& work) {
        dialog.m_onInit = [this] { picker.SubclassDlgItem(10, &dialog); };
        dialog.Run([&](const ModalWindow& window) {
            widget = Control<QDateEdit>(window, 10);
            work();
        });
    }
    BOOL Set(int year, int month, int day, int hour = 0, int minute = 0) {
        const SYSTEMTIME time = {static_cast<WORD>(year), static_cast<WORD>(month),  0, static_cast<WORD>(day),
                                 static_cast<WORD>(hour), static_cast<WORD>(minute), 0, 0};
        return picker.SetTime(&time);
    }
    std::string Date() const {
        SYSTEMTIME time = {};
        EXPECT_EQ(picker.GetTime(&time), GDT_VALID);
        return std::to_string(time.wYear) + "-" + std::to_string(time.wMonth) + "-" + std::to_string(time.wDay);
    }
    void Type(const char* digits) {
        widget->setFocus();
        widget->setSelectedSection(QDateEdit::YearSection);
        heard.Take();
        QTest::keyClicks(widget, digits);
    }
    void Leave() { WidgetFor(dialog.GetDlgItem(9)->m_hWnd)->setFocus(); }
};

TEST_F(DatePickers, TakeDatesThatThereAre) {
    Run([&] {
        for (const auto& [year, month, day] :
             {std::tuple(1601, 1, 1), std::tuple(9999, 12, 31), std::tuple(2024, 2, 29), std::tuple(2000, 2, 29),
              std::tuple(1752, 9, 10)}) {
            EXPECT_TRUE(Set(year, month, day));
            EXPECT_EQ(Date(), std::to_string(year) + "-" + std::to_string(month) + "-" + std::to_string(day));
        }
        EXPECT_TRUE(Set(2025, 12, 21));
        for (const auto& [year, month, day] :
             {std::tuple(1600, 12, 31), std::tuple(0, 1, 1), std::tuple(10000, 1, 1), std::tuple(65535, 1, 1),
              std::tuple(2025, 2, 30), std::tuple(2025, 2, 29), std::tuple(1900, 2, 29), std::tuple(2025, 0, 1),
              std::tuple(2025, 13, 1), std::tuple(2025, 4, 31), std::tuple(2025, 1, 0)})
            EXPECT_FALSE(Set(year, month, day)) << year << "-" << month << "-" << day;
        EXPECT_FALSE(Set(2025, 1, 1, 24));
        EXPECT_FALSE(Set(2025, 1, 1, 0, 60));
        EXPECT_FALSE(picker.SetTime(nullptr));
        EXPECT_EQ(Date(), "2025-12-21") << "nothing is changed";
        EXPECT_EQ(widget->text(), "2025-12-21");
        EXPECT_TRUE(heard.TakeCodes(10).empty());
    });
}

TEST(DatePickerLanguage, IsTheInterfacesAndNotTheMachines) {
    const QLocale machine;
    QLocale::setDefault(QLocale(QLocale::German));
    const CString before = g_strCurLanguage;
    const std::pair<const wchar_t*, QLocale::Language> languages[] = {
        {L"Chs", QLocale::Chinese}, {L"Enu", QLocale::English}, {L"fr", QLocale::French}, {L"qq", QLocale::C}};
    for (const auto& [name, language] : languages) {
        g_strCurLanguage = name;
        DialogForTests each{kItems};
        each.Run([language = language](const ModalWindow& window) {
            EXPECT_EQ(Control<QDateEdit>(window, 10)->calendarWidget()->locale().language(), language);
        });
    }
    g_strCurLanguage = before;
    QLocale::setDefault(machine);
}

TEST_F(DatePickers, GiveTheWeekDayAndKeepTheTime) {
    Run([&] {
        const SYSTEMTIME set = {2025, 12, 5, 21, 13, 14, 15, 16};  // the week day given does not count
        EXPECT_TRUE(picker.SetTime(&set));
        SYSTEMTIME time = {};
        EXPECT_EQ(picker.GetTime(&time), GDT_VALID);
        EXPECT_EQ(time.wDayOfWeek, 0) << "a Sunday";
        EXPECT_EQ(time.wHour, 13);
        EXPECT_EQ(time.wMinute, 14);
        EXPECT_EQ(time.wSecond, 15);
        EXPECT_EQ(time.wMilliseconds, 16);
        EXPECT_TRUE(Set(2025, 12, 20));
        picker.GetTime(&time);
        EXPECT_EQ(time.wDayOfWeek, 6);
        EXPECT_NE(picker.GetTime(nullptr), GDT_VALID);
    });
}

TEST_F(DatePickers, TheHourThatSummerTimeSkipsStays) {
    const EnvironmentVariable zone("TZ", "Asia/Shanghai");
    Run([&] {
        EXPECT_TRUE(Set(1986, 5, 4, 2, 30)) << "clocks went from 2:00 to 3:00";
        SYSTEMTIME time = {};
        picker.GetTime(&time);
        EXPECT_EQ(time.wHour, 2);
        EXPECT_EQ(time.wMinute, 30);
        EXPECT_TRUE(Set(1940, 6, 1));
        EXPECT_EQ(Date(), "1940-6-1");
    });
}

TEST_F(DatePickers, TypedDatesCount) {
    Run([&] {
        Set(2025, 6, 15, 8);
        Type("20310704");
        EXPECT_EQ(Date(), "2031-7-4") << "also before the focus goes";
        EXPECT_EQ(heard.TakeCodes(10), std::vector<UINT>{DTN_DATETIMECHANGE});
        Leave();
        EXPECT_TRUE(heard.TakeCodes(10).empty()) << "told once";
        SYSTEMTIME time = {};
        picker.GetTime(&time);
        EXPECT_EQ(time.wHour, 8);
        Type("2032");
        EXPECT_TRUE(heard.TakeCodes(10).empty()) << "still being typed";
        Leave();
        EXPECT_EQ(heard.TakeCodes(10), std::vector<UINT>{DTN_DATETIMECHANGE});
        EXPECT_EQ(Date(), "2032-7-4");
    });
}

TEST_F(DatePickers, WhateverIsTypedIsADateInTheRange) {
    Run([&] {
        for (const char* keys :
             {"0000", "1600", "15", "99999999", "20250230", "20251332", "abc", "----", "2025-2-31"}) {
            Set(2025, 6, 15);
            Type(keys);
            Leave();
            SYSTEMTIME time = {};
            EXPECT_EQ(picker.GetTime(&time), GDT_VALID);
            EXPECT_TRUE(QDate::isValid(time.wYear, time.wMonth, time.wDay)) << keys;
            EXPECT_GE(time.wYear, 1601) << keys;
            EXPECT_LE(time.wYear, 9999) << keys;
        }
        Set(9999, 12, 31);
        widget->setFocus();
        widget->setSelectedSection(QDateEdit::YearSection);
        heard.Take();
        QTest::keyClick(widget, Qt::Key_Up);
        EXPECT_EQ(Date(), "9999-12-31");
        EXPECT_TRUE(heard.TakeCodes(10).empty());
        QTest::keyClick(widget, Qt::Key_Down);
        EXPECT_EQ(Date(), "9998-12-31");
        EXPECT_EQ(heard.TakeCodes(10), std::vector<UINT>{DTN_DATETIMECHANGE});
    });
}

TEST_F(DatePickers, MayBeDestroyedByWhatTheyTell) {
    for (const bool whole : {false, true}) {
        int told = 0;
        dialog.m_onMessage = [&](UINT message, WPARAM, LPARAM) {
            if (message != WM_NOTIFY || told++ > 0)
                return;
            whole ? dialog.DestroyWindow() : picker.DestroyWindow();
        };
        Run([&] {
            Set(2025, 6, 15);
            widget->setFocus();
            QTest::keyClick(widget, Qt::Key_Up);
        });
        EXPECT_EQ(told, 1);
        told = 0;
        Run([&] {
            Set(2025, 6, 15);
            Type("2031");
            SYSTEMTIME time = {};
            picker.GetTime(&time);
        });
        EXPECT_EQ(told, 1) << "within GetTime";
    }
}

TEST(CDateTimeCtrl, IsHarmlessWithoutAWindow) {
    CDateTimeCtrl none;
    SYSTEMTIME time = {2025, 1, 0, 1, 0, 0, 0, 0};
    EXPECT_FALSE(none.SetTime(&time));
    EXPECT_NE(none.GetTime(&time), GDT_VALID);
}

}  // namespace
