// The dialog of the precisions: what it shows, its numbers and their ranges, its unit, and what OK writes.
#include "platform/host/DrawingUnits.h"
#include "settings/OrvoDataPrecisSetDlg.h"
#include "settings/SettingsDialogs.h"
#include "support/DrawingForTests.h"
#include "support/TableSwitch.h"

namespace {

class PrecisionDialog : public SettingsDialogs {
protected:
    void SetUp() override {
        SettingsDialogs::SetUp();
        AddStandard(L"甲");
        AddStandard(L"乙");
        Analyse(L"北京");
    }

    static INT_PTR Run(const std::function<void(const ModalWindow&)>& act, int command = IDCANCEL) {
        const Play play({Do("IDD_2004", act, command)});
        OrvoDataPrecisSetDlg dialog(nullptr, false);
        return dialog.DoModal();
    }
};

std::string MetreDrawing() {
    return "0\nSECTION\n2\nHEADER\n9\n$INSUNITS\n70\n6\n0\nENDSEC\n0\nEOF\n";
}

// What the range of an edit is, by its ends and what lies beside them.
struct Range {
    int edit;
    const char* least;
    const char* below;
    const char* most;
    const char* above;
    const char* message;
};

const Range kRanges[] = {
    {2008, "1e-9", "9.99e-10", "360", "360.0001", "请键入一个介于 1e-09 和 360 之间的数字。"},
    {2006, "1e-9", "0", "1e7", "10000000.1", "请键入一个介于 1e-09 和 10000000 之间的数字。"},
    {2007, "1e-9", "-1", "1e10", "1.0001e10", "请键入一个介于 1e-09 和 10000000000 之间的数字。"},
    {2009, "1e-9", "0.0000000009", "1000", "1000.001", "请键入一个介于 1e-09 和 1000 之间的数字。"},
};

}  // namespace

TEST_F(PrecisionDialog, HasATemplateForEachLanguageAndVariant) {
    const struct {
        const wchar_t* language;
        bool lightPollution;
        UINT id;
        const char* title;
        const char* group;
    } variants[] = {
        {L"Chs", false, 2004, "日照设置", "日照分析标准"}, {L"Chs", true, 2005, "分析设置", "幕墙光污染分析标准"},
        {L"Enu", false, 2015, "日照设置", "日照分析标准"}, {L"Enu", true, 2016, "分析设置", "幕墙光污染分析标准"},
        {L"chs", false, 2015, "日照设置", "日照分析标准"}, {L"", true, 2016, "分析设置", "幕墙光污染分析标准"}};
    for (const auto& variant : variants) {
        g_strCurLanguage = variant.language;
        OrvoDataPrecisSetDlg dialog(nullptr, variant.lightPollution);
        EXPECT_EQ(dialog.GetTemplateId(), variant.id);
        const Play play({Do("IDD_" + std::to_string(variant.id), [&](const ModalWindow& window) {
            EXPECT_EQ(ToUtf8(window.caption.View()), variant.title);
            bool found = false;
            for (const QGroupBox* box : static_cast<QWidget*>(window.widget)->findChildren<QGroupBox*>())
                found = found || box->title().toStdString() == variant.group;
            EXPECT_TRUE(found) << variant.group;
        })});
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    }
}

TEST_F(PrecisionDialog, NamesItsControlsAndHidesTheAnnotation) {
    Run([](const ModalWindow& window) {
        const std::pair<int, const char*> names[] = {{2003, "绘图单位"}, {2004, "当前标准"}, {2005, "地点"},
                                                     {2006, "距离精度"}, {2007, "分弧精度"}, {2008, "角度精度"},
                                                     {2009, "窗偏墙外"}};
        for (const auto& [id, name] : names)
            EXPECT_EQ(Item(window, id)->accessibleName().toStdString(), name);
        EXPECT_FALSE(IsOn(window, 2003)) << "the unit is the drawing's";
        EXPECT_EQ(Enabled(window, {2004, 2005, 2006, 2007, 2008, 2009, 1, 2}).size(), 8U);
        EXPECT_FALSE(Item(window, 2010)->isVisible());
        EXPECT_FALSE(IsOn(window, 2010));
        EXPECT_EQ(Item<QPushButton>(window, 2010)->text().toStdString(), "标注当前设置＜");
        EXPECT_EQ(Item<QPushButton>(window, 1)->text().toStdString(), "确定");
        EXPECT_EQ(Item<QPushButton>(window, 2)->text().toStdString(), "取消");
        EXPECT_TRUE(HasFocus(window, 2004)) << "what is chosen first";
    });
}

