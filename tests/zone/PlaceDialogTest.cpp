// The choice of a place, in its real widgets.
#include "window/DialogForTests.h"
#include "zone/PlaceStage.h"

namespace {

using PlaceDialog = PlaceStage;

// Two provinces with a city of one name each, and a province that is there twice.
const char* const kRepeated =
    "<乙><同 longitude=\"1\" latitude=\"1\" comment=\"of 乙\"/><b longitude=\"2\" latitude=\"2\"/></乙>"
    "<甲><同 longitude=\"3\" latitude=\"3\" comment=\"of 甲\"/><a longitude=\"4\" latitude=\"4\"/></甲>"
    "<乙><c longitude=\"5\" latitude=\"5\"/><同 longitude=\"6\" latitude=\"6\"/></乙>";

}  // namespace

TEST_F(PlaceDialog, TakesTheTemplateOfTheLanguage) {
    Load(kTwoProvinces);
    EXPECT_EQ(OrvoPlaceDlg().GetTemplateId(), 2008U);
    for (const wchar_t* language : {L"Enu", L"chs", L"", L"Cht"}) {
        g_strCurLanguage = language;
        EXPECT_EQ(OrvoPlaceDlg().GetTemplateId(), 2014U);
    }
}

TEST_F(PlaceDialog, HasItsCaptionAndControls) {
    Load(kTwoProvinces);
    for (const wchar_t* language : {L"Chs", L"Enu"}) {
        g_strCurLanguage = language;
        Show([](const OpenPlaces& places) {
            EXPECT_EQ(places.window.caption, L"地区");
            const std::pair<int, const char*> texts[] = {{1, "确定"},     {2, "取消"},          {2015, "地区:"},
                                                         {2016, "经度:"}, {2017, "说明:"},      {2018, "纬度:"},
                                                         {2019, "省份"},  {2020, "地区和城市"}, {2021, "编辑数据文件"}};
            for (const auto& [id, text] : texts) {
                CString shown;
                places.dialog.GetDlgItemText(id, shown);
                EXPECT_EQ(ToUtf8(shown.View()), text) << id;
                EXPECT_TRUE(ControlOf(places.window, id)->isVisible()) << id;
            }
            for (const int id : {2011, 2012, 2013, 2014}) {
                auto* edit = ControlOf<QLineEdit>(places.window, id);
                ASSERT_NE(edit, nullptr) << id;
                EXPECT_TRUE(edit->isReadOnly()) << id;
            }
            EXPECT_FALSE(places.provinces.isSortingEnabled());
            EXPECT_FALSE(places.cities.isSortingEnabled());
            EXPECT_TRUE(places.provinces.hasFocus()) << "the first thing to choose";
        });
    }
}

TEST_F(PlaceDialog, OpensOnTheFirstPlace) {
    Load(kTwoProvinces);
    Show([](const OpenPlaces& places) {
        EXPECT_EQ(EntriesOf(places.provinces), (Texts{"甲", "乙"}));
        EXPECT_EQ(EntriesOf(places.cities), (Texts{"A", "B"}));
        EXPECT_EQ(places.provinces.currentRow(), 0);
        EXPECT_EQ(places.cities.currentRow(), 0);
        EXPECT_EQ(places.Fields(), (Texts{"A", "116度28分", " 39度54分", "note A"}));
    });
}

TEST_F(PlaceDialog, ListsProvincesAsTheyFirstAppear) {
    Load(kRepeated);
    Show([](const OpenPlaces& places) {
        EXPECT_EQ(EntriesOf(places.provinces), (Texts{"乙", "甲"})) << "each once, and not sorted";
        EXPECT_EQ(EntriesOf(places.cities), (Texts{"同", "b", "c", "同"})) << "the cities of both of its dictionaries";
    });
}

TEST_F(PlaceDialog, TellsProvincesApartByTheirCase) {
    Load("<ab><x/></ab><AB><y/></AB><abc><z/></abc>");
    Show([](const OpenPlaces& places) {
        EXPECT_EQ(EntriesOf(places.provinces), (Texts{"ab", "AB", "abc"}));
        places.provinces.setCurrentRow(1);
        EXPECT_EQ(EntriesOf(places.cities), (Texts{"y"}));
    });
}

TEST_F(PlaceDialog, FindsTheFirstCityOfANameInAnyProvince) {
    Load(kRepeated);
    OrvoPlaceDlg dialog;
    OrvoZoneRecord record;
    EXPECT_TRUE(dialog.FindZone(L"同", record));
    EXPECT_EQ(record.m_strProvince, L"乙");
    EXPECT_EQ(record.m_strCity, L"同");
    EXPECT_EQ(record.m_strLongitude, L"1");
    EXPECT_EQ(record.m_strLatitude, L"1");
    EXPECT_EQ(record.m_strComment, L"of 乙");
    EXPECT_TRUE(dialog.FindZone(L"c", record));
    EXPECT_EQ(record.m_strLongitude, L"5");
    EXPECT_EQ(dialog.GetCurZone().m_strCity, L"c");
}

