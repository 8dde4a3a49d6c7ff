// The dialog of the standards: what it shows, what it exchanges with the current standard, and what is refused.
#include "settings/OrvoSetStdDlg.h"
#include "settings/SettingsDialogs.h"
#include "support/TableSwitch.h"

namespace {

using Texts = std::vector<std::string>;

class StandardsDialog : public SettingsDialogs {
protected:
    static INT_PTR Run(std::vector<Scene> scenes) {
        const Play play(std::move(scenes));
        return SunStdDlgDoModal(nullptr);
    }
    static INT_PTR Run(const std::function<void(const ModalWindow&)>& act, int command = IDCANCEL) {
        return Run({Do("IDD_2010", act, command)});
    }
    // OK with this entry in a field is refused with the message, and the field has the focus.
    static void RefusesEntry(int id, const QString& entry, const char* message) {
        Run({Do("IDD_2010",
                [&](const ModalWindow& window) {
                    if (entry.isEmpty())
                        Type(window, id, entry);
                    else
                        Paste(window, id, entry);
                    Click(window, IDOK);
                    EXPECT_TRUE(HasFocus(window, id));
                }),
             {message}});
    }
};

double Hours(const OrvoDegree& time) {
    return time.getDegree();
}

}  // namespace

TEST_F(StandardsDialog, HasATemplateForEachLanguage) {
    const std::pair<const wchar_t*, UINT> variants[] = {{L"Chs", 2010}, {L"Enu", 2017}, {L"CHS", 2017}, {L"", 2017}};
    for (const auto& [language, id] : variants) {
        g_strCurLanguage = language;
        EXPECT_EQ(OrvoSetStdDlg().GetTemplateId(), id);
        EXPECT_EQ(Run({Do(
                      "IDD_" + std::to_string(id),
                      [](const ModalWindow& window) { EXPECT_EQ(window.caption, L"日照分析标准"); }, IDOK)}),
                  IDOK);
    }
}

TEST_F(StandardsDialog, NamesItsControls) {
    AddStandard(L"甲");
    Run([](const ModalWindow& window) {
        const std::pair<int, const char*> names[] = {{2004, "当前标准"},
                                                     {2028, "新建"},
                                                     {2029, "改名"},
                                                     {2030, "删除"},
                                                     {2031, "总有效日照分析(累计)"},
                                                     {2032, "最长有效连照分析(连续)"},
                                                     {2033, "满窗日照分析"},
                                                     {2034, "窗台中点分析"},
                                                     {2035, "限定宽度"},
                                                     {2036, "最大宽度(mm)"},
                                                     {2037, "最小宽度(mm)"},
                                                     {2039, "节气"},
                                                     {2040, "真太阳时"},
                                                     {2041, "北京时间"},
                                                     {2042, "开始"},
                                                     {2043, "结束"},
                                                     {2044, "计算精度"},
                                                     {2050, "累计超过"},
                                                     {2057, "累计所有时间段"},
                                                     {2053, "累计最长两个时间段"},
                                                     {2059, "累计最长三个时间段"}};
        for (const auto& [id, name] : names)
            EXPECT_EQ(Item(window, id)->accessibleName().toStdString(), name) << id;
        EXPECT_EQ(Entries(window, 2054), (Texts{"上海规定", "自定义"}));
        EXPECT_TRUE(HasFocus(window, 2004));
    });
}

TEST_F(StandardsDialog, ExplainsFiveOfItsControls) {
    AddStandard(L"甲");
    const std::pair<int, const char*> tips[] = {
        {2033, "要求光照覆盖整个日照窗"},
        {2034, "要求光线照射到日照窗的中心点"},
        {2035, "使用满窗日照计算方法时，窗越大，计算所得的日照时间却可能越短,因此要考虑限定宽度"},
        {2032, "以最长、连续、有效日照时间段作为日照分析的依据"},
        {2031, "以所有有效日照时间段的时间累计作为日照分析的依据"}};
    Run([&](const ModalWindow& window) {
        int explained = 0;
        for (const QWidget* widget : static_cast<QWidget*>(window.widget)->findChildren<QWidget*>())
            explained += widget->toolTip().isEmpty() ? 0 : 1;
        EXPECT_EQ(explained, 5);
        for (const auto& [id, tip] : tips) {
            EXPECT_EQ(Item(window, id)->accessibleDescription().toStdString(), tip);
            EXPECT_TRUE(Item(window, id)->toolTip().contains(QString::fromUtf8(tip)));
        }
    });
}

