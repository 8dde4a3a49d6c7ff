// What the dialogs of the settings share, in a dialog of the test's own that has all of its controls.
#include "platform/base/Abandon.h"
#include "platform/window/HostFrame.h"
#include "platform/window/QcUiDialog.h"
#include "settings/OrvoDataSetDlgBase.h"
#include "settings/SettingsDialogs.h"

namespace {

using Texts = std::vector<std::string>;

// An analysis's dialog: times, day, place and standard in one. Which of its controls it attaches is the test's choice.
class AnalysisDialog : public QcUiDialog, public OrvoDataSetDlgBase {
public:
    AnalysisDialog() : QcUiDialog(7) {}

    bool m_hasStandards = false;
    bool m_hasPlaces = true;
    bool m_attaches = true;
    std::function<void()> m_onInit;

    BOOL OnInitDialog() override {
        QcUiDialog::OnInitDialog();
        if (m_attaches) {
            m_comboStd.SubclassDlgItem(10, this);
            m_comboPlace.SubclassDlgItem(11, this);
            m_comboTerm.SubclassDlgItem(12, this);
            m_datePicker.SubclassDlgItem(13, this);
            m_editStart.SubclassDlgItem(14, this);
            m_editEnd.SubclassDlgItem(15, this);
            m_spinSpace.SubclassDlgItem(17, this);
        }
        if (m_hasPlaces)
            CreatPlaceDlg(this);
        InitDlgBaseData(m_hasStandards);
        if (m_onInit)
            m_onInit();
        return TRUE;
    }

    OrvoPlaceDlg* PlaceDlg() const { return m_pPlaceDlg; }
    CSpinButtonCtrl& Spin() { return m_spinSpace; }
};

class DataSetDlgBase : public SettingsDialogs {
protected:
    void SetUp() override {
        SettingsDialogs::SetUp();
        m_script = SourceText("module/resources/Resource.h") + SourceText("module/resources/OrvoDataBase.rc") +
                   "\n7 DIALOGEX 0, 0, 200, 150\nSTYLE WS_POPUP | WS_CAPTION\nCAPTION \"analysis\"\n"
                   "FONT 9, \"MS Shell Dlg\"\nBEGIN\n"
                   "COMBOBOX 10, 7, 7, 90, 80, CBS_DROPDOWNLIST\nCOMBOBOX 11, 7, 25, 90, 80, CBS_DROPDOWN\n"
                   "COMBOBOX 12, 7, 43, 90, 80, CBS_DROPDOWNLIST\n"
                   "CONTROL \"\", 13, \"SysDateTimePick32\", WS_TABSTOP, 7, 61, 90, 14\n"
                   "EDITTEXT 14, 7, 79, 40, 14\nEDITTEXT 15, 57, 79, 40, 14\nEDITTEXT 16, 7, 97, 40, 14\n"
                   "CONTROL \"\", 17, \"msctls_updown32\", UDS_AUTOBUDDY | UDS_SETBUDDYINT, 47, 97, 10, 14\n"
                   "DEFPUSHBUTTON \"OK\", 1, 7, 120, 40, 14\nPUSHBUTTON \"Cancel\", 2, 57, 120, 40, 14\nEND\n";
        ASSERT_TRUE(AfxSetResourceText(nullptr, m_script));
        OrvoStdSet& standard = AddStandard(L"甲");
        standard.m_dgStartTime = OrvoDegree(8, 30, 0);
        standard.m_dgEndTime = OrvoDegree(16, 15, 0);
        AddStandard(L"乙");
        g_SunDataSet.m_date = OrvoDate(2025, 6, 5);
    }

    std::string m_script;
};

}  // namespace