TEST_F(PlaceDialog, ChangesNothingForACityThatIsNotThere) {
    Load(kRepeated);
    OrvoPlaceDlg dialog;
    OrvoZoneRecord record;
    ASSERT_TRUE(dialog.FindZone(L"a", record));
    for (const wchar_t* name : {L"A", L"", L"a ", L"甲", L"aa"})
        EXPECT_FALSE(dialog.FindZone(name, record)) << ToUtf8(name);
    EXPECT_EQ(record.m_strCity, L"a");
    EXPECT_EQ(dialog.GetCurZone().m_strCity, L"a");
}

TEST_F(PlaceDialog, OpensOnTheCityThatWasFound) {
    Load(kRepeated);
    const auto find = [](OrvoPlaceDlg& dialog) {
        OrvoZoneRecord record;
        EXPECT_TRUE(dialog.FindZone(L"a", record));
    };
    Show(
        [](const OpenPlaces& places) {
            EXPECT_EQ(places.provinces.currentRow(), 1);
            EXPECT_EQ(EntriesOf(places.cities), (Texts{"同", "a"}));
            EXPECT_EQ(places.cities.currentRow(), 1);
            EXPECT_EQ(places.Fields()[0], "a");
            EXPECT_EQ(places.dialog.GetCurZone().m_strLongitude, L"4");
        },
        find);
}

TEST_F(PlaceDialog, OpensOnACityOfAProvinceThatIsThereTwice) {
    Load(kRepeated);
    Show(
        [](const OpenPlaces& places) {
            EXPECT_EQ(places.provinces.currentRow(), 0);
            EXPECT_EQ(places.cities.currentRow(), 2);
        },
        [](OrvoPlaceDlg& dialog) {
            OrvoZoneRecord record;
            dialog.FindZone(L"c", record);
        });
}

TEST_F(PlaceDialog, ShowsTheCitiesOfTheProvinceThatIsChosen) {
    Load(kRepeated);
    Show([](const OpenPlaces& places) {
        places.cities.setCurrentRow(3);
        EXPECT_EQ(places.dialog.GetCurZone().m_strLongitude, L"6");
        places.provinces.setCurrentRow(1);
        EXPECT_EQ(EntriesOf(places.cities), (Texts{"同", "a"}));
        EXPECT_EQ(places.cities.currentRow(), 0) << "the first one";
        EXPECT_EQ(places.Fields(), (Texts{"同", "  3度 0分", "  3度 0分", "of 甲"}));
        EXPECT_EQ(places.dialog.GetCurZone().m_strProvince, L"甲");
        EXPECT_EQ(places.dialog.GetCurZone().m_strLongitude, L"3");
        places.provinces.setCurrentRow(0);
        EXPECT_EQ(EntriesOf(places.cities), (Texts{"同", "b", "c", "同"}));
    });
}

TEST_F(PlaceDialog, ShowsTheCityThatIsChosen) {
    Load(kTwoProvinces);
    Show([](const OpenPlaces& places) {
        places.cities.setCurrentRow(1);
        EXPECT_EQ(places.Fields(), (Texts{"B", "121度30分", " 31度15分", "note B"}));
        EXPECT_EQ(places.dialog.GetCurZone().m_strCity, L"B");
        EXPECT_EQ(places.dialog.GetCurZone().m_strComment, L"note B");
    });
}

TEST_F(PlaceDialog, ClosesWithADoubleClickOnACityAsWithOk) {
    Load(kTwoProvinces);
    OrvoZoneRecord chosen;
    EXPECT_EQ(Show(
                  [](const OpenPlaces& places) {
                      const QPoint second = places.cities.visualItemRect(places.cities.item(1)).center();
                      QTest::mouseClick(places.cities.viewport(), Qt::LeftButton, Qt::NoModifier, second);
                      QTest::mouseDClick(places.cities.viewport(), Qt::LeftButton, Qt::NoModifier, second);
                  },
                  nullptr, [&chosen](OrvoPlaceDlg& dialog) { chosen = dialog.GetCurZone(); }),
              IDOK);
    EXPECT_EQ(chosen.m_strCity, L"B");
}

TEST_F(PlaceDialog, StaysOpenAfterADoubleClickOnAProvince) {
    Load(kTwoProvinces);
    EXPECT_EQ(Show([](const OpenPlaces& places) {
                  const QPoint second = places.provinces.visualItemRect(places.provinces.item(1)).center();
                  QTest::mouseDClick(places.provinces.viewport(), Qt::LeftButton, Qt::NoModifier, second);
                  EXPECT_TRUE(places.provinces.isVisible());
              }),
              IDCANCEL);
}

