// Which controls of the dialog of the standards can be used when, and what the buttons that decide it do.
#include "settings/OrvoSetStdDlg.h"
#include "settings/SettingsDialogs.h"

namespace {

using Ids = std::vector<int>;

const Ids kWidths = {2035, 2036, 2037};
const Ids kTotal = {2055, 2056, 2057, 2053, 2059};
const Ids kLongest = {2050, 2051};

class StandardsEnabling : public SettingsDialogs {
protected:
    void SetUp() override {
        SettingsDialogs::SetUp();
        m_standard = &AddStandard(L"甲");
    }

    static void Run(const std::function<void(const ModalWindow&)>& act) {
        const Play play({Do("IDD_2010", act)});
        SunStdDlgDoModal(nullptr);
    }

    OrvoStdSet* m_standard = nullptr;
};

}  // namespace

TEST_F(StandardsEnabling, FollowsTheFieldsWhenTheyAreShown) {
    for (const int whole : {0, 1, 5}) {
        for (const int limited : {0, 1}) {
            m_standard->m_nFullWin = whole;
            m_standard->m_nLimitWidth = limited;
            Run([&](const ModalWindow& window) {
                const Ids expected = whole == 0 ? Ids{} : limited == 0 ? Ids{2035} : kWidths;
                EXPECT_EQ(Enabled(window, kWidths), expected) << whole << limited;
            });
        }
    }
    for (const int longest : {0, 1}) {
        for (const int over : {0, 1}) {
            m_standard->m_nMaxContinue = longest;
            m_standard->m_nAllMaxContinueTime = over;
            Run([&](const ModalWindow& window) {
                EXPECT_EQ(Enabled(window, kTotal), longest == 0 ? kTotal : Ids{});
                EXPECT_EQ(Enabled(window, kLongest), longest == 0 ? Ids{} : over == 0 ? Ids{2050} : kLongest);
            });
        }
    }
    for (const int rule : {0, 1}) {
        m_standard->m_nValidSunType = rule;
        Run([&](const ModalWindow& window) { EXPECT_EQ(IsOn(window, 2052), rule != 0); });
    }
}

TEST_F(StandardsEnabling, LeavesAllOtherControlsAlone) {
    Run([](const ModalWindow& window) {
        const Ids others = {1,    2,    2004, 2028, 2029, 2030, 2031, 2032, 2033, 2034,
                            2038, 2039, 2040, 2041, 2042, 2043, 2044, 2045, 2054};
        EXPECT_EQ(Enabled(window, others), others);
    });
}

TEST_F(StandardsEnabling, OffersWidthsForTheWholeWindowAlone) {
    m_standard->m_nFullWin = 0;
    Run([this](const ModalWindow& window) {
        Click(window, 2033);
        EXPECT_EQ(m_standard->m_nFullWin, 1);
        EXPECT_EQ(Enabled(window, kWidths), Ids{2035});
        Click(window, 2034);
        EXPECT_EQ(m_standard->m_nFullWin, 0);
        EXPECT_EQ(Enabled(window, kWidths), Ids{});
    });
}

TEST_F(StandardsEnabling, RestoresTheWidthsAsTheFlagSays) {
    m_standard->m_nFullWin = 1;
    m_standard->m_nLimitWidth = 1;
    Run([this](const ModalWindow& window) {
        EXPECT_EQ(Enabled(window, kWidths), kWidths);
        Click(window, 2034);
        EXPECT_EQ(Enabled(window, kWidths), Ids{});
        Click(window, 2033);
        EXPECT_EQ(Enabled(window, kWidths), kWidths);
        EXPECT_EQ(m_standard->m_nLimitWidth, 1);
    });
}

// Reading the controls takes the radios the other way round, too.
TEST_F(StandardsEnabling, ReadsTheControlsWhenTheWidthIsLimited) {
    m_standard->m_nFullWin = 0;
    Run([this](const ModalWindow& window) {
        Type(window, 2044, "12");
        Click(window, 2033);
        EXPECT_EQ(m_standard->m_nFullWin, 1);
        Click(window, 2035);
        EXPECT_EQ(m_standard->m_nLimitWidth, 1);
        EXPECT_EQ(m_standard->m_dSpace, 12.0);
        EXPECT_EQ(m_standard->m_nFullWin, 0);
        EXPECT_EQ(Enabled(window, kWidths), kWidths);
        Click(window, 2035);
        EXPECT_EQ(m_standard->m_nLimitWidth, 0);
        EXPECT_EQ(Enabled(window, kWidths), Ids{2035});
    });
}