TEST_F(StandardsDialog, PassesItsTextsThroughTheLanguageSwitch) {
    AddStandard(L"甲");
    const TableSwitch language{{L"上海规定", L"Shanghai"},
                               {L"自定义", L"Custom"},
                               {L"要求光照覆盖整个日照窗", L"whole"},
                               {L"标准列表不能空!", L"one must stay"},
                               {L"时间应在00:00到23:59之间", L"no such time"}};
    Run({Do("IDD_2010",
            [](const ModalWindow& window) {
                EXPECT_EQ(Entries(window, 2054), (Texts{"Shanghai", "Custom"}));
                EXPECT_EQ(Item(window, 2033)->accessibleDescription().toStdString(), "whole");
                Click(window, 2030);
                TypeTime(window, 2042, "2400");
                Click(window, IDOK);
            }),
         {"one must stay"},
         {"no such time"}});
}

TEST_F(StandardsDialog, ShowsTheCurrentStandard) {
    AddStandard(L"甲");
    OrvoStdSet& standard = AddStandard(L"乙");
    g_SunDataSet.SetCurStdIndex(1);
    standard.m_nLimitWidth = 1;
    standard.m_dMaxWidth = 1800.5;
    standard.m_dMinWidth = 600.25;
    standard.m_date.SetXmlDate(L"2027-6-5");
    standard.m_nBJTime = 1;
    standard.m_dgStartTime = OrvoDegree(8, 5, 0);
    standard.m_dgEndTime = OrvoDegree(16, 40, 0);
    standard.m_dSpace = 7.5;
    standard.m_nAllMaxContinueTime = 1;
    standard.m_nMinContinueTime = 61;
    standard.m_nMinValidAngle = 12;
    standard.m_nValidSunType = 1;
    standard.m_nMinValidTime = 13;
    standard.m_nMinMaxValidTime = 14;
    standard.m_nTotalTimeType = 2;
    Run([](const ModalWindow& window) {
        EXPECT_EQ(Entries(window, 2004), (Texts{"甲", "乙"}));
        EXPECT_EQ(ChoiceText(window, 2004), "乙");
        EXPECT_TRUE(IsChecked(window, 2035));
        EXPECT_EQ(EditText(window, 2036), "1800.5");
        EXPECT_EQ(EditText(window, 2037), "600.25");
        EXPECT_EQ(Item<QDateEdit>(window, 2038)->date(), QDate(2027, 6, 5));
        EXPECT_EQ(Item<QDateEdit>(window, 2038)->time(), QTime(0, 0));
        EXPECT_TRUE(IsChecked(window, 2041));
        EXPECT_EQ(EditText(window, 2042), "08:05");
        EXPECT_EQ(EditText(window, 2043), "16:40");
        EXPECT_EQ(EditText(window, 2044), "7.5");
        EXPECT_TRUE(IsChecked(window, 2050));
        EXPECT_EQ(EditText(window, 2051), "61");
        EXPECT_EQ(EditText(window, 2052), "12");
        EXPECT_EQ(ChoiceText(window, 2054), "自定义");
        EXPECT_EQ(EditText(window, 2055), "13");
        EXPECT_EQ(EditText(window, 2056), "14");
        EXPECT_TRUE(IsChecked(window, 2059));
    });
}