TEST_F(DataSetDlgBase, FillsTheControlsFromTheDataSet) {
    Analyse(L"杭州");
    Analyse(L"北京");
    const Play play({Do("IDD_7", [](const ModalWindow& window) {
        EXPECT_EQ(Entries(window, 10), (Texts{"甲", "乙"}));
        EXPECT_EQ(ChoiceText(window, 10), "甲");
        EXPECT_EQ(Entries(window, 11), (Texts{"杭州", "北京", "地区数据库..."}));
        EXPECT_EQ(ChoiceText(window, 11), "北京");
        EXPECT_EQ(Entries(window, 12).size(), 24U);
        EXPECT_EQ(Item<QComboBox>(window, 12)->currentIndex(), -1) << "June 5th is no day of a term";
        EXPECT_EQ(Item<QDateEdit>(window, 13)->date(), QDate(2025, 6, 5)) << "the settings' own day";
        EXPECT_EQ(Item<QDateEdit>(window, 13)->time(), QTime(0, 0));
        EXPECT_EQ(EditText(window, 14), "09:00");
        EXPECT_EQ(EditText(window, 15), "15:00");
    })});
    AnalysisDialog dialog;
    int lower = 0;
    int upper = 0;
    dialog.m_onInit = [&] { dialog.Spin().GetRange(lower, upper); };
    dialog.DoModal();
    EXPECT_EQ(lower, 1);
    EXPECT_EQ(upper, 60);
    EXPECT_EQ(g_SunDataSet.m_strLongitude, L"116.4") << "the place was looked up into the data set";
}

TEST_F(DataSetDlgBase, FillsTheControlsFromTheCurrentStandard) {
    g_SunDataSet.CurCity() = L"仙境";
    const Play play({Do("IDD_7", [](const ModalWindow& window) {
        EXPECT_EQ(Entries(window, 10), (Texts{"甲", "乙"}));
        EXPECT_EQ(Entries(window, 11), Texts{}) << "places are no part of standards";
        EXPECT_EQ(Item<QComboBox>(window, 12)->currentIndex(), 0);
        EXPECT_EQ(Item<QDateEdit>(window, 13)->date(), QDate(2026, 12, 22));
        EXPECT_EQ(EditText(window, 14), "08:30");
        EXPECT_EQ(EditText(window, 15), "16:15");
    })});
    AnalysisDialog dialog;
    dialog.m_hasStandards = true;
    dialog.DoModal();
}

TEST_F(DataSetDlgBase, SelectsTheTermOfTheSettingsOwnDay) {
    g_SunDataSet.m_date = OrvoDate(2025, 12, 22);
    const Play play({Do("IDD_7", [](const ModalWindow& window) { EXPECT_EQ(ChoiceText(window, 12), "冬至"); })});
    AnalysisDialog().DoModal();
}

TEST_F(DataSetDlgBase, PassesOverControlsThatADialogDoesNotHave) {
    for (const bool standards : {false, true}) {
        const Play play({Do("IDD_7", [](const ModalWindow& window) {
            EXPECT_EQ(Entries(window, 10), Texts{});
            EXPECT_EQ(EditText(window, 14), "");
        })});
        AnalysisDialog dialog;
        dialog.m_attaches = false;
        dialog.m_hasStandards = standards;
        dialog.DoModal();
    }
}

TEST_F(DataSetDlgBase, TellsOnceOfAPlaceThatIsUnknown) {
    g_SunDataSet.CurCity() = L"仙境";
    const Play play({{"请在地区数据库中建立 仙境 的位置数据"}, Do("IDD_7", [](const ModalWindow& window) {
                         EXPECT_EQ(Entries(window, 11), Texts{"地区数据库..."});
                         EXPECT_EQ(ChoiceText(window, 11), "仙境");
                     })});
    AnalysisDialog().DoModal();
}

TEST_F(DataSetDlgBase, TellsOfMissingPlacesByTheFilesOldName) {
    g_dictSunZone.RemoveAll();
    const Play play({{"未能打开地区数据库Zone.dbf!"}, Do("IDD_7", [](const ModalWindow&) {})});
    AnalysisDialog().DoModal();
}

