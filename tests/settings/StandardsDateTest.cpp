// The day in the dialog of the standards: the picker, the solar terms, and how each follows the other.
#include <QCalendarWidget>

#include "calendar/ExpectedTerms.h"
#include "platform/window/CWnd.h"
#include "settings/OrvoSetStdDlg.h"
#include "settings/SettingsDialogs.h"

namespace {

class StandardsDate : public SettingsDialogs {
protected:
    void SetUp() override {
        SettingsDialogs::SetUp();
        m_date = &AddStandard(L"甲").m_date;
    }

    static void Run(const std::function<void(const ModalWindow&)>& act, int command = IDCANCEL) {
        const Play play({Do("IDD_2010", act, command)});
        SunStdDlgDoModal(nullptr);
    }
    static QDate Picked(const ModalWindow& window) { return Item<QDateEdit>(window, 2038)->date(); }
    static int Term(const ModalWindow& window) { return Item<QComboBox>(window, 2039)->currentIndex(); }
    void ExpectDate(int year, int month, int day) const {
        EXPECT_EQ(m_date->GetYear(), year);
        EXPECT_EQ(m_date->GetMonth(), month);
        EXPECT_EQ(m_date->m_nDay, day);
    }

    OrvoDate* m_date = nullptr;
};

}  // namespace

TEST_F(StandardsDate, ListsTheTwentyFourTermsAndSelectsTheDays) {
    Run([](const ModalWindow& window) {
        const auto terms = Entries(window, 2039);
        ASSERT_EQ(terms.size(), 24U);
        EXPECT_EQ(terms.front(), "冬至");
        EXPECT_EQ(terms.back(), "大雪");
        EXPECT_EQ(Term(window), 0) << "December 22nd";
        EXPECT_EQ(Picked(window), QDate(2026, 12, 22));
    });
}

TEST_F(StandardsDate, SelectsNoTermOnAnyOtherDay) {
    m_date->SetDay(23);
    Run([](const ModalWindow& window) {
        EXPECT_EQ(Term(window), -1);
        EXPECT_EQ(Picked(window), QDate(2026, 12, 23));
    });
}

TEST_F(StandardsDate, TakesTheDayOfATermAndKeepsTheYear) {
    for (const int year : {2026, 2028}) {
        m_date->SetYear(year);
        Run([&](const ModalWindow& window) {
            for (int index = 0; index < 24; ++index) {
                Choose(window, 2039, index);
                const ExpectedTerm& term = kExpectedTerms[index];
                const int day = year == 2028 ? term.leapDay : term.day;
                EXPECT_EQ(Picked(window), QDate(year, term.month, day)) << index;
                ExpectDate(year, term.month, day);
                EXPECT_EQ(Term(window), index);
            }
        });
    }
}

TEST_F(StandardsDate, TakesADayThatIsTyped) {
    Run([this](const ModalWindow& window) {
        auto* picker = Item<QDateEdit>(window, 2038);
        picker->setFocus();
        picker->setSelectedSection(QDateTimeEdit::YearSection);
        QTest::keyClicks(picker, "2027");
        picker->setSelectedSection(QDateTimeEdit::MonthSection);
        QTest::keyClicks(picker, "06");
        picker->setSelectedSection(QDateTimeEdit::DaySection);
        QTest::keyClicks(picker, "05");
        QTest::keyClick(picker, Qt::Key_Tab);
        ExpectDate(2027, 6, 5);
        EXPECT_EQ(Term(window), -1);
    });
    ExpectDate(2027, 6, 5);
}

TEST_F(StandardsDate, TakesADayThatIsStillBeingTypedOnOk) {
    Run(
        [](const ModalWindow& window) {
            auto* picker = Item<QDateEdit>(window, 2038);
            picker->setFocus();
            picker->setSelectedSection(QDateTimeEdit::DaySection);
            QTest::keyClicks(picker, "09");
            // Not a click, which would take the focus away first.
            ::SendMessage(reinterpret_cast<HWND>(Item(window, IDOK)), BM_CLICK, 0, 0);
        },
        0);
    ExpectDate(2026, 12, 9);
}

TEST_F(StandardsDate, TakesADayThatIsStillBeingTypedOnEnter) {
    Run(
        [](const ModalWindow& window) {
            auto* picker = Item<QDateEdit>(window, 2038);
            picker->setFocus();
            picker->setSelectedSection(QDateTimeEdit::DaySection);
            QTest::keyClicks(picker, "08");
            QTest::keyClick(picker, Qt::Key_Return);
        },
        0);
    ExpectDate(2026, 12, 8);
}