TEST_F(PrecisionDialog, BeginsWithItsOwnValuesAndNotWithTheParameters) {
    g_nSunDistPrec = 77.0;
    g_nSunAngPrec = 7.0;
    g_nSunWinOffset = 777.0;
    Run([](const ModalWindow& window) {
        EXPECT_EQ(std::stod(EditText(window, 2008)), 0.00001);
        EXPECT_EQ(EditText(window, 2006), "0.05");
        EXPECT_EQ(EditText(window, 2007), "50");
        EXPECT_EQ(EditText(window, 2009), "5");
        EXPECT_EQ(Entries(window, 2003), (std::vector<std::string>{"毫米", "米"}));
        EXPECT_EQ(ChoiceText(window, 2003), "毫米");
    });
}

TEST_F(PrecisionDialog, ShowsLengthsInMetresForADrawingInMetres) {
    const DrawingForTests drawing(MetreDrawing());
    ASSERT_NE(QcDbGetDrawUnit(), 0);
    Run([](const ModalWindow& window) {
        EXPECT_EQ(std::stod(EditText(window, 2008)), 0.00001) << "an angle";
        EXPECT_EQ(std::stod(EditText(window, 2006)), 0.00005);
        EXPECT_EQ(std::stod(EditText(window, 2007)), 0.05);
        EXPECT_EQ(std::stod(EditText(window, 2009)), 0.005);
        EXPECT_EQ(ChoiceText(window, 2003), "米");
    });
}

// The flag of the maker says which unit is shown; the drawing's own unit scales. They can differ.
TEST_F(PrecisionDialog, TakesTheUnitFromTheFlagAndTheFactorFromTheDrawing) {
    g_bMeterUnitDraw = true;
    Run([](const ModalWindow& window) {
        EXPECT_EQ(ChoiceText(window, 2003), "米");
        EXPECT_EQ(EditText(window, 2006), "0.05");
    });
    g_bMeterUnitDraw = false;
}

TEST_F(PrecisionDialog, TakesNumbersUpToBothEndsOfTheirRanges) {
    for (const Range& range : kRanges)
        for (const char* end : {range.least, range.most})
            EXPECT_EQ(Run([&](const ModalWindow& window) { Type(window, range.edit, end); }, IDOK), IDOK)
                << range.edit << " " << end;
}

TEST_F(PrecisionDialog, RefusesNumbersBesideTheEndsAndStaysOpen) {
    for (const Range& range : kRanges) {
        for (const char* beside : {range.below, range.above}) {
            const Play play({Do("IDD_2004",
                                [&](const ModalWindow& window) {
                                    Type(window, range.edit, beside);
                                    Click(window, IDOK);
                                    EXPECT_TRUE(static_cast<QWidget*>(window.widget)->isVisible());
                                    EXPECT_TRUE(HasFocus(window, range.edit));
                                    EXPECT_EQ(EditText(window, range.edit), beside) << "to be mended";
                                }),
                             {range.message}});
            OrvoDataPrecisSetDlg dialog(nullptr, false);
            EXPECT_EQ(dialog.DoModal(), IDCANCEL);
            EXPECT_EQ(g_nSunDistPrec, 0.05);
            EXPECT_EQ(g_nSunAngPrec, 0.00001);
            EXPECT_EQ(g_nSunWinOffset, 5.0);
            EXPECT_EQ(g_dictSunSet.GetCount(), 0);
        }
    }
}

