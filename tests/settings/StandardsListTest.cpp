// The list of standards in their dialog: choosing, making, renaming, deleting.
#include "settings/OrvoSetStdDlg.h"
#include "settings/QNewSetStdDlg.h"
#include "settings/SettingsDialogs.h"
#include "support/TableSwitch.h"

namespace {

using Texts = std::vector<std::string>;
constexpr const char* kTaken = "该名称已经被使用,请修改名称";
constexpr const char* kEmpty = "请输入标准的名称";

Texts Names() {
    Texts names;
    for (OrvoStdSet** slot = g_SunDataSet.m_listStd.GetFirst(); slot; slot = g_SunDataSet.m_listStd.GetNext(slot))
        names.push_back(ToUtf8((*slot)->m_strName.View()));
    return names;
}

class StandardsList : public SettingsDialogs {
protected:
    void SetUp() override {
        SettingsDialogs::SetUp();
        AddStandard(L"甲").m_dSpace = 1;
        AddStandard(L"乙").m_dSpace = 2;
        AddStandard(L"丙").m_dSpace = 3;
    }

    static INT_PTR Run(std::vector<Scene> scenes) {
        const Play play(std::move(scenes));
        return SunStdDlgDoModal(nullptr);
    }
    // In the dialog for a name: types it and leaves with OK.
    static Scene Name(const QString& name) {
        return Do(
            "IDD_2009", [name](const ModalWindow& window) { Paste(window, 2026, name); }, IDOK);
    }
    static OrvoStdSet& Standard(int index) { return g_SunDataSet.GetStd(index); }
};

}  // namespace

TEST_F(StandardsList, ReadsOneStandardAndShowsTheNextWhenItIsChosen) {
    Run({Do("IDD_2010", [](const ModalWindow& window) {
        Type(window, 2044, "11");
        Choose(window, 2004, 1);
        EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), 1);
        EXPECT_EQ(EditText(window, 2044), "2");
        Choose(window, 2004, 2);
        EXPECT_EQ(EditText(window, 2044), "3");
    })});
    EXPECT_EQ(Standard(0).m_dSpace, 11.0);
    EXPECT_EQ(Standard(1).m_dSpace, 2.0);
    EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), 2) << "also after Cancel";
}

TEST_F(StandardsList, EnablesWhatTheChosenStandardNeeds) {
    Standard(0).m_nMaxContinue = 1;
    Standard(1).m_nMaxContinue = 0;
    Standard(1).m_nValidSunType = 1;
    Run({Do("IDD_2010", [](const ModalWindow& window) {
        EXPECT_FALSE(IsOn(window, 2055));
        Choose(window, 2004, 1);
        EXPECT_TRUE(IsOn(window, 2055));
        EXPECT_TRUE(IsOn(window, 2052));
        Choose(window, 2004, 0);
        EXPECT_FALSE(IsOn(window, 2055));
        EXPECT_FALSE(IsOn(window, 2052));
    })});
}

TEST_F(StandardsList, StaysAtAStandardWithABadEntry) {
    g_SunDataSet.SetCurStdIndex(1);
    Run({Do("IDD_2010",
            [](const ModalWindow& window) {
                Type(window, 2044, "?");
                Choose(window, 2004, 2);
                EXPECT_EQ(ChoiceText(window, 2004), "乙");
                EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), 1);
                EXPECT_EQ(EditText(window, 2044), "?") << "to be mended";
            }),
         {"请键入一个数字。"}});
}