TEST_F(StandardsEnabling, LimitsTheWidthAlsoWhileAnotherEntryIsBad) {
    m_standard->m_nFullWin = 1;
    const Play play({Do("IDD_2010",
                        [this](const ModalWindow& window) {
                            Type(window, 2044, "soon");
                            Click(window, 2035);
                            EXPECT_EQ(m_standard->m_nLimitWidth, 1);
                            EXPECT_EQ(Enabled(window, kWidths), kWidths);
                        }),
                     {"请键入一个数字。"}});
    SunStdDlgDoModal(nullptr);
}

TEST_F(StandardsEnabling, OffersWhatGoesWithTheTotalOrTheLongest) {
    m_standard->m_nMaxContinue = 1;
    m_standard->m_nAllMaxContinueTime = 1;
    Run([this](const ModalWindow& window) {
        Click(window, 2031);
        EXPECT_EQ(m_standard->m_nMaxContinue, 0);
        EXPECT_EQ(Enabled(window, kTotal), kTotal);
        EXPECT_EQ(Enabled(window, kLongest), Ids{});
        Click(window, 2032);
        EXPECT_EQ(m_standard->m_nMaxContinue, 1);
        EXPECT_EQ(Enabled(window, kTotal), Ids{});
        EXPECT_EQ(Enabled(window, kLongest), kLongest);
        Click(window, 2050);
        EXPECT_EQ(m_standard->m_nAllMaxContinueTime, 0);
        EXPECT_EQ(Enabled(window, kLongest), Ids{2050});
        Click(window, 2031);
        Click(window, 2032);
        EXPECT_EQ(Enabled(window, kLongest), Ids{2050});
        Click(window, 2050);
        EXPECT_EQ(m_standard->m_nAllMaxContinueTime, 1);
        EXPECT_EQ(Enabled(window, kLongest), kLongest);
    });
}

TEST_F(StandardsEnabling, TogglesTheThresholdWhateverItsNumberWas) {
    m_standard->m_nMaxContinue = 1;
    m_standard->m_nAllMaxContinueTime = 7;
    Run([this](const ModalWindow& window) {
        Click(window, 2050);
        EXPECT_EQ(m_standard->m_nAllMaxContinueTime, 0);
    });
}

TEST_F(StandardsEnabling, OffersTheAngleForTheUsersOwnRule) {
    Run([this](const ModalWindow& window) {
        EXPECT_FALSE(IsOn(window, 2052));
        Choose(window, 2054, 1);
        EXPECT_EQ(m_standard->m_nValidSunType, 1);
        EXPECT_TRUE(IsOn(window, 2052));
        Choose(window, 2054, 0);
        EXPECT_EQ(m_standard->m_nValidSunType, 0);
        EXPECT_FALSE(IsOn(window, 2052));
    });
}

TEST_F(StandardsEnabling, WorksWithoutAStandard) {
    g_SunDataSet.m_listStd.Reset();
    for (const int index : {0, -1, 44}) {
        g_SunDataSet.SetCurStdIndex(index);
        Run([](const ModalWindow& window) {
            Click(window, 2034);
            EXPECT_EQ(Enabled(window, kWidths), Ids{});
            Click(window, 2033);
            EXPECT_EQ(Enabled(window, kWidths), Ids{2035});
            Click(window, 2050);
            EXPECT_EQ(Enabled(window, kLongest), kLongest);
            Click(window, 2050);
            EXPECT_EQ(Enabled(window, kLongest), Ids{2050});
            Click(window, 2031);
            EXPECT_EQ(Enabled(window, kTotal), kTotal);
            Choose(window, 2054, 1);
            EXPECT_TRUE(IsOn(window, 2052));
        });
        EXPECT_EQ(g_SunDataSet.m_listStd.GetLength(), 0);
    }
}