TEST_F(StandardsDialog, StoresEveryControlOnOk) {
    OrvoStdSet& standard = AddStandard(L"甲");
    standard.m_nMaxContinue = 0;
    standard.m_nFullWin = 1;
    standard.m_nLimitWidth = 1;
    standard.m_nValidSunType = 1;
    const auto act = [](const ModalWindow& window) {
        Type(window, 2036, "3000.5");
        Type(window, 2037, "900");
        Click(window, 2041);
        TypeTime(window, 2042, "0730");
        TypeTime(window, 2043, "1745");
        Type(window, 2044, "2.5");
        Type(window, 2052, "15");
        Type(window, 2055, "16");
        Type(window, 2056, "17");
        Click(window, 2053);
        Click(window, 2032);
        Click(window, 2050);
        Type(window, 2051, "45");
    };
    EXPECT_EQ(Run(act, IDOK), IDOK);
    EXPECT_EQ(standard.m_nMaxContinue, 1);
    EXPECT_EQ(standard.m_dMaxWidth, 3000.5);
    EXPECT_EQ(standard.m_dMinWidth, 900.0);
    EXPECT_EQ(standard.m_nBJTime, 1);
    EXPECT_DOUBLE_EQ(Hours(standard.m_dgStartTime), 7.5);
    EXPECT_DOUBLE_EQ(Hours(standard.m_dgEndTime), 17.75);
    EXPECT_EQ(standard.m_dSpace, 2.5);
    EXPECT_EQ(standard.m_nAllMaxContinueTime, 1);
    EXPECT_EQ(standard.m_nMinContinueTime, 45);
    EXPECT_EQ(standard.m_nMinValidAngle, 15);
    EXPECT_EQ(standard.m_nValidSunType, 1);
    EXPECT_EQ(standard.m_nMinValidTime, 16);
    EXPECT_EQ(standard.m_nMinMaxValidTime, 17);
    EXPECT_EQ(standard.m_nTotalTimeType, 1);
    EXPECT_EQ(standard.m_strName, L"甲");
}

// What is shown and stored by the pair of radios is the inverse of what clicking them stores, on purpose.
TEST_F(StandardsDialog, ExchangesTheWindowInverted) {
    OrvoStdSet& standard = AddStandard(L"甲");
    standard.m_nFullWin = 1;
    EXPECT_EQ(Run(
                  [](const ModalWindow& window) {
                      EXPECT_TRUE(IsChecked(window, 2034));
                      EXPECT_FALSE(IsChecked(window, 2033));
                      EXPECT_TRUE(IsOn(window, 2035)) << "the rule follows the field";
                  },
                  IDOK),
              IDOK);
    EXPECT_EQ(standard.m_nFullWin, 1) << "shown and read it is the same";
    standard.m_nFullWin = 0;
    EXPECT_EQ(Run(
                  [&](const ModalWindow& window) {
                      EXPECT_TRUE(IsChecked(window, 2033));
                      EXPECT_FALSE(IsOn(window, 2035));
                      Click(window, 2033);
                      EXPECT_EQ(standard.m_nFullWin, 1);
                  },
                  IDOK),
              IDOK);
    EXPECT_EQ(standard.m_nFullWin, 0) << "OK reads the radios";
    EXPECT_EQ(Run(
                  [&](const ModalWindow& window) {
                      Click(window, 2034);
                      EXPECT_EQ(standard.m_nFullWin, 0);
                  },
                  IDOK),
              IDOK);
    EXPECT_EQ(standard.m_nFullWin, 1);
}

TEST_F(StandardsDialog, StoresEachOfTheThreeWaysToAddUp) {
    OrvoStdSet& standard = AddStandard(L"甲");
    standard.m_nMaxContinue = 0;
    const std::pair<int, int> types[] = {{2057, 0}, {2053, 1}, {2059, 2}};
    for (const auto& [id, type] : types) {
        Run([id = id](const ModalWindow& window) { Click(window, id); }, IDOK);
        EXPECT_EQ(standard.m_nTotalTimeType, type);
        Run([id = id](const ModalWindow& window) { EXPECT_TRUE(IsChecked(window, id)); });
    }
}

