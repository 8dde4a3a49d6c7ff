// Names of standards, from the dialog and from elsewhere: all come back from the file, all can be worked with in the
// dialogs, and those that the file could not keep are refused.
#include "settings/OrvoDataPrecisSetDlg.h"
#include "settings/OrvoSetStdDlg.h"
#include "settings/QNewSetStdDlg.h"
#include "settings/SettingsDialogs.h"

namespace {

using Names = std::vector<CString>;
constexpr const char* kTaken = "该名称已经被使用,请修改名称";

// What no file, list or format may stumble over.
Names StrangeNames() {
    Names names = {L"",           L" ",       L"\u3000",       L"abc",          L"ABC",
                   L"Abc",        L"\n",      L"a\nb",         L"c\r\nd",       L"\ta",
                   L"<a b='c'>",  L"</S>",    L"]]>",          L"<![CDATA[",    L"<!--",
                   L"&amp;&#10;", L"_x0041_", L"\x01\x1f\x7f", L"\uFFFE\uFFFF", L"a-b",
                   L"%s%n%d",     L"item",    L"dt:name",      L"xmlns:dt",     L"cur_sunsetdata",
                   L"SunStd",     L"../../a", L"配置管理器..."};
    names.push_back(FromUtf8("😀 \u202E"));
    CString half;
    half += static_cast<wchar_t>(0xD83D);
    names.push_back(half + L"x");
    names.push_back(FromUtf8(std::string(10000, 'n')));
    std::string emoji;
    for (int i = 0; i < 2500; ++i)
        emoji += "😀";
    names.push_back(FromUtf8(emoji));
    return names;
}

class StandardNames : public SettingsDialogs {
protected:
    static Names InList() {
        Names names;
        for (OrvoStdSet** slot = g_SunDataSet.m_listStd.GetFirst(); slot; slot = g_SunDataSet.m_listStd.GetNext(slot))
            names.push_back((*slot)->m_strName);
        return names;
    }
    // Adds a standard with whatever name, numbered by its minutes.
    static void Add(const CString& name) {
        const int number = static_cast<int>(g_SunDataSet.m_listStd.GetLength());
        AddStandard(name).m_nMinContinueTime = number;
    }
    // Runs the dialog, makes a standard of a name there, and gives what was told.
    static std::vector<std::string> Make(const QString& name) {
        std::vector<std::string> told;
        const ModalDriver driver([&](const ModalWindow& window) {
            const std::string shown = Play::NameOf(window);
            if (shown == "IDD_2010") {
                Click(window, 2028);
                return int{IDOK};
            }
            if (shown != "IDD_2009") {
                told.push_back(shown);
                return int{IDOK};
            }
            Paste(window, 2026, name);
            Click(window, IDOK);
            return static_cast<QWidget*>(window.widget)->isVisible() ? IDCANCEL : 0;
        });
        SunStdDlgDoModal(nullptr);
        return told;
    }
};

}  // namespace

TEST_F(StandardNames, OfEveryKindComeBackFromTheFile) {
    const Names names = StrangeNames();
    for (const CString& name : names)
        Add(name);
    g_SunDataSet.SetCurStdIndex(3);
    Reload();
    EXPECT_EQ(InList(), names);
    EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), 3);
    for (int index = 0; index < static_cast<int>(names.size()); ++index)
        EXPECT_EQ(g_SunDataSet.GetStd(index).m_nMinContinueTime, index) << "told apart from the others";
}

TEST_F(StandardNames, OfEveryKindAreListedAndCanBeChosen) {
    const Names names = StrangeNames();
    for (const CString& name : names)
        Add(name);
    const int count = static_cast<int>(names.size());
    const ModalDriver driver([count](const ModalWindow& window) {
        const auto* combo = Item<QComboBox>(window, 2004);
        EXPECT_GE(combo->count(), count);
        for (int index = 0; index < count; ++index) {
            Choose(window, 2004, index);
            EXPECT_EQ(combo->currentIndex(), index);
            EXPECT_EQ(g_SunDataSet.GetCurStdIndex(), index);
            EXPECT_LE(combo->geometry().right(), static_cast<QWidget*>(window.widget)->width());
        }
        return int{IDOK};
    });
    EXPECT_EQ(SunStdDlgDoModal(nullptr), IDOK);
    OrvoDataPrecisSetDlg dialog(nullptr, false);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(InList(), names);
    EXPECT_EQ(driver.GetCount(), 2) << "nothing is told";
}

