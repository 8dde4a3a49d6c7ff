// What the host says of the standard in force when a command's dialog has been closed.
#include <QAbstractItemView>
#include <QComboBox>
#include <QRadioButton>

#include "facts/StandardWords.h"
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

OrvoStdSet Named(const wchar_t* name) {
    OrvoStdSet standard;
    standard.m_strName = name;
    standard.m_date.SetXmlDate(L"2026-12-22");
    standard.m_dgStartTime = 9.0;
    standard.m_dgEndTime = 15.0;
    return standard;
}

std::string Line(const OrvoStdSet& standard) {
    return ToUtf8(RulesInOneLine(standard).View());
}

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

TEST(RulesInOneLineOf, AStandardOfTheLongestPeriod) {
    OrvoStdSet standard = Named(L"甲");
    EXPECT_EQ(Line(standard),
              "当前标准“甲”：整个日照窗都须照到（满窗日照分析）；最长有效连照分析(连续)；上海规定；"
              "2026年12月22日；真太阳时 09:00～15:00；计算精度 10 分钟。");
    standard.m_nAllMaxContinueTime = 1;
    EXPECT_NE(Line(standard).find("(连续)；累计超过 60 分钟的时间段；上海规定"), std::string::npos) << Line(standard);
    standard.m_nMinValidTime = 5;
    EXPECT_EQ(Line(standard).find("不短于"), std::string::npos) << "only totals have a least period";
}

TEST(RulesInOneLineOf, AStandardOfTheTotal) {
    OrvoStdSet standard = Named(L"乙");
    standard.m_nFullWin = 0;
    standard.m_nLimitWidth = 1;
    standard.m_nMaxContinue = ORVO_COUNT_TOTAL;
    standard.m_nAllMaxContinueTime = 1;
    standard.m_nTotalTimeType = ORVO_TOTAL_LONGEST_TWO;
    standard.m_nMinValidTime = 5;
    standard.m_nMinMaxValidTime = 30;
    standard.m_nValidSunType = ORVO_SUN_CUSTOM;
    standard.m_nMinValidAngle = 12;
    standard.m_nBJTime = ORVO_BEIJING_TIME;
    standard.m_dSpace = 1.0;
    EXPECT_EQ(Line(standard),
              "当前标准“乙”：窗台中点照到即可（窗台中点分析）；总有效日照分析(累计)；累计最长两个时间段；"
              "有效时间段不短于 5 分钟；最长的时间段不短于 30 分钟；自定义，光线与墙面的水平夹角不小于 12 度；"
              "2026年12月22日；北京时间 09:00～15:00；计算精度 1 分钟。");
    standard.m_nFullWin = 1;
    EXPECT_NE(Line(standard).find("（满窗日照分析）；限定宽度 1200～2400 毫米；"), std::string::npos) << Line(standard);
}

TEST(RulesInOneLineOf, AForeignStandardIsOneLine) {
    OrvoStdSet standard = Named(L"第一行\n第二行\x1b[31m");
    standard.m_nMaxContinue = 77;
    EXPECT_EQ(Line(standard).find('\n'), std::string::npos);
    EXPECT_EQ(Line(standard).find('\x1b'), std::string::npos);
    EXPECT_NE(Line(standard).find("未知的选择 77"), std::string::npos) << Line(standard);
}
