// The choices of standard and place in the dialog of the precisions, and its messages about places.
#include "settings/OrvoDataPrecisSetDlg.h"
#include "settings/SettingsDialogs.h"
#include "support/TableSwitch.h"

namespace {

constexpr const char* kManager = "配置管理器...";
constexpr const char* kDatabase = "地区数据库...";
using Texts = std::vector<std::string>;

class PrecisionChoices : public SettingsDialogs {
protected:
    void SetUp() override {
        SettingsDialogs::SetUp();
        AddStandard(L"甲");
        AddStandard(L"乙");
        Analyse(L"北京");
        Analyse(L"宁波");
    }

    static INT_PTR Run(std::vector<Scene> scenes, bool lightPollution = false) {
        const Play play(std::move(scenes));
        OrvoDataPrecisSetDlg dialog(nullptr, lightPollution);
        return dialog.DoModal();
    }

    static std::string City() { return ToUtf8(g_SunDataSet.CurCity().View()); }
    static Texts Analysed() {
        Texts cities;
        for (OrvoCity** slot = g_SunDataSet.m_listCity.GetFirst(); slot; slot = g_SunDataSet.m_listCity.GetNext(slot))
            cities.push_back(ToUtf8((*slot)->m_strName.View()));
        return cities;
    }
    static std::string Place() {
        return ToUtf8(g_SunDataSet.OrvoZoneRecord::m_strCity.View()) + " " + ToUtf8(g_SunDataSet.m_strLongitude.View());
    }
    static void SelectInList(const ModalWindow& window, int id, int row) {
        auto* list = Item<QAbstractItemView>(window, id);
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Home);
        for (int i = 0; i < row; ++i)
            QTest::keyClick(list, Qt::Key_Down);
    }
};

}  // namespace

TEST_F(PrecisionChoices, ListStandardsAndPlacesWithTheWayToMoreBehindThem) {
    g_SunDataSet.SetCurStdIndex(1);
    Run({Do("IDD_2004", [](const ModalWindow& window) {
        EXPECT_EQ(Entries(window, 2004), (Texts{"甲", "乙", kManager}));
        EXPECT_EQ(ChoiceText(window, 2004), "乙");
        EXPECT_EQ(Entries(window, 2005), (Texts{"北京", "宁波", kDatabase}));
        EXPECT_EQ(ChoiceText(window, 2005), "北京");
    })});
    EXPECT_EQ(Place(), "北京 116.4") << "the record of the data set's city";
}

TEST_F(PrecisionChoices, SelectTheChosenStandardAtOnce) {
    Run({Do("IDD_2004", [](const ModalWindow& window) {
        Choose(window, 2004, 1);
        EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), 1);
        Choose(window, 2004, 0);
        EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), 0);
        Choose(window, 2004, 1);
    })});
    EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), 1) << "also after Cancel";
}

TEST_F(PrecisionChoices, RunTheManagerAndListWhatItLeft) {
    Run({Do("IDD_2004",
            [](const ModalWindow& window) {
                Choose(window, 2004, 2);
                EXPECT_EQ(Entries(window, 2004), (Texts{"甲", "乙", "丙", kManager}));
                EXPECT_EQ(ChoiceText(window, 2004), "丙");
            }),
         Do(
             "IDD_2010", [](const ModalWindow& window) { Click(window, 2028); }, IDOK),
         Do(
             "IDD_2009", [](const ModalWindow& window) { Paste(window, 2026, "丙"); }, IDOK)});
    EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), 2);
}

TEST_F(PrecisionChoices, SelectTheCurrentStandardAgainWhenTheManagerIsCancelled) {
    g_SunDataSet.SetCurStdIndex(1);
    Run({Do("IDD_2004",
            [](const ModalWindow& window) {
                Choose(window, 2004, 2);
                EXPECT_EQ(Entries(window, 2004), (Texts{"甲", "乙", kManager}));
                EXPECT_EQ(ChoiceText(window, 2004), "乙");
            }),
         Do("IDD_2010", [](const ModalWindow&) {})});
}

// Standards are deleted and renamed in place, so Cancel of the manager does not bring them back.
TEST_F(PrecisionChoices, ListTheStandardsThatThereAreAfterACancelledManager) {
    g_SunDataSet.SetCurStdIndex(1);
    Run({Do("IDD_2004",
            [](const ModalWindow& window) {
                Choose(window, 2004, 2);
                EXPECT_EQ(Entries(window, 2004), (Texts{"甲", kManager}));
                EXPECT_EQ(ChoiceText(window, 2004), "甲");
            }),
         Do("IDD_2010", [](const ModalWindow& window) { Click(window, 2030); })});
}