TEST_F(StandardsList, MakesACopyOfTheCurrentStandardUnderANewName) {
    g_SunDataSet.SetCurStdIndex(1);
    Standard(1).m_nMinValidTime = 44;
    Standard(1).m_nFullWin = 0;
    Standard(1).m_colors.m_listType.Append(99);
    Standard(1).m_date.SetXmlDate(L"2020-3-4");
    Run({Do("IDD_2010",
            [](const ModalWindow& window) {
                Click(window, 2028);
                EXPECT_EQ(Entries(window, 2004), (Texts{"甲", "乙", "丙", "丁"}));
                EXPECT_EQ(ChoiceText(window, 2004), "丁");
                EXPECT_EQ(EditText(window, 2044), "2");
            }),
         Do(
             "IDD_2009",
             [](const ModalWindow& window) {
                 EXPECT_EQ(window.caption, L"标准名称");
                 EXPECT_EQ(EditText(window, 2026), "新建标准");
                 EXPECT_TRUE(HasFocus(window, 2026));
                 EXPECT_EQ(Item<QLineEdit>(window, 2026)->selectedText().toStdString(), "新建标准")
                     << "typing replaces it";
                 Paste(window, 2026, "丁");
             },
             IDOK)});
    EXPECT_EQ(Names(), (Texts{"甲", "乙", "丙", "丁"}));
    EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), 3);
    EXPECT_EQ(Standard(3).m_colors.m_listType.GetLength(), 5) << "default colours";
    EXPECT_EQ(Standard(3).m_nMinValidTime, 44);
    EXPECT_EQ(Standard(3).m_nFullWin, 0);
    EXPECT_EQ(Standard(3).m_dSpace, 2.0);
    EXPECT_EQ(Standard(3).m_date.GetYear(), 2020);
    EXPECT_EQ(Standard(3).m_date.GetMonth(), 3);
    EXPECT_EQ(Standard(3).m_date.m_nDay, 4);
    EXPECT_DOUBLE_EQ(Standard(3).m_dgEndTime.getDegree(), 15.0);
    EXPECT_EQ(Standard(1).m_strName, L"乙") << "the copied one keeps its name";
}

TEST_F(StandardsList, MakesNothingWhenTheNameIsCancelled) {
    Run({Do("IDD_2010",
            [](const ModalWindow& window) {
                Click(window, 2028);
                EXPECT_EQ(Entries(window, 2004).size(), 3U);
                EXPECT_EQ(ChoiceText(window, 2004), "甲");
            }),
         Do("IDD_2009", [](const ModalWindow& window) { Paste(window, 2026, "丁"); })});
    EXPECT_EQ(Names(), (Texts{"甲", "乙", "丙"}));
    EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), 0);
}

TEST_F(StandardsList, RefusesNamesThatAreTakenAndAsksAgain) {
    Run({Do("IDD_2010", [](const ModalWindow& window) { Click(window, 2028); }),
         Do(
             "IDD_2009",
             [](const ModalWindow& window) {
                 for (const char* name : {"乙", "甲", "CUR_SUNSETDATA", "CUR_SUNSETSTD"}) {
                     Paste(window, 2026, name);
                     Click(window, IDOK);
                     EXPECT_TRUE(static_cast<QWidget*>(window.widget)->isVisible());
                     EXPECT_TRUE(HasFocus(window, 2026));
                     EXPECT_EQ(EditText(window, 2026), name);
                 }
                 Paste(window, 2026, "cur_sunsetdata");
             },
             IDOK),
         {kTaken},
         {kTaken},
         {kTaken},
         {kTaken}});
    EXPECT_EQ(Names().back(), "cur_sunsetdata");
}

TEST_F(StandardsList, TellsUpperFromLowerCaseInNames) {
    Standard(0).m_strName = L"abc";
    Run({Do("IDD_2010", [](const ModalWindow& window) { Click(window, 2028); }), Name("ABC")});
    EXPECT_EQ(Names(), (Texts{"abc", "乙", "丙", "ABC"}));
}

TEST_F(StandardsList, RefusesNamesOfNothing) {
    Run({Do("IDD_2010", [](const ModalWindow& window) { Click(window, 2028); }),
         Do("IDD_2009",
            [](const ModalWindow& window) {
                Type(window, 2026, "");
                Click(window, IDOK);
                Type(window, 2026, "   ");
                Click(window, IDOK);
                Paste(window, 2026, QString::fromUtf8("\u3000"));
                Click(window, IDOK);
            }),
         {kEmpty},
         {kEmpty},
         {kEmpty}});
    EXPECT_EQ(Names().size(), 3U);
}