TEST_F(StandardNames, OfEveryKindCanBeTypedExceptOfNothing) {
    AddStandard(L"甲");
    for (const CString& name : StrangeNames()) {
        const QString pasted = QString::fromWCharArray(name.GetString());
        const auto before = InList().size();
        const auto told = Make(pasted);
        CString trimmed = name;
        if (trimmed.Trim().IsEmpty()) {
            EXPECT_EQ(told, std::vector<std::string>{"请输入标准的名称"});
            EXPECT_EQ(InList().size(), before);
            continue;
        }
        EXPECT_EQ(told, std::vector<std::string>{}) << ToUtf8(name.Left(20).View());
        EXPECT_EQ(InList().size(), before + 1);
        const CString stored = InList().back();
        if (name.View().find_first_of(L"\r\n\t") != std::wstring_view::npos)
            EXPECT_EQ(stored.View().find_first_of(L"\r\n\t"), std::wstring_view::npos) << "a name is one line";
        else if (name.Find(static_cast<wchar_t>(0xD83D)) < 0)  // half a character cannot be typed
            EXPECT_EQ(stored, name) << "to the letter";
    }
    const Names made = InList();
    Reload();
    EXPECT_EQ(InList(), made);
}

// In the file they would be the settings themselves, and the name of the current standard.
TEST_F(StandardNames, OfTheSettingsOwnEntriesAreRefusedAndHarmNothing) {
    AddStandard(L"甲");
    g_SunDataSet.CurCity() = L"宁波";
    for (const char* name : {"CUR_SUNSETDATA", "CUR_SUNSETSTD"}) {
        EXPECT_EQ(Make(name), std::vector<std::string>{kTaken});
        const ModalDriver driver([name](const ModalWindow& window) {
            const std::string shown = Play::NameOf(window);
            if (shown == "IDD_2010")
                Click(window, 2029);
            else if (shown == "IDD_2009") {
                Paste(window, 2026, name);
                Click(window, IDOK);
                return static_cast<QWidget*>(window.widget)->isVisible() ? IDCANCEL : 0;
            }
            return int{IDOK};
        });
        SunStdDlgDoModal(nullptr);
        EXPECT_EQ(driver.GetCount(), 3) << "refused for a renamed one, too";
    }
    Reload();
    EXPECT_EQ(InList(), Names{L"甲"});
    EXPECT_EQ(g_SunDataSet.CurCity(), L"宁波");
}

// A file can have a standard without a name; then that name is taken, which is what is told first.
TEST_F(StandardNames, OfNothingAreTakenWhereOneHasNone) {
    AddStandard(L"");
    EXPECT_EQ(Make(""), std::vector<std::string>{kTaken});
    EXPECT_EQ(Make(" "), std::vector<std::string>{"请输入标准的名称"});
}

TEST_F(StandardNames, ComeAndGoAgainAndAgain) {
    AddStandard(L"甲").m_dSpace = 7;
    AddStandard(L"乙");
    int round = 0;
    const ModalDriver driver([&round](const ModalWindow& window) {
        const std::string shown = Play::NameOf(window);
        if (shown == "IDD_2009") {
            Paste(window, 2026, QString("n%1").arg(round++));
            return int{IDOK};
        }
        for (int i = 0; i < 30; ++i) {
            Click(window, 2028);
            Click(window, 2029);
            Type(window, 2044, QString::number(i + 1));
            if (i % 3 != 0) {
                Click(window, 2030);
                Choose(window, 2004, Item<QComboBox>(window, 2004)->count() - 1);
            }
        }
        EXPECT_EQ(Item<QComboBox>(window, 2004)->count(), 12);
        return int{IDOK};
    });
    EXPECT_EQ(SunStdDlgDoModal(nullptr), IDOK);
    EXPECT_EQ(round, 60);
    ASSERT_EQ(InList().size(), 12U);
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(ToUtf8(InList()[static_cast<std::size_t>(i) + 2].View()), "n" + std::to_string(6 * i + 1));
    const Names before = InList();
    Reload();
    EXPECT_EQ(InList(), before);
}