TEST_F(StandardsDialog, StoresHoursAndMinutesWithoutSeconds) {
    OrvoStdSet& standard = AddStandard(L"甲");
    standard.m_dgStartTime = OrvoDegree(9, 30, 36);
    Run([](const ModalWindow& window) { EXPECT_EQ(EditText(window, 2042), "09:30"); }, IDOK);
    EXPECT_DOUBLE_EQ(Hours(standard.m_dgStartTime), 9.5);
}

TEST_F(StandardsDialog, TakesTheFirstAndTheLastMinuteOfADay) {
    OrvoStdSet& standard = AddStandard(L"甲");
    Run(
        [](const ModalWindow& window) {
            TypeTime(window, 2042, "0000");
            TypeTime(window, 2043, "2359");
        },
        IDOK);
    EXPECT_EQ(Hours(standard.m_dgStartTime), 0.0);
    EXPECT_DOUBLE_EQ(Hours(standard.m_dgEndTime), 23 + 59 / 60.0);
}

TEST_F(StandardsDialog, RefusesTimesThatNoClockShows) {
    OrvoStdSet& standard = AddStandard(L"甲");
    for (const int edit : {2042, 2043}) {
        for (const char* time : {"2400", "0960", "9999"}) {
            Run({Do(
                     "IDD_2010",
                     [&](const ModalWindow& window) {
                         TypeTime(window, edit, time);
                         Click(window, IDOK);
                         EXPECT_TRUE(static_cast<QWidget*>(window.widget)->isVisible());
                         EXPECT_TRUE(HasFocus(window, edit));
                         TypeTime(window, edit, "1020");
                         Click(window, IDOK);
                     },
                     0),
                 {"时间应在00:00到23:59之间"}});
            EXPECT_DOUBLE_EQ(Hours(edit == 2042 ? standard.m_dgStartTime : standard.m_dgEndTime), 10 + 20 / 60.0);
        }
    }
}

TEST_F(StandardsDialog, KeepsATimeOfAFileThatNoClockShows) {
    OrvoStdSet& standard = AddStandard(L"甲");
    for (const double time : {24.0, -1.0, 1e9, 24.5}) {
        standard.m_dgEndTime = time;
        Run([](const ModalWindow& window) { EXPECT_EQ(EditText(window, 2043), "00:00"); }, IDOK);
        EXPECT_EQ(Hours(standard.m_dgEndTime), time);
        Run([](const ModalWindow& window) { TypeTime(window, 2043, "1200"); }, IDOK);
        EXPECT_EQ(Hours(standard.m_dgEndTime), 12.0);
    }
}

TEST_F(StandardsDialog, ShowsAnHourThatIsMissingLessThanASecond) {
    OrvoStdSet& standard = AddStandard(L"甲");
    standard.m_dgStartTime = 8.99999999;
    Run([](const ModalWindow& window) { EXPECT_EQ(EditText(window, 2042), "09:00"); }, IDOK);
    EXPECT_EQ(Hours(standard.m_dgStartTime), 9.0);
}

TEST_F(StandardsDialog, RefusesWhateverIsNoNumber) {
    OrvoStdSet& standard = AddStandard(L"甲");
    standard.m_nMaxContinue = 1;
    standard.m_nLimitWidth = 1;
    const QString entries[] = {"", "x", "1 2", QString::fromUtf8("😀"), QString(10000, '7')};
    for (const int id : {2036, 2037, 2044})
        for (const QString& entry : entries)
            RefusesEntry(id, entry, "请键入一个数字。");
    EXPECT_EQ(standard.m_dMaxWidth, 2400.0);
    EXPECT_EQ(standard.m_dMinWidth, 1200.0);
    EXPECT_EQ(standard.m_dSpace, 10.0);
}