TEST_F(PrecisionChoices, DoNotRunTheManagerForLightPollution) {
    g_SunDataSet.SetCurStdIndex(1);
    Run({Do("IDD_2005",
            [](const ModalWindow& window) {
                EXPECT_EQ(Entries(window, 2004), (Texts{"甲", "乙", kManager}));
                Choose(window, 2004, 2);
                EXPECT_EQ(ChoiceText(window, 2004), "乙");
                Choose(window, 2004, 0);
            })},
        true);
    EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), 0);
}

TEST_F(PrecisionChoices, WorkWithoutStandards) {
    g_SunDataSet.m_listStd.Reset();
    Run({Do(
             "IDD_2004",
             [](const ModalWindow& window) {
                 EXPECT_EQ(Entries(window, 2004), Texts{kManager});
                 EXPECT_EQ(ChoiceText(window, 2004), "");
                 Choose(window, 2004, 0);
                 EXPECT_EQ(ChoiceText(window, 2004), "");
             },
             IDOK),
         Do("IDD_2010", [](const ModalWindow&) {})});
    Run({Do("IDD_2005",
            [](const ModalWindow& window) {
                Choose(window, 2004, 0);
                EXPECT_EQ(ChoiceText(window, 2004), "") << "the manager's entry is no standard";
            })},
        true);
}

TEST_F(PrecisionChoices, WorkWithAnIndexThatNoStandardHas) {
    for (const int index : {2, 3, 99, -1, -2147483647}) {
        g_SunDataSet.SetCurStdIndex(index);
        for (const bool glare : {false, true}) {
            std::vector<Scene> scenes = {Do(
                glare ? "IDD_2005" : "IDD_2004",
                [](const ModalWindow& window) {
                    EXPECT_EQ(ChoiceText(window, 2004), "");
                    Choose(window, 2004, 2);
                    EXPECT_EQ(ChoiceText(window, 2004), "");
                },
                IDOK)};
            if (!glare)
                scenes.push_back(Do("IDD_2010", [](const ModalWindow&) {}));
            EXPECT_EQ(Run(std::move(scenes), glare), IDOK);
        }
        EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), index) << "nobody chose another";
    }
}

TEST_F(PrecisionChoices, MakeAListedPlaceTheCurrentOneWhole) {
    Run({Do("IDD_2004", [](const ModalWindow& window) {
        Type(window, 2006, "0.050");
        Choose(window, 2005, 1);
        EXPECT_EQ(ChoiceText(window, 2005), "宁波");
        EXPECT_EQ(EditText(window, 2006), "0.05") << "read and shown again";
    })});
    EXPECT_EQ(City(), "宁波");
    EXPECT_EQ(Place(), "宁波 121.5");
    EXPECT_EQ(g_SunDataSet.m_strProvince, L"浙江");
    EXPECT_EQ(Analysed(), (Texts{"北京", "宁波"}));
}

TEST_F(PrecisionChoices, KeepABadNumberWhenAPlaceIsChosen) {
    Run({Do("IDD_2004",
            [](const ModalWindow& window) {
                Type(window, 2006, "x");
                Choose(window, 2005, 1);
                EXPECT_EQ(EditText(window, 2006), "x");
                EXPECT_EQ(ChoiceText(window, 2005), "宁波");
            }),
         {"请键入一个数字。"}});
    EXPECT_EQ(City(), "宁波");
}

TEST_F(PrecisionChoices, RefuseAListedPlaceThatTheDatabaseDoesNotHave) {
    Analyse(L"仙境");
    Run({Do("IDD_2004",
            [](const ModalWindow& window) {
                Choose(window, 2005, 2);
                EXPECT_EQ(ChoiceText(window, 2005), "北京");
            }),
         {"请在地区数据库中建立仙境的位置数据"}});
    EXPECT_EQ(City(), "北京");
    EXPECT_EQ(Place(), "北京 116.4");
}

TEST_F(PrecisionChoices, TakeAPlaceFromTheDatabase) {
    Run({Do("IDD_2004",
            [](const ModalWindow& window) {
                Choose(window, 2005, 2);
                EXPECT_EQ(Entries(window, 2005), (Texts{"北京", "宁波", "杭州", kDatabase}));
                EXPECT_EQ(ChoiceText(window, 2005), "杭州");
                Choose(window, 2005, 3);
                EXPECT_EQ(Entries(window, 2005), (Texts{"北京", "宁波", "杭州", kDatabase})) << "it is there already";
                EXPECT_EQ(ChoiceText(window, 2005), "杭州");
            }),
         Do(
             "IDD_2008",
             [](const ModalWindow& window) {
                 EXPECT_EQ(EditText(window, 2011), "北京") << "opens on the current place";
                 SelectInList(window, 2022, 1);
                 SelectInList(window, 2025, 0);
             },
             IDOK),
         Do(
             "IDD_2008", [](const ModalWindow& window) { EXPECT_EQ(EditText(window, 2011), "杭州"); }, IDOK)});
    EXPECT_EQ(City(), "杭州");
    EXPECT_EQ(Place(), "杭州 120.2");
    EXPECT_EQ(Analysed(), (Texts{"北京", "宁波", "杭州"}));
}