TEST_F(PlaceDialog, GivesACopyOfTheWholeRecord) {
    Load("<甲><A longitude=\" 1.50\" latitude=\"x\" comment=\"note\">value</A></甲>");
    OrvoPlaceDlg dialog;
    EXPECT_TRUE(dialog.IsZoneDBReady());
    const OrvoZoneRecord record = dialog.GetCurZone();
    EXPECT_EQ(record.m_strProvince, L"甲");
    EXPECT_EQ(record.m_strCity, L"A");
    EXPECT_EQ(record.m_strLongitude, L" 1.50") << "as it stands in the tree";
    EXPECT_EQ(record.m_strLatitude, L"x");
    EXPECT_EQ(record.m_strComment, L"note") << "the attribute, not the value";
}

TEST_F(PlaceDialog, LooksAtTwoLevelsOnly) {
    Load(
        "<top longitude=\"1\" latitude=\"1\"/>"
        "<外><a longitude=\"1\" latitude=\"1\"/><内><b longitude=\"2\" latitude=\"2\"/></内></外>");
    OrvoPlaceDlg dialog;
    OrvoZoneRecord record;
    EXPECT_FALSE(dialog.FindZone(L"top", record)) << "a city outside of the provinces";
    EXPECT_FALSE(dialog.FindZone(L"b", record)) << "a city of a nested province";
    EXPECT_TRUE(dialog.FindZone(L"内", record)) << "every item of a province is listed";
    EXPECT_EQ(record.m_strProvince, L"外");
}

TEST_F(PlaceDialog, OpensWithoutAnyPlaces) {
    Load("<甲 dt:kind=\"0\"/>");
    ASSERT_EQ(g_dictSunZone.GetItem(0)->GetType(), 0);
    EXPECT_EQ(Show([](const OpenPlaces& places) {
                  EXPECT_FALSE(places.dialog.IsZoneDBReady());
                  EXPECT_EQ(EntriesOf(places.provinces), Texts());
                  EXPECT_EQ(EntriesOf(places.cities), Texts());
                  EXPECT_EQ(places.dialog.GetCurZone().m_strCity, L"未定义");
                  EXPECT_EQ(places.dialog.GetCurZone().m_strLongitude, L"0.0");
                  OrvoZoneRecord record;
                  EXPECT_FALSE(places.dialog.FindZone(L"A", record));
                  Press(places.window, IDOK);
              }),
              IDOK);
    EXPECT_TRUE(m_lines.empty()) << "nothing is reported";
}

TEST_F(PlaceDialog, TakesThePlacesWhenItIsMade) {
    Load(kTwoProvinces);
    OrvoPlaceDlg dialog;
    g_dictSunZone.RemoveAll();
    OrvoZoneRecord record;
    EXPECT_TRUE(dialog.FindZone(L"C", record));
    EXPECT_FALSE(OrvoPlaceDlg().IsZoneDBReady());
}

TEST_F(PlaceDialog, RunsWithTheModulesResourcesAndGivesThemBack) {
    Load(kTwoProvinces);
    const HINSTANCE before = AfxGetResourceHandle();
    QcDtDictionary* const language = g_pCurModuleLang;
    Show([](const OpenPlaces&) { EXPECT_EQ(AfxGetResourceHandle(), GetModuleResourceHandle()); });
    EXPECT_EQ(AfxGetResourceHandle(), before);
    EXPECT_EQ(g_pCurModuleLang, language);
}

TEST_F(PlaceDialog, RunsAgainWhereItWas) {
    Load(kTwoProvinces);
    OrvoPlaceDlg dialog;
    ShowDialog(dialog, [](const OpenPlaces& places) { places.provinces.setCurrentRow(1); });
    ShowDialog(dialog, [](const OpenPlaces& places) {
        EXPECT_EQ(EntriesOf(places.provinces), (Texts{"甲", "乙"}));
        EXPECT_EQ(places.provinces.currentRow(), 1);
        EXPECT_EQ(places.Fields()[0], "C");
    });
}

TEST_F(PlaceDialog, IsUsedByTheKeyboardAlone) {
    Load(kRepeated);
    OrvoZoneRecord chosen;
    EXPECT_EQ(Show(
                  [](const OpenPlaces& places) {
                      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
                      EXPECT_EQ(EntriesOf(places.cities), (Texts{"同", "a"}));
                      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                      EXPECT_EQ(QApplication::focusWidget(), &places.cities) << "the fields are only to be read";
                      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
                      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                      EXPECT_EQ(QApplication::focusWidget(), ControlOf(places.window, 2021));
                      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                      EXPECT_EQ(QApplication::focusWidget(), ControlOf(places.window, 1));
                      places.cities.setFocus();
                      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
                  },
                  nullptr, [&chosen](OrvoPlaceDlg& dialog) { chosen = dialog.GetCurZone(); }),
              IDOK);
    EXPECT_EQ(chosen.m_strCity, L"a");
}