// What another control shut away cannot have the focus, so the message names it.
TEST_F(StandardsDialog, SaysWhichFieldIsBadWhereItCannotShowIt) {
    OrvoStdSet& standard = AddStandard(L"甲");
    standard.m_nMaxContinue = 0;
    standard.m_nFullWin = 0;
    standard.m_nValidSunType = 0;
    const std::string number = "请键入一个数字。";
    const std::string whole = "请键入一个整数。";
    const std::pair<int, std::string> fields[] = {{2036, "最大宽度(mm): " + number},
                                                  {2037, "最小宽度(mm): " + number},
                                                  {2051, "累计超过: " + whole},
                                                  {2052, "最小角度: " + whole}};
    for (const auto& [id, message] : fields)
        Run({Do("IDD_2010",
                [id = id](const ModalWindow& window) {
                    ASSERT_FALSE(Item(window, id)->isEnabled()) << id;
                    Item<QLineEdit>(window, id)->setText("x");
                    Click(window, IDOK);
                }),
             {message}});
    standard.m_nMaxContinue = 1;
    for (const auto& [id, name] : {std::pair{2055, "最短有效时段: "}, std::pair{2056, "最长时段至少: "}})
        Run({Do("IDD_2010",
                [id = id](const ModalWindow& window) {
                    ASSERT_FALSE(Item(window, id)->isEnabled()) << id;
                    Item<QLineEdit>(window, id)->setText("x");
                    Click(window, IDOK);
                }),
             {name + whole}});
}

TEST_F(StandardsDialog, RefusesWhateverIsNoWholeNumber) {
    OrvoStdSet& standard = AddStandard(L"甲");
    standard.m_nMaxContinue = 0;
    standard.m_nValidSunType = 1;
    const QString entries[] = {"", "1.5", "2147483648", QString::fromUtf8("😀"), QString(10000, '7')};
    for (const int id : {2052, 2055, 2056})
        for (const QString& entry : entries)
            RefusesEntry(id, entry, "请键入一个整数。");
    standard.m_nMaxContinue = 1;
    standard.m_nAllMaxContinueTime = 1;
    Run({Do("IDD_2010",
            [](const ModalWindow& window) {
                Type(window, 2051, "a");
                Click(window, IDOK);
            }),
         {"请键入一个整数。"}});
    EXPECT_EQ(standard.m_nMinContinueTime, 60);
    EXPECT_EQ(standard.m_nMinValidAngle, 0);
    EXPECT_EQ(standard.m_nMinValidTime, 0);
    EXPECT_EQ(standard.m_nMinMaxValidTime, 0);
}

TEST_F(StandardsDialog, StepsTheMinutesFromOneToSixty) {
    OrvoStdSet& standard = AddStandard(L"甲");
    standard.m_dSpace = 59;
    Run(
        [](const ModalWindow& window) {
            auto* edit = Item<QLineEdit>(window, 2044);
            edit->setFocus();
            for (int i = 0; i < 3; ++i)
                QTest::keyClick(edit, Qt::Key_Up);
            EXPECT_EQ(EditText(window, 2044), "60");
            for (int i = 0; i < 70; ++i)
                QTest::keyClick(edit, Qt::Key_Down);
            EXPECT_EQ(EditText(window, 2044), "1");
            QTest::keyClick(edit, Qt::Key_Up);
        },
        IDOK);
    EXPECT_EQ(standard.m_dSpace, 2.0);
}

// Files may hold any number where the dialog has a few choices.
TEST_F(StandardsDialog, KeepsChoicesThatItCannotShow) {
    OrvoStdSet& standard = AddStandard(L"甲");
    standard.m_nMaxContinue = 5;
    standard.m_nFullWin = 6;
    standard.m_nBJTime = 7;
    standard.m_nValidSunType = 8;
    standard.m_nTotalTimeType = -9;
    Run([](const ModalWindow&) {}, IDOK);
    EXPECT_EQ(standard.m_nMaxContinue, 5);
    EXPECT_EQ(standard.m_nFullWin, 6);
    EXPECT_EQ(standard.m_nBJTime, 7);
    EXPECT_EQ(standard.m_nValidSunType, 8);
    EXPECT_EQ(standard.m_nTotalTimeType, -9);
}