// The entries are read in this order, and the first bad one is told.
TEST_F(PrecisionDialog, ReadsAngleDistanceArcAndOffsetInThisOrder) {
    const int order[] = {2008, 2006, 2007, 2009};
    const Play play({Do(
                         "IDD_2004",
                         [&](const ModalWindow& window) {
                             for (const int id : order)
                                 Type(window, id, "x");
                             for (const int id : order) {
                                 Click(window, IDOK);
                                 EXPECT_TRUE(HasFocus(window, id)) << id;
                                 Type(window, id, "1");
                             }
                             Click(window, IDOK);
                         },
                         0),
                     {"请键入一个数字。"},
                     {"请键入一个数字。"},
                     {"请键入一个数字。"},
                     {"请键入一个数字。"}});
    OrvoDataPrecisSetDlg dialog(nullptr, false);
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

TEST_F(PrecisionDialog, RefusesWhateverIsNoNumber) {
    const QString entries[] = {
        "", " ", "1,5", "nan", "inf", "1e999", "0x10", "--1", "５", QString::fromUtf8("😀"), QString(10000, '9')};
    for (const QString& entry : entries) {
        const Play play({Do("IDD_2004",
                            [&](const ModalWindow& window) {
                                if (entry.isEmpty())
                                    Type(window, 2006, entry);
                                else
                                    Paste(window, 2006, entry);
                                Click(window, IDOK);
                            }),
                         {"请键入一个数字。"}});
        OrvoDataPrecisSetDlg dialog(nullptr, false);
        EXPECT_EQ(dialog.DoModal(), IDCANCEL) << entry.left(20).toStdString();
    }
}

TEST_F(PrecisionDialog, ScalesTheThreeLengthsWhenTheUnitChanges) {
    Run([](const ModalWindow& window) {
        Item(window, 2003)->setEnabled(true);
        Type(window, 2008, "0.25");
        Type(window, 2006, "2");
        Type(window, 2007, "30");
        Type(window, 2009, "12");
        Choose(window, 2003, 1);
        EXPECT_EQ(EditText(window, 2008), "0.25");
        EXPECT_EQ(EditText(window, 2006), "0.002");
        EXPECT_EQ(EditText(window, 2007), "0.03");
        EXPECT_EQ(EditText(window, 2009), "0.012");
        Type(window, 2006, "0.0020");
        Choose(window, 2003, 1);
        EXPECT_EQ(EditText(window, 2006), "0.002") << "the same unit again: read, shown and not scaled";
        Choose(window, 2003, 0);
        EXPECT_EQ(EditText(window, 2008), "0.25");
        EXPECT_EQ(EditText(window, 2006), "2");
        EXPECT_EQ(EditText(window, 2007), "30");
        EXPECT_EQ(EditText(window, 2009), "12");
    });
}

TEST_F(PrecisionDialog, RestoresMultiplesOfAThousandthExactly) {
    Run([](const ModalWindow& window) {
        Item(window, 2003)->setEnabled(true);
        for (const char* length :
             {"0.001", "0.003", "0.05", "0.007", "1.001", "12.345", "99.999", "333.333", "999.999"}) {
            for (const int id : {2006, 2007, 2009})
                Type(window, id, length);
            Choose(window, 2003, 1);
            Choose(window, 2003, 0);
            for (const int id : {2006, 2007, 2009})
                EXPECT_EQ(EditText(window, id), length) << id;
        }
    });
}

// The lengths stay in the unit in which they were typed, and so does the choice.
TEST_F(PrecisionDialog, KeepsTheUnitWhileAnEntryIsBad) {
    const Play play({Do("IDD_2004",
                        [](const ModalWindow& window) {
                            Item(window, 2003)->setEnabled(true);
                            Type(window, 2006, "many");
                            Choose(window, 2003, 1);
                            EXPECT_EQ(ChoiceText(window, 2003), "毫米");
                            EXPECT_EQ(EditText(window, 2007), "50");
                            Type(window, 2006, "4");
                            Choose(window, 2003, 1);
                            EXPECT_EQ(EditText(window, 2006), "0.004");
                        }),
                     {"请键入一个数字。"}});
    OrvoDataPrecisSetDlg dialog(nullptr, false);
    dialog.DoModal();
}

TEST_F(PrecisionDialog, WritesTheParametersOnOk) {
    EXPECT_EQ(Run(
                  [](const ModalWindow& window) {
                      Type(window, 2008, "0.5");
                      Type(window, 2006, "0.25");
                      Type(window, 2009, "40");
                      Type(window, 2007, "3");
                  },
                  IDOK),
              IDOK);
    EXPECT_EQ(g_nSunAngPrec, 0.5);
    EXPECT_EQ(g_nSunDistPrec, 0.25);
    EXPECT_EQ(g_nSunWinOffset, 40.0);
}

TEST_F(PrecisionDialog, WritesMillimetresForADrawingInMetres) {
    const DrawingForTests drawing(MetreDrawing());
    EXPECT_EQ(Run(
                  [](const ModalWindow& window) {
                      Type(window, 2006, "0.00005");
                      Type(window, 2009, "0.02");
                      Type(window, 2008, "0.5");
                  },
                  IDOK),
              IDOK);
    EXPECT_DOUBLE_EQ(g_nSunDistPrec, 0.05);
    EXPECT_DOUBLE_EQ(g_nSunWinOffset, 20.0);
    EXPECT_EQ(g_nSunAngPrec, 0.5);
}

TEST_F(PrecisionDialog, DividesByTheDrawingsFactorWhateverUnitIsShown) {
    EXPECT_EQ(Run(
                  [](const ModalWindow& window) {
                      Item(window, 2003)->setEnabled(true);
                      Type(window, 2006, "2");
                      Choose(window, 2003, 1);
                  },
                  IDOK),
              IDOK);
    EXPECT_EQ(g_nSunDistPrec, 0.002);
    EXPECT_EQ(g_nSunWinOffset, 0.005);
}

TEST_F(PrecisionDialog, ForgetsArcPrecisionAndUnitFromRunToRun) {
    Run([](const ModalWindow& window) { Type(window, 2007, "3"); }, IDOK);
    Run([](const ModalWindow& window) {
        EXPECT_EQ(EditText(window, 2007), "50");
        EXPECT_EQ(EditText(window, 2006), "0.05");
    });
}

TEST_F(PrecisionDialog, WritesThePlaceAndThePlacesIntoTheDictionaryOnOk) {
    Analyse(L"杭州");
    Run([](const ModalWindow&) {}, IDOK);
    ASSERT_EQ(g_dictSunSet.GetCount(), 1);
    QcDtDictionary* settings = g_dictSunSet.FindDict(L"CUR_SUNSETDATA");
    ASSERT_NE(settings, nullptr);
    EXPECT_EQ(settings->GetLocalName(), L"当前日照设置数据");
    EXPECT_EQ(settings->GetAttributeValue(L"localname"), L"当前日照设置数据");
    ASSERT_EQ(settings->GetCount(), 2);
    const QcDtDictItem* city = settings->GetItem(0);
    EXPECT_EQ(city->GetName(), L"CUR_CITY");
    EXPECT_EQ(city->GetType(), 5);
    EXPECT_EQ(city->GetAttributeValue(L"localname"), L"当前城市");
    EXPECT_EQ(city->GetStringValue(), L"北京");
    const QcDtDictItem* cities = settings->GetItem(1);
    EXPECT_EQ(cities->GetName(), L"ANALYSISED_CITY");
    EXPECT_EQ(cities->GetType(), 5);
    EXPECT_EQ(cities->GetStringValue(), L"北京-杭州");
    EXPECT_EQ(settings->FindItem(L"CUR_STDINDEX"), nullptr) << "never made here";
}

TEST_F(PrecisionDialog, PassesTheLocalNamesThroughTheLanguageSwitch) {
    const TableSwitch language{{L"当前日照设置数据", L"settings"}, {L"当前城市", L"city"}};
    Run([](const ModalWindow&) {}, IDOK);
    QcDtDictionary* settings = g_dictSunSet.FindDict(L"CUR_SUNSETDATA");
    ASSERT_NE(settings, nullptr);
    EXPECT_EQ(settings->GetLocalName(), L"settings");
    EXPECT_EQ(settings->GetAttributeValue(L"localname"), L"settings");
    EXPECT_EQ(settings->FindItem(L"CUR_CITY")->GetAttributeValue(L"localname"), L"city");
}

TEST_F(PrecisionDialog, WritesTheIndexWhereTheDictionaryHasOne) {
    QcDtDictionary* settings = g_dictSunSet.FindOrAddDict(L"CUR_SUNSETDATA");
    settings->FindOrAddItem(L"CUR_STDINDEX", 3)->SetIntValue(7);
    settings->FindOrAddItem(L"CUR_SPACE", 4)->SetDoubleValue(2.5);
    Run([](const ModalWindow& window) { Choose(window, 2004, 1); }, IDOK);
    EXPECT_EQ(settings->FindItem(L"CUR_STDINDEX")->GetIntValue(), 1);
    EXPECT_EQ(settings->FindItem(L"CUR_SPACE")->GetDoubleValue(), 2.5) << "the rest stays";
    EXPECT_EQ(settings->GetCount(), 4);
}

TEST_F(PrecisionDialog, WritesTheParametersAlsoWhereTheDictionaryTakesNothing) {
    g_dictSunSet.FindOrAddItem(L"CUR_SUNSETDATA", 5)->SetStringValue(L"in the way");
    EXPECT_EQ(Run([](const ModalWindow& window) { Type(window, 2009, "9"); }, IDOK), IDOK);
    EXPECT_EQ(g_nSunWinOffset, 9.0);
    ASSERT_EQ(g_dictSunSet.GetCount(), 1);
    EXPECT_EQ(g_dictSunSet.GetItem(0)->GetStringValue(), L"in the way");
}

TEST_F(PrecisionDialog, WritesNothingOnCancel) {
    Run([](const ModalWindow& window) {
        Type(window, 2006, "1");
        Type(window, 2008, "1");
        Type(window, 2009, "1");
    });
    EXPECT_EQ(g_nSunAngPrec, 0.00001);
    EXPECT_EQ(g_nSunDistPrec, 0.05);
    EXPECT_EQ(g_nSunWinOffset, 5.0);
    EXPECT_EQ(g_dictSunSet.GetCount(), 0);
}

TEST_F(PrecisionDialog, AnnotatesAsOkDoes) {
    EXPECT_EQ(Run(
                  [](const ModalWindow& window) {
                      Type(window, 2009, "8");
                      Item(window, 2010)->setEnabled(true);
                      Item(window, 2010)->show();
                      Click(window, 2010);
                  },
                  0),
              IDOK);
    EXPECT_EQ(g_nSunWinOffset, 8.0);
    EXPECT_NE(g_dictSunSet.FindDict(L"CUR_SUNSETDATA"), nullptr);
}

TEST_F(PrecisionDialog, CanBeUsedByKeysAlone) {
    EXPECT_EQ(Run(
                  [](const ModalWindow& window) {
                      const auto press = [](int key) { QTest::keyClick(QApplication::focusWidget(), Qt::Key(key)); };
                      const int stops[] = {2004, 2005, 2006, 2007, 2008, 2009, 1, 2};
                      for (const int stop : stops) {
                          EXPECT_TRUE(HasFocus(window, stop)) << stop;
                          press(Qt::Key_Tab);
                      }
                      EXPECT_TRUE(HasFocus(window, 2004)) << "round again";
                      press(Qt::Key_Down);
                      press(Qt::Key_Tab);
                      press(Qt::Key_Tab);
                      EXPECT_EQ(Item<QLineEdit>(window, 2006)->selectedText(), "0.05");
                      QTest::keyClicks(QApplication::focusWidget(), "0.5");
                      press(Qt::Key_Return);
                  },
                  0),
              IDOK);
    EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), 1);
    EXPECT_EQ(g_nSunDistPrec, 0.5);
    EXPECT_EQ(Run([](const ModalWindow&) { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); }, 0),
              IDCANCEL);
}