// Whatever is a name is kept to the letter, and comes back from the file.
TEST_F(StandardsList, TakesLongAndStrangeNames) {
    const QString names[] = {QString(10000, 'n'), QString::fromUtf8("😀 <&\">'"), " a ", "a-b", "%s%d", "&x", "1"};
    for (const QString& name : names) {
        Run({Do("IDD_2010", [](const ModalWindow& window) { Click(window, 2028); }), Name(name)});
        EXPECT_EQ(Names().back(), name.toStdString());
    }
    const Texts before = Names();
    Reload();
    EXPECT_EQ(Names(), before);
}

TEST_F(StandardsList, RenamesTheCurrentStandard) {
    g_SunDataSet.SetCurStdIndex(2);
    Run({Do("IDD_2010",
            [](const ModalWindow& window) {
                Click(window, 2029);
                EXPECT_EQ(Entries(window, 2004), (Texts{"甲", "乙", "戊"}));
                EXPECT_EQ(ChoiceText(window, 2004), "戊");
            }),
         Do(
             "IDD_2009",
             [](const ModalWindow& window) {
                 EXPECT_EQ(window.caption, L"重命名标准");
                 EXPECT_EQ(EditText(window, 2026), "丙");
                 Paste(window, 2026, "戊");
             },
             IDOK)});
    EXPECT_EQ(Names(), (Texts{"甲", "乙", "戊"}));
    EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), 2);
}

TEST_F(StandardsList, RefusesTheUnchangedNameWhenRenaming) {
    Run({Do("IDD_2010", [](const ModalWindow& window) { Click(window, 2029); }),
         Do("IDD_2009",
            [](const ModalWindow& window) {
                EXPECT_EQ(EditText(window, 2026), "甲");
                Click(window, IDOK);
                EXPECT_TRUE(static_cast<QWidget*>(window.widget)->isVisible());
            }),
         {kTaken, [](const ModalWindow& box) {
              EXPECT_EQ(box.caption, L"重命名标准");
              return int{IDOK};
          }}});
    EXPECT_EQ(Names(), (Texts{"甲", "乙", "丙"}));
}

TEST_F(StandardsList, DeletesTheSelectedStandardAndGoesToTheFirst) {
    g_SunDataSet.SetCurStdIndex(1);
    Run({Do("IDD_2010", [](const ModalWindow& window) {
        Click(window, 2030);
        EXPECT_EQ(Entries(window, 2004), (Texts{"甲", "丙"}));
        EXPECT_EQ(ChoiceText(window, 2004), "甲");
        EXPECT_EQ(EditText(window, 2044), "1") << "its data are shown";
    })});
    EXPECT_EQ(Names(), (Texts{"甲", "丙"}));
    EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), 0);
}

TEST_F(StandardsList, KeepsTheLastStandard) {
    Run({Do("IDD_2010",
            [](const ModalWindow& window) {
                Click(window, 2030);
                Click(window, 2030);
                EXPECT_EQ(Entries(window, 2004), Texts{"丙"});
                Type(window, 2044, "9");
                Click(window, 2030);
                EXPECT_EQ(Entries(window, 2004), Texts{"丙"});
                EXPECT_EQ(EditText(window, 2044), "9") << "nothing is changed";
            }),
         {"标准列表不能空!", [](const ModalWindow& box) {
              EXPECT_NE(box.owner, nullptr);
              EXPECT_EQ(box.caption, L"日照分析标准");
              return int{IDOK};
          }}});
    EXPECT_EQ(Names(), Texts{"丙"});
    EXPECT_EQ(Standard(0).m_dSpace, 3.0);
}