// Whoever has the controls elsewhere than in a dialog of its own.
TEST_F(DataSetDlgBase, TellsOfPlacesAlsoWhenItIsNoWindow) {
    OrvoDataSetDlgBase base;
    base.CreatPlaceDlg(nullptr);
    g_SunDataSet.CurCity() = L"仙境";
    CWnd frame;
    const auto overFrame = [&frame](const ModalWindow& window) {
        EXPECT_EQ(window.owner, frame.GetSafeHwnd());
        return IDOK;
    };
    const Play play({{"请在地区数据库中建立 仙境 的位置数据", overFrame},
                     {"请在地区数据库中建立 仙境 的位置数据", overFrame},
                     {"未能打开地区数据库Zone.dbf!", overFrame}});
    base.InitDlgBaseData(false);

    QWidget window;
    ASSERT_TRUE(AttachFrame(frame, &window));
    acedSetAcadFrame(&frame);
    base.InitDlgBaseData(false);
    g_dictSunZone.RemoveAll();
    base.CreatPlaceDlg(nullptr);
    base.InitDlgBaseData(false);
    acedSetAcadFrame(nullptr);

    base.InitDlgBaseData(true);  // standards have no place
}

TEST_F(DataSetDlgBase, GivesNothingWithoutAPlaceDialog) {
    OrvoDataSetDlgBase base;
    OrvoZoneRecord record;
    record.m_strCity = L"unchanged";
    EXPECT_FALSE(base.FindPlaceDlgZone(L"北京", record));
    EXPECT_EQ(record.m_strCity, L"unchanged");
    EXPECT_EQ(base.GetPlaceDlgCurZone().m_strCity, L"未定义");
    const Play play({});
    EXPECT_EQ(base.PlaceDlgDoModal(), 0);
}

TEST_F(DataSetDlgBase, LooksPlacesUpInItsPlaceDialog) {
    OrvoDataSetDlgBase base;
    const OrvoPlaceDlg* dialog = base.CreatPlaceDlg(nullptr);
    ASSERT_NE(dialog, nullptr);
    OrvoZoneRecord record;
    EXPECT_TRUE(base.FindPlaceDlgZone(L"宁波", record));
    EXPECT_EQ(record.m_strLongitude, L"121.5");
    EXPECT_EQ(base.GetPlaceDlgCurZone().m_strCity, L"宁波");
    EXPECT_FALSE(base.FindPlaceDlgZone(L"仙境", record));
    EXPECT_EQ(base.GetPlaceDlgCurZone().m_strCity, L"宁波");
}

// Somebody may hold the one before.
TEST_F(DataSetDlgBase, AbandonsThePlaceDialogThatItReplaces) {
    const std::size_t before = AbandonedCount();
    OrvoDataSetDlgBase base;
    OrvoPlaceDlg* first = base.CreatPlaceDlg(nullptr);
    EXPECT_EQ(AbandonedCount(), before) << "there was none";
    OrvoPlaceDlg* second = base.CreatPlaceDlg(nullptr);
    EXPECT_NE(first, second);
    EXPECT_EQ(AbandonedCount(), before + 1);
    EXPECT_EQ(first->GetCurZone().m_strCity, L"北京") << "still alive";
    delete first;
}

TEST_F(DataSetDlgBase, TakesThePlaceOfThePlaceDialogOnOk) {
    const Play play({Do(
        "IDD_2008", [](const ModalWindow&) {}, IDOK)});
    OrvoDataSetDlgBase base;
    OrvoZoneRecord record;
    base.CreatPlaceDlg(nullptr)->FindZone(L"杭州", record);
    const std::size_t before = AbandonedCount();
    EXPECT_EQ(base.PlaceDlgDoModal(), IDOK);
    EXPECT_EQ(AbandonedCount(), before) << "the one that ran is deleted";
    EXPECT_EQ(g_SunDataSet.CurCity(), L"杭州");
    EXPECT_EQ(g_SunDataSet.OrvoZoneRecord::m_strCity, L"杭州");
    EXPECT_EQ(g_SunDataSet.m_strProvince, L"浙江");
    EXPECT_EQ(g_SunDataSet.m_strLatitude, L"30.28");
    EXPECT_EQ(base.GetPlaceDlgCurZone().m_strCity, L"北京") << "a fresh place dialog";
}