TEST_F(StandardsDate, FollowsTheArrowsDayByDay) {
    Run([this](const ModalWindow& window) {
        auto* picker = Item<QDateEdit>(window, 2038);
        picker->setFocus();
        picker->setSelectedSection(QDateTimeEdit::DaySection);
        QTest::keyClick(picker, Qt::Key_Down);
        ExpectDate(2026, 12, 21);
        EXPECT_EQ(Term(window), -1);
        QTest::keyClick(picker, Qt::Key_Up);
        ExpectDate(2026, 12, 22);
        EXPECT_EQ(Term(window), 0) << "the day of a term again";
        QTest::keyClick(picker, Qt::Key_Up);
        QTest::keyClick(picker, Qt::Key_Up);
        ExpectDate(2026, 12, 24);
        picker->setSelectedSection(QDateTimeEdit::YearSection);
        QTest::keyClick(picker, Qt::Key_Up);
        ExpectDate(2027, 12, 24);
    });
    ExpectDate(2027, 12, 24);
}

TEST_F(StandardsDate, TakesADayFromTheCalendarThatDropsDown) {
    Run([this](const ModalWindow& window) {
        auto* picker = Item<QDateEdit>(window, 2038);
        QTest::mouseClick(picker, Qt::LeftButton, {}, QPoint(picker->width() - 6, picker->height() / 2));
        ASSERT_NE(picker->calendarWidget(), nullptr);
        ASSERT_TRUE(picker->calendarWidget()->isVisible());
        auto* days = picker->calendarWidget()->findChild<QAbstractItemView*>("qt_calendar_calendarview");
        ASSERT_NE(days, nullptr);
        QTest::keyClick(days, Qt::Key_Right);
        QTest::keyClick(days, Qt::Key_Return);
        ExpectDate(2026, 12, 23);
        EXPECT_EQ(Term(window), -1);
    });
    ExpectDate(2026, 12, 23);
}

TEST_F(StandardsDate, ChangesTheCurrentStandardAlone) {
    AddStandard(L"乙");
    const OrvoDate own = g_SunDataSet.m_date;
    Run([](const ModalWindow& window) {
        Choose(window, 2004, 1);
        Choose(window, 2039, 2);
        Choose(window, 2004, 0);
        EXPECT_EQ(Picked(window), QDate(2026, 12, 22));
        EXPECT_EQ(Term(window), 0);
    });
    ExpectDate(2026, 12, 22);
    EXPECT_NE(g_SunDataSet.GetStd(1).m_date, *m_date);
    EXPECT_EQ(g_SunDataSet.m_date, own) << "the settings have a day of their own";
}

// What no calendar has cannot be shown, and is not replaced by what the picker shows instead.
TEST_F(StandardsDate, KeepsADayThatNoCalendarHas) {
    const int days[][3] = {{2026, 2, 30}, {70000, 1, 1}, {-5, 1, 1}, {67562, 3, 4}, {0, 0, 0}, {2026, 65537, 3}};
    for (const auto& day : days) {
        *m_date = OrvoDate(day[0], day[1], day[2]);
        Run(
            [](const ModalWindow& window) {
                EXPECT_TRUE(Picked(window).isValid());
                EXPECT_NE(Picked(window), QDate(2026, 1, 3));
                EXPECT_NE(Picked(window), QDate(2026, 3, 4));
            },
            IDOK);
        ExpectDate(day[0], day[1], day[2]);
    }
}

// Assigning dates piles the built-in table up; rows behind the first 24 are no terms.
TEST_F(StandardsDate, ChoosesNothingByARowBehindTheTerms) {
    *m_date = OrvoDate(2026, 6, 5);
    *m_date = OrvoDate(2026, 6, 7);
    const long rows = m_date->m_listTerm.GetLength();
    ASSERT_GT(rows, 30);
    Run([rows](const ModalWindow& window) {
        ASSERT_EQ(Item<QComboBox>(window, 2039)->count(), rows);
        Choose(window, 2039, 30);
        EXPECT_EQ(Term(window), -1);
        EXPECT_EQ(Picked(window), QDate(2026, 6, 7));
    });
    ExpectDate(2026, 6, 7);
}