TEST_F(StandardsList, BeginsWithANewStandardWhereThereIsNone) {
    g_SunDataSet.m_listStd.Reset();
    Run({Do(
             "IDD_2010",
             [](const ModalWindow& window) {
                 EXPECT_EQ(Entries(window, 2004), Texts{});
                 EXPECT_EQ(Item<QComboBox>(window, 2039)->count(), 24);
                 Click(window, 2030);
                 Click(window, 2029);
                 Click(window, 2034);
                 Click(window, 2028);
                 EXPECT_EQ(Entries(window, 2004), Texts{"一"});
                 EXPECT_EQ(ChoiceText(window, 2004), "一");
                 Type(window, 2044, "4");
             },
             IDOK),
         Name("旧"), Name("一")});
    EXPECT_EQ(Names(), Texts{"一"});
    EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), 0);
    EXPECT_EQ(Standard(0).m_dSpace, 4.0);
    EXPECT_EQ(Standard(0).m_nMinContinueTime, 60);
}

TEST_F(StandardsList, WorksWithAnIndexThatNoStandardHas) {
    for (const int index : {3, -1, 1000000}) {
        g_SunDataSet.SetCurStdIndex(index);
        EXPECT_EQ(Run({Do(
                      "IDD_2010",
                      [](const ModalWindow& window) {
                          EXPECT_EQ(ChoiceText(window, 2004), "");
                          EXPECT_EQ(EditText(window, 2044), "10");
                          Click(window, 2033);
                          Click(window, 2035);
                      },
                      IDOK)}),
                  IDOK);
        EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), index);
        EXPECT_EQ(Names(), (Texts{"甲", "乙", "丙"}));
        Run({Do("IDD_2010", [](const ModalWindow& window) {
            Choose(window, 2004, 1);
            EXPECT_EQ(EditText(window, 2044), "2");
        })});
        EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), 1);
    }
    g_SunDataSet.SetCurStdIndex(-5);
    Run({Do("IDD_2010", [](const ModalWindow& window) {
        Click(window, 2030);
        EXPECT_EQ(ChoiceText(window, 2004), "甲") << "none was selected, none is deleted";
    })});
    EXPECT_EQ(Names(), (Texts{"甲", "乙", "丙"}));
    EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), 0);
}

TEST_F(StandardsList, RunsTheDialogOfTheNameByItself) {
    const std::pair<const wchar_t*, UINT> variants[] = {{L"Chs", 2009}, {L"Enu", 2013}};
    for (const auto& [language, id] : variants) {
        g_strCurLanguage = language;
        QNewSetStdDlg dialog;
        EXPECT_EQ(dialog.GetTemplateId(), id);
        EXPECT_FALSE(dialog.m_bRename);
        EXPECT_EQ(dialog.m_strName, L"新建标准");
        const Play play({Do(
            "IDD_" + std::to_string(id), [](const ModalWindow& window) { Paste(window, 2026, "x"); }, IDOK)});
        EXPECT_EQ(dialog.DoModal(), IDOK);
        EXPECT_EQ(dialog.m_strName, L"x");
    }
}

TEST_F(StandardsList, KeepsTheNameOfACancelledDialog) {
    QNewSetStdDlg dialog;
    const Play play({Do("IDD_2009",
                        [](const ModalWindow& window) {
                            Paste(window, 2026, "甲");
                            Click(window, IDOK);
                        }),
                     {kTaken}});
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.m_strName, L"新建标准");
}

TEST_F(StandardsList, PassesItsTextsThroughTheLanguageSwitch) {
    const TableSwitch language{{L"新建标准", L"New one"},
                               {L"重命名标准", L"Another name"},
                               {L"标准名称", L"Name"},
                               {L"该名称已经被使用,请修改名称", L"taken"},
                               {L"请输入标准的名称", L"nothing"}};
    Run({Do("IDD_2010",
            [](const ModalWindow& window) {
                Click(window, 2028);
                Click(window, 2029);
            }),
         Do("IDD_2009",
            [](const ModalWindow& window) {
                EXPECT_EQ(window.caption, L"Name");
                EXPECT_EQ(EditText(window, 2026), "New one");
                Type(window, 2026, "");
                Click(window, IDOK);
            }),
         {"nothing"},
         Do("IDD_2009",
            [](const ModalWindow& window) {
                EXPECT_EQ(window.caption, L"Another name");
                Click(window, IDOK);
            }),
         {"taken"}});
}
