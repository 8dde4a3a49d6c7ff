// What the host says of the standard in force when a command's dialog has been closed.
#include <QAbstractItemView>
#include <QComboBox>
#include <QRadioButton>

#include "platform/host/CommandStack.h"
#include "window/DialogForTests.h"
#include "workbench/WindowStage.h"

namespace {

constexpr int kWholeWindow = 2033;
constexpr int kMidpoint = 2034;
constexpr const char* kWhole = "当前标准“上海标准”：整个日照窗都须照到";
constexpr const char* kSill = "当前标准“上海标准”：窗台中点照到即可";

// The manager of standards is the last entry of the combo box.
void OpenManager(const ModalWindow& window) {
    auto* standards = Control<QComboBox>(window, 2004);
    standards->setFocus();
    standards->showPopup();
    standards->view()->setCurrentIndex(standards->model()->index(standards->count() - 1, 0));
    QTest::keyClick(standards->view(), Qt::Key_Return);
}

class StandardNotices : public WindowStage {
protected:
    // Runs the command, clicks a button of the standards' dialog and leaves both dialogs by these commands.
    void EditStandard(int button, int leaveManager, int leaveSettings) const {
        int dialogs = 0;
        const ModalDriver driver([&](const ModalWindow& window) {
            ++dialogs;
            if (static_cast<QWidget*>(window.widget)->objectName() != "IDD_2010") {
                OpenManager(window);
                return leaveSettings;
            }
            auto* radio = Control<QRadioButton>(window, button);
            QTest::mouseClick(radio, Qt::LeftButton, {}, QPoint(8, radio->height() / 2));
            return leaveManager;
        });
        Type("QSetSunPrec");
        EXPECT_EQ(dialogs, 2);
    }
    void RunSettings(int leave) const {
        const ModalDriver driver([leave](const ModalWindow&) { return leave; });
        Type("QSetSunPrec");
    }
    // How often a text stands in the log.
    int Count(const char* text) const {
        return static_cast<int>(QString::fromStdString(Log()).count(QString::fromUtf8(text)));
    }
};

}  // namespace

TEST_F(StandardNotices, FollowTheSettingsDialogHoweverItEnded) {
    for (const int leave : {IDOK, IDCANCEL}) {
        const int before = Count(kWhole);
        RunSettings(leave);
        EXPECT_EQ(Count(kWhole), before + 1) << Log();
    }
    EXPECT_EQ(Count("当前标准“"), 2) << "one line each";
}

TEST_F(StandardNotices, TellWhatWasClickedAndCancelled) {
    EditStandard(kMidpoint, IDCANCEL, IDCANCEL);
    EXPECT_EQ(Count(kSill), 1) << Log();
    EXPECT_EQ(Count("当前标准“"), 1) << Log();
}

TEST_F(StandardNotices, TellTheRuleAndNotTheButton) {
    // What OK stores is the inverse of the button that is chosen.
    EditStandard(kWholeWindow, IDOK, IDOK);
    EXPECT_EQ(g_SunDataSet.CurStd().m_nFullWin, 0);
    EXPECT_EQ(Count(kSill), 1) << Log();
    EditStandard(kMidpoint, IDOK, IDCANCEL);
    EXPECT_EQ(g_SunDataSet.CurStd().m_nFullWin, 1);
    EXPECT_EQ(Count(kWhole), 1) << Log();
}

TEST_F(StandardNotices, TellThatThereIsNoStandard) {
    g_SunDataSet.SetCurStdIndex(99);
    RunSettings(IDCANCEL);
    EXPECT_TRUE(HasLogged("当前标准：无")) << Log();
}

TEST_F(StandardNotices, SpeakTheLanguageInForce) {
    Language().SetLanguage(L"en");
    RunSettings(IDCANCEL);
    EXPECT_TRUE(HasLogged("Current standard \"上海标准\": the whole window must be lit; ")) << Log();
}

TEST_F(StandardNotices, DoNotFollowTheDialogOfPlaces) {
    const ModalDriver driver([](const ModalWindow&) { return int{IDOK}; });
    Type("QcCityData");
    EXPECT_EQ(driver.GetCount(), 1);
    EXPECT_FALSE(HasLogged("当前标准")) << Log();
}

TEST_F(StandardNotices, FollowOtherCommandsThatChangedAStandard) {
    AcEdCommandStack& stack = HostCommandStack();
    ASSERT_EQ(stack.addCommand(L"OTHER", L"OTHERPLACE", 0, [] { g_SunDataSet.CurCity() = L"通州"; }), Acad::eOk);
    ASSERT_EQ(stack.addCommand(L"OTHER", L"OTHERRULE", 0, [] { g_SunDataSet.CurStd().m_nFullWin = 0; }), Acad::eOk);
    ASSERT_EQ(stack.addCommand(L"OTHER", L"OTHERCHOICE", 0, [] { g_SunDataSet.SetCurStdIndex(1); }), Acad::eOk);
    Type("OTHERPLACE");
    EXPECT_FALSE(HasLogged("当前标准")) << Log();
    Type("OTHERRULE");
    EXPECT_TRUE(HasLogged(kSill)) << Log();
    Type("OTHERCHOICE");
    EXPECT_TRUE(HasLogged("当前标准“国标大寒日”：整个日照窗都须照到")) << Log();
    Type("OTHERRULE");
    Type("OTHERRULE");
    EXPECT_EQ(Count("当前标准“国标大寒日”：窗台"), 1) << "the second time changed nothing";
    stack.removeGroup(L"OTHER");
}