TEST_F(PrecisionChoices, SelectAPlaceFromTheDatabaseThatIsListed) {
    Run({Do("IDD_2004",
            [](const ModalWindow& window) {
                Choose(window, 2005, 2);
                EXPECT_EQ(Entries(window, 2005), (Texts{"北京", "宁波", kDatabase}));
                EXPECT_EQ(ChoiceText(window, 2005), "宁波");
                EXPECT_EQ(Item<QComboBox>(window, 2005)->currentIndex(), 1);
            }),
         Do(
             "IDD_2008",
             [](const ModalWindow& window) {
                 SelectInList(window, 2022, 1);
                 SelectInList(window, 2025, 1);
             },
             IDOK)});
    EXPECT_EQ(Analysed(), (Texts{"北京", "宁波"}));
}

TEST_F(PrecisionChoices, KeepThePlaceWhenTheDatabaseIsCancelled) {
    Run({Do("IDD_2004",
            [](const ModalWindow& window) {
                Choose(window, 2005, 2);
                EXPECT_EQ(ChoiceText(window, 2005), "北京");
                EXPECT_EQ(Item<QComboBox>(window, 2005)->currentIndex(), 0);
            }),
         Do("IDD_2008", [](const ModalWindow& window) { SelectInList(window, 2022, 1); })});
    EXPECT_EQ(City(), "北京");
    EXPECT_EQ(Place(), "北京 116.4");
}

// A place can bear the name of the entry behind the places.
TEST_F(PrecisionChoices, TellAPlaceFromTheEntryOfItsName) {
    AddPlace(L"别处", L"地区数据库...", L"1", L"2");
    Run({Do("IDD_2004",
            [](const ModalWindow& window) {
                Choose(window, 2005, 2);
                EXPECT_EQ(Entries(window, 2005), (Texts{"北京", "宁波", kDatabase, kDatabase}));
                EXPECT_EQ(Item<QComboBox>(window, 2005)->currentIndex(), 2);
            }),
         Do(
             "IDD_2008", [](const ModalWindow& window) { SelectInList(window, 2022, 2); }, IDOK)});
    EXPECT_EQ(Place(), "地区数据库... 1");
}

TEST_F(PrecisionChoices, ShowTheCurrentPlaceAlsoWhereItWasNeverAnalysed) {
    g_SunDataSet.CurCity() = L"杭州";
    Run({Do("IDD_2004", [](const ModalWindow& window) {
        EXPECT_EQ(Entries(window, 2005), (Texts{"北京", "宁波", kDatabase}));
        EXPECT_EQ(ChoiceText(window, 2005), "杭州");
        Choose(window, 2005, 0);
        EXPECT_EQ(ChoiceText(window, 2005), "北京");
    })});
}

// Places are chosen, so what is typed over the current one goes at once.
TEST_F(PrecisionChoices, PutBackWhatIsTypedOverThePlace) {
    Run({Do(
        "IDD_2004",
        [](const ModalWindow& window) {
            auto* edit = Item<QComboBox>(window, 2005)->lineEdit();
            ASSERT_NE(edit, nullptr);
            edit->setFocus();
            for (const QString& text : {QString("x"), QString::fromUtf8("😀"), QString(10000, 'y'), QString()}) {
                QApplication::clipboard()->setText(text);
                edit->selectAll();
                if (text.isEmpty())
                    QTest::keyClick(edit, Qt::Key_Delete);
                else
                    QTest::keySequence(edit, QKeySequence::Paste);
                EXPECT_EQ(ChoiceText(window, 2005), "北京");
                EXPECT_EQ(Item<QComboBox>(window, 2005)->currentIndex(), 0);
            }
            QTest::keyClicks(edit, "ab");
            EXPECT_EQ(ChoiceText(window, 2005), "北京");
            QTest::keyClick(edit, Qt::Key_Return);
        },
        0)});
    EXPECT_EQ(City(), "北京");
}