TEST_F(StandardsDialog, KeepsOnCancelWhatItsButtonsDid) {
    OrvoStdSet& standard = AddStandard(L"甲");
    standard.m_nMaxContinue = 1;
    standard.m_nFullWin = 1;
    Run([](const ModalWindow& window) {
        Click(window, 2050);
        Choose(window, 2054, 1);
        Click(window, 2031);
        Type(window, 2044, "33");
        TypeTime(window, 2042, "1111");
        Click(window, 2041);
    });
    EXPECT_EQ(standard.m_nAllMaxContinueTime, 1);
    EXPECT_EQ(standard.m_nValidSunType, 1);
    EXPECT_EQ(standard.m_nMaxContinue, 0);
    EXPECT_EQ(standard.m_dSpace, 10.0) << "typed and not read";
    EXPECT_EQ(Hours(standard.m_dgStartTime), 9.0);
    EXPECT_EQ(standard.m_nBJTime, 0) << "these radios have no handler";
    Run([](const ModalWindow& window) { Click(window, 2034); });
    EXPECT_EQ(standard.m_nFullWin, 0);
    Run([](const ModalWindow& window) {
        Click(window, 2033);
        Click(window, 2035);
    });
    EXPECT_EQ(standard.m_nLimitWidth, 1);
}

TEST_F(StandardsDialog, CanBeUsedByKeysAlone) {
    OrvoStdSet& standard = AddStandard(L"甲");
    standard.m_nMaxContinue = 0;
    standard.m_nFullWin = 0;
    EXPECT_EQ(Run(
                  [](const ModalWindow& window) {
                      const auto press = [](int key) { QTest::keyClick(QApplication::focusWidget(), Qt::Key(key)); };
                      // The disabled ones are passed over, and of each group of radios all but the checked one.
                      const int stops[] = {2004, 2028, 2029, 2030, 2031, 2033, 2054, 2038, 2039,
                                           2040, 2042, 2043, 2044, 2055, 2056, 2057, 1,    2};
                      for (const int stop : stops) {
                          EXPECT_TRUE(HasFocus(window, stop)) << stop;
                          for (int i = 0; i < 4 && HasFocus(window, stop); ++i)
                              press(Qt::Key_Tab);
                      }
                      EXPECT_TRUE(HasFocus(window, 2004));
                      for (int i = 0; i < 4; ++i)
                          press(Qt::Key_Tab);
                      EXPECT_TRUE(HasFocus(window, 2031));
                      press(Qt::Key_Down);
                      EXPECT_TRUE(IsChecked(window, 2032)) << "arrows choose";
                      EXPECT_TRUE(IsOn(window, 2050)) << "and do what a click does";
                      press(Qt::Key_Tab);
                      EXPECT_TRUE(HasFocus(window, 2050));
                      press(Qt::Key_Space);
                      EXPECT_TRUE(IsOn(window, 2051));
                      press(Qt::Key_Tab);
                      QTest::keyClicks(QApplication::focusWidget(), "35");
                      press(Qt::Key_Return);
                  },
                  0),
              IDOK);
    EXPECT_EQ(standard.m_nMaxContinue, 1);
    EXPECT_EQ(standard.m_nAllMaxContinueTime, 1);
    EXPECT_EQ(standard.m_nMinContinueTime, 35);
    EXPECT_EQ(Run([](const ModalWindow&) { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); }, 0),
              IDCANCEL);
}

TEST_F(StandardsDialog, GivesItsResultAndFollowsItsParent) {
    AddStandard(L"甲");
    EXPECT_EQ(Run([](const ModalWindow&) {}, IDOK), IDOK);
    EXPECT_EQ(Run([](const ModalWindow&) {}, IDCANCEL), IDCANCEL);
}