TEST_F(PlaceDialog, ShowsNamesOfAnyLengthAndKind) {
    const std::wstring longText(10000, L'长');
    Load(kTwoProvinces);
    auto* province = static_cast<QcDtDictionary*>(g_dictSunZone.GetItem(0));
    province->SetName(longText.c_str());
    province->GetItem(0)->SetName((longText + L"😀").c_str());
    province->GetItem(0)->SetAttributeValue(L"comment", longText.c_str());
    g_dictSunZone.GetItem(1)->SetName(L"😀\n&amp;");
    CString chosenProvince;
    CString chosenCity;
    EXPECT_EQ(Run([&] { return SunZoneDlgDoModal(chosenProvince, chosenCity, nullptr); },
                  [&longText](const ModalWindow& window) {
                      InPlaces(window, [&](const OpenPlaces& places) {
                          EXPECT_EQ(places.Fields()[0], ToUtf8(longText) + "😀");
                          EXPECT_EQ(places.Fields()[3], ToUtf8(longText));
                          places.provinces.setCurrentRow(1);
                          EXPECT_EQ(places.Fields()[0], "C") << "found by the name in the list";
                          places.provinces.setCurrentRow(0);
                          Press(window, IDOK);
                      });
                  }),
              IDOK);
    EXPECT_EQ(chosenProvince, longText.c_str());
    EXPECT_EQ(chosenCity, (longText + L"😀").c_str());
}

TEST_F(PlaceDialog, GivesProvinceAndCityFromTheExportedFunction) {
    Load(kTwoProvinces);
    CString province = L"given";
    CString city = L"B";
    const HINSTANCE before = AfxGetResourceHandle();
    EXPECT_EQ(Run([&] { return SunZoneDlgDoModal(province, city, nullptr); },
                  [](const ModalWindow& window) {
                      InPlaces(window, [&](const OpenPlaces& places) {
                          EXPECT_EQ(places.Fields()[0], "B") << "opens on the city that was given";
                          places.provinces.setCurrentRow(1);
                          Press(window, IDOK);
                      });
                  }),
              IDOK);
    EXPECT_EQ(province, L"乙");
    EXPECT_EQ(city, L"C");
    EXPECT_EQ(AfxGetResourceHandle(), before);
}

TEST_F(PlaceDialog, RunsFromTheExportedFunctionOverTheParentThatIsGiven) {
    Load(kTwoProvinces);
    DialogForTests parent("PUSHBUTTON \"x\", 7, 1, 1, 40, 14\n");
    parent.Run([&parent](const ModalWindow&) {
        CString province;
        CString city;
        Run([&] { return SunZoneDlgDoModal(province, city, &parent); },
            [&parent](const ModalWindow& window) { EXPECT_EQ(window.owner, parent.GetSafeHwnd()); });
    });
}

TEST_F(PlaceDialog, LeavesTheTextsAloneWhenTheExportedFunctionIsCancelled) {
    Load(kTwoProvinces);
    CString province = L"given";
    CString city = L"unknown";
    EXPECT_EQ(Run([&] { return SunZoneDlgDoModal(province, city, nullptr); },
                  [](const ModalWindow& window) {
                      InPlaces(window, [](const OpenPlaces& places) {
                          EXPECT_EQ(places.Fields()[0], "A") << "a city that is unknown presets nothing";
                          places.provinces.setCurrentRow(1);
                      });
                  }),
              IDCANCEL);
    EXPECT_EQ(province, L"given");
    EXPECT_EQ(city, L"unknown");
}

TEST_F(PlaceDialog, FindsByTypingInTheLists) {
    Load(
        "<安徽><合肥 longitude=\"117\" latitude=\"31\"/><宿州 longitude=\"116\" latitude=\"33\"/></安徽>"
        "<江苏><南京 longitude=\"118\" latitude=\"32\"/><苏州 longitude=\"120\" latitude=\"31\"/></江苏>");
    Show([](const OpenPlaces& places) {
        QTest::keyClicks(&places.provinces, "jiang");
        EXPECT_EQ(EntriesOf(places.cities), (Texts{"南京", "苏州"})) << "the province's cities follow";
        places.cities.setFocus();
        QTest::keyClicks(&places.cities, "suz");
        EXPECT_EQ(places.Fields().front(), "苏州");
        EXPECT_EQ(places.dialog.GetCurZone().m_strCity, L"苏州");
    });
}