TEST_F(PrecisionChoices, TellOfAnUnknownPlaceInBothWordingsAndOpenAllTheSame) {
    g_SunDataSet.CurCity() = L"仙境";
    EXPECT_EQ(Run({{"请在地区数据库中建立仙境的位置数据"},
                   {"请在地区数据库中建立 仙境 的位置数据"},
                   Do(
                       "IDD_2004",
                       [](const ModalWindow& window) {
                           EXPECT_EQ(ChoiceText(window, 2005), "仙境");
                           EXPECT_EQ(Entries(window, 2005), (Texts{"北京", "宁波", kDatabase}));
                       },
                       IDOK)}),
              IDOK);
    EXPECT_EQ(City(), "仙境");
}

TEST_F(PrecisionChoices, TellOfADatabaseWithoutPlacesByBothOfItsNames) {
    g_dictSunZone.RemoveAll();
    EXPECT_EQ(Run({{"未能打开地区数据库Zone.xml!"},
                   {"未能打开地区数据库Zone.dbf!"},
                   Do(
                       "IDD_2004",
                       [](const ModalWindow& window) {
                           EXPECT_EQ(ChoiceText(window, 2005), "北京");
                           Choose(window, 2005, 1);
                           EXPECT_EQ(ChoiceText(window, 2005), "北京");
                           Choose(window, 2005, 2);
                           EXPECT_EQ(ChoiceText(window, 2005), "北京");
                       },
                       IDOK),
                   {"请在地区数据库中建立宁波的位置数据"},
                   Do("IDD_2008", [](const ModalWindow&) {})}),
              IDOK);
}

TEST_F(PrecisionChoices, OwnTheirMessages) {
    g_SunDataSet.CurCity() = L"仙境";
    const auto overDialog = [](const ModalWindow& box) {
        EXPECT_NE(box.owner, nullptr);
        EXPECT_EQ(box.caption, L"日照设置");
        return int{IDOK};
    };
    Run({{"请在地区数据库中建立仙境的位置数据", overDialog},
         {"请在地区数据库中建立 仙境 的位置数据", overDialog},
         Do("IDD_2004", [](const ModalWindow&) {})});
}

TEST_F(PrecisionChoices, PassEveryTextThroughTheLanguageSwitch) {
    const TableSwitch language{{L"请在地区数据库中建立", L"make "},
                               {L"的位置数据", L" known"},
                               {L"请在地区数据库中建立 %s 的位置数据", L"data of %s"},
                               {L"地区数据库...", L"Places..."},
                               {L"配置管理器...", L"Manager..."},
                               {L"毫米", L"mm"},
                               {L"米", L"m"}};
    g_SunDataSet.CurCity() = L"仙境";
    Run({{"make 仙境 known"}, {"data of 仙境"}, Do("IDD_2004", [](const ModalWindow& window) {
             EXPECT_EQ(Entries(window, 2004).back(), "Manager...");
             EXPECT_EQ(Entries(window, 2005).back(), "Places...");
             EXPECT_EQ(Entries(window, 2003), (Texts{"mm", "m"}));
         })});
}

TEST_F(PrecisionChoices, TranslateTheMessagesOfADatabaseWithoutPlaces) {
    const TableSwitch language{{L"未能打开地区数据库Zone.xml!", L"no xml"},
                               {L"未能打开地区数据库Zone.dbf!", L"no dbf"}};
    g_dictSunZone.RemoveAll();
    Run({{"no xml"}, {"no dbf"}, Do("IDD_2004", [](const ModalWindow&) {})});
}

TEST_F(PrecisionChoices, StayAsTheyWereMadeAfterCancel) {
    Run({Do("IDD_2004", [](const ModalWindow& window) {
        Choose(window, 2004, 1);
        Choose(window, 2005, 1);
    })});
    EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), 1);
    EXPECT_EQ(City(), "宁波");
    EXPECT_EQ(g_dictSunSet.GetCount(), 0) << "recorded by OK alone";
}

TEST_F(PrecisionChoices, AreFreshWhenTheSameDialogRunsAgain) {
    const Play play({Do("IDD_2004", [](const ModalWindow& window) { Choose(window, 2005, 1); }),
                     Do("IDD_2004", [](const ModalWindow& window) {
                         EXPECT_EQ(Entries(window, 2005), (Texts{"北京", "宁波", kDatabase}));
                         EXPECT_EQ(Entries(window, 2004), (Texts{"甲", "乙", kManager}));
                         EXPECT_EQ(Entries(window, 2003).size(), 2U);
                         EXPECT_EQ(ChoiceText(window, 2005), "宁波");
                     })});
    OrvoDataPrecisSetDlg dialog(nullptr, false);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}