TEST_F(DataSetDlgBase, KeepsThePlaceOnCancelAndStartsAfreshAllTheSame) {
    const Play play({Do("IDD_2008", [](const ModalWindow&) {})});
    OrvoDataSetDlgBase base;
    OrvoZoneRecord record;
    base.CreatPlaceDlg(nullptr)->FindZone(L"杭州", record);
    EXPECT_EQ(base.PlaceDlgDoModal(), IDCANCEL);
    EXPECT_EQ(g_SunDataSet.CurCity(), L"北京");
    EXPECT_EQ(base.GetPlaceDlgCurZone().m_strCity, L"北京");
    AddPlace(L"江苏", L"南京", L"118.8", L"32.06");
    EXPECT_FALSE(base.FindPlaceDlgZone(L"南京", record)) << "places are those of when it was made";
}

TEST_F(DataSetDlgBase, RunsEachFreshPlaceDialogOverTheSameParent) {
    AnalysisDialog dialog;
    const auto overDialog = [&dialog](const ModalWindow& window) { EXPECT_EQ(window.owner, dialog.m_hWnd); };
    const Play play({Do("IDD_7",
                        [&dialog](const ModalWindow&) {
                            EXPECT_EQ(dialog.PlaceDlgDoModal(), IDCANCEL);
                            EXPECT_EQ(dialog.PlaceDlgDoModal(), IDOK);
                            EXPECT_EQ(dialog.PlaceDlg()->GetParentWindow(), &dialog);
                        }),
                     Do("IDD_2008", overDialog), Do("IDD_2008", overDialog, IDOK)});
    dialog.DoModal();
}

TEST_F(DataSetDlgBase, RefreshesTheStandardsAlone) {
    AnalysisDialog dialog;
    const Play play({Do("IDD_7", [&dialog](const ModalWindow& window) {
        AddStandard(L"丙");
        g_SunDataSet.GetStd(0).m_strName = L"丁";
        g_SunDataSet.SetCurStdIndex(2);
        dialog.RefreshStdCombo();
        EXPECT_EQ(Entries(window, 10), (Texts{"丁", "乙", "丙"}));
        EXPECT_EQ(ChoiceText(window, 10), "丙");
        g_SunDataSet.SetCurStdIndex(3);
        dialog.RefreshStdCombo();
        EXPECT_EQ(ChoiceText(window, 10), "");
    })});
    dialog.DoModal();
}

TEST_F(DataSetDlgBase, ShowsTheOwnTextOfTheTimesAgain) {
    AnalysisDialog dialog;
    g_SunDataSet.m_dgStartTime = 24.0;
    g_SunDataSet.m_dgEndTime = -0.5;
    dialog.m_onInit = [&dialog] {
        dialog.SetDlgItemText(14, L"12:34");
        dialog.SetDlgItemText(15, L"23:45");
        dialog.InitDlgBaseData(false);
    };
    const Play play({Do("IDD_7", [&dialog](const ModalWindow& window) {
        EXPECT_EQ(EditText(window, 14), "12:34") << "no clock shows the settings' own";
        EXPECT_EQ(EditText(window, 15), "23:45");
        g_SunDataSet.m_dgStartTime = 7.5;
        dialog.InitDlgBaseData(false);
        EXPECT_EQ(EditText(window, 14), "07:30") << "a clock shows this one";
        EXPECT_EQ(EditText(window, 15), "23:45");
    })});
    dialog.DoModal();
}

TEST_F(DataSetDlgBase, ShowsTheDefaultTextOfTimesThatHaveNone) {
    AnalysisDialog dialog;
    g_SunDataSet.m_dgStartTime = 24.0;
    g_SunDataSet.m_dgEndTime = -0.5;
    const Play play({Do("IDD_7", [](const ModalWindow& window) {
        EXPECT_EQ(EditText(window, 14), "00:00") << "no clock shows it";
        EXPECT_EQ(EditText(window, 15), "00:00");
    })});
    dialog.DoModal();
}
