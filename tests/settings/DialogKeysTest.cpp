// The dialogs of the settings without a mouse: Tab reaches whatever can be used, Enter is OK and Escape is Cancel from
// everywhere.
#include <QComboBox>
#include <set>

#include "settings/OrvoDataPrecisSetDlg.h"
#include "settings/OrvoSetStdDlg.h"
#include "settings/ProgramLanguage.h"
#include "settings/QNewSetStdDlg.h"
#include "settings/SettingsDialogs.h"

namespace {

using Stops = std::vector<std::string>;

QWidget* FocusOf(const ModalWindow& window) {
    auto* dialog = static_cast<QWidget*>(window.widget);
    return dialog->focusWidget() != nullptr ? dialog->focusWidget() : dialog;
}

// The control in which the focus is; some have it in a part of theirs.
std::string Focused(const ModalWindow& window) {
    const QWidget* widget = FocusOf(window);
    while (!widget->objectName().startsWith("IDC_") && !widget->isWindow())
        widget = widget->parentWidget();
    return widget->objectName().toStdString();
}

void Press(const ModalWindow& window, Qt::Key key) {
    QTest::keyClick(FocusOf(window), key);
}

// The controls from the focused one on, until it comes round again.
Stops Walk(const ModalWindow& window, Qt::Key key) {
    constexpr int kMost = 200;
    Stops stops = {Focused(window)};
    for (int i = 0; i < kMost; ++i) {
        Press(window, key);
        const std::string focused = Focused(window);
        if (focused == stops.back())
            continue;  // a part of the same control
        if (focused == stops.front())
            break;
        stops.push_back(focused);
    }
    return stops;
}

// What a person can use: of a group of radio buttons the arrows reach the others.
std::set<std::string> Usable(const QWidget* dialog) {
    std::set<std::string> usable;
    for (const auto* widget : dialog->findChildren<QWidget*>()) {
        const auto* radio = qobject_cast<const QRadioButton*>(widget);
        const bool isControl = qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                               qobject_cast<const QComboBox*>(widget) != nullptr ||
                               qobject_cast<const QLineEdit*>(widget) != nullptr ||
                               qobject_cast<const QDateEdit*>(widget) != nullptr;
        if (isControl && widget->objectName().startsWith("IDC_") && widget->isEnabled() && widget->isVisible() &&
            (radio == nullptr || radio->isChecked()))
            usable.insert(widget->objectName().toStdString());
    }
    return usable;
}

class DialogKeys : public SettingsDialogs {
protected:
    void SetUp() override {
        SettingsDialogs::SetUp();
        OrvoStdSet& standard = AddStandard(L"甲");
        standard.m_nLimitWidth = 1;
        standard.m_nValidSunType = 1;
        standard.m_nAllMaxContinueTime = 1;
        Analyse(L"北京");
    }

    // Each of the dialogs, one after the other; gives their results.
    static std::vector<INT_PTR> RunAll(const std::function<int(const ModalWindow&)>& answer) {
        const ModalDriver driver(answer);
        std::vector<INT_PTR> results;
        for (const bool glare : {false, true}) {
            OrvoDataPrecisSetDlg dialog(nullptr, glare);
            results.push_back(dialog.DoModal());
        }
        for (const int longest : {0, 1}) {
            g_SunDataSet.GetStd(0).m_nMaxContinue = longest;
            results.push_back(SunStdDlgDoModal(nullptr));
        }
        QNewSetStdDlg name;
        results.push_back(name.DoModal());
        EXPECT_EQ(driver.GetCount(), 5);
        return results;
    }
};

}  // namespace

TEST_F(DialogKeys, ReachWhateverCanBeUsed) {
    for (const wchar_t* language : {L"zh", L"en"}) {
        const ProgramLanguage in(language);
        RunAll([](const ModalWindow& window) {
            const auto* dialog = static_cast<QWidget*>(window.widget);
            const std::string name = dialog->objectName().toStdString();
            Stops stops = Walk(window, Qt::Key_Tab);
            EXPECT_EQ(std::set<std::string>(stops.begin(), stops.end()), Usable(dialog)) << name;
            EXPECT_EQ(std::set<std::string>(stops.begin(), stops.end()).size(), stops.size()) << name << ": each once";
            Stops back = Walk(window, Qt::Key_Backtab);
            std::reverse(back.begin() + 1, back.end());
            EXPECT_EQ(back, stops) << name;
            return int{IDCANCEL};
        });
    }
}

TEST_F(DialogKeys, BeginWithWhatIsChosenFirst) {
    Stops first;
    RunAll([&first](const ModalWindow& window) {
        first.push_back(Focused(window));
        return int{IDCANCEL};
    });
    EXPECT_EQ(first, (Stops{"IDC_2004", "IDC_2004", "IDC_2004", "IDC_2004", "IDC_2026"}));
}

// But for other buttons, which Enter presses.
TEST_F(DialogKeys, LeaveWithEnterAndEscapeFromEverywhere) {
    const std::pair<Qt::Key, INT_PTR> ways[] = {{Qt::Key_Return, IDOK}, {Qt::Key_Escape, IDCANCEL}};
    for (const auto& [key, result] : ways) {
        bool more = true;
        for (int tabs = 0; more; ++tabs) {
            more = false;
            std::vector<std::string> from;
            const auto results = RunAll([&, key = key](const ModalWindow& window) {
                const Stops stops = Walk(window, Qt::Key_Tab);
                const auto stop = static_cast<std::size_t>(tabs) % stops.size();
                more = more || static_cast<std::size_t>(tabs) + 1 < stops.size();
                auto* widget =
                    static_cast<QWidget*>(window.widget)->findChild<QWidget*>(QString::fromStdString(stops[stop]));
                const auto* button = qobject_cast<const QPushButton*>(widget);
                if (button != nullptr && key != Qt::Key_Escape)
                    widget = static_cast<QWidget*>(window.widget)->findChild<QWidget*>("IDC_1");
                widget->setFocus();
                from.push_back(Play::NameOf(window) + " " + stops[stop]);
                Press(window, key);
                const bool stayed = static_cast<QWidget*>(window.widget)->isVisible();
                EXPECT_FALSE(stayed) << from.back();
                return stayed ? -1 : 0;
            });
            for (std::size_t i = 0; i < results.size(); ++i)
                EXPECT_EQ(results[i], result) << from[i];
        }
    }
}

TEST_F(DialogKeys, NameAStandardWithoutAMouse) {
    const ModalDriver driver([](const ModalWindow& window) {
        if (Play::NameOf(window) == "IDD_2010") {
            Press(window, Qt::Key_Tab);
            EXPECT_EQ(Focused(window), "IDC_2028");
            Press(window, Qt::Key_Return);
            EXPECT_EQ(Focused(window), "IDC_2028") << "back where the dialog was opened";
            EXPECT_EQ(ChoiceText(window, 2004), "Summer");
            Press(window, Qt::Key_Escape);
        } else {
            QTest::keyClicks(FocusOf(window), "Summer");
            Press(window, Qt::Key_Return);
        }
        return 0;
    });
    EXPECT_EQ(SunStdDlgDoModal(nullptr), IDCANCEL);
    EXPECT_EQ(g_SunDataSet.GetStd(1).m_strName, L"Summer") << "stays, as whatever a button did";
}

// The place is an entry or the database; the keys that choose do both.
TEST_F(DialogKeys, ChooseAPlaceWithoutAMouse) {
    Analyse(L"宁波");
    const ModalDriver driver([](const ModalWindow& window) {
        if (Play::NameOf(window) == "IDD_2008")
            return int{IDCANCEL};
        Press(window, Qt::Key_Tab);
        EXPECT_EQ(Focused(window), "IDC_2005");
        Press(window, Qt::Key_Down);
        EXPECT_EQ(ChoiceText(window, 2005), "宁波");
        Press(window, Qt::Key_Down);
        EXPECT_EQ(ChoiceText(window, 2005), "宁波") << "the database was cancelled";
        Press(window, Qt::Key_Up);
        EXPECT_EQ(ChoiceText(window, 2005), "北京");
        return int{IDCANCEL};
    });
    OrvoDataPrecisSetDlg dialog(nullptr, false);
    dialog.DoModal();
    EXPECT_EQ(driver.GetCount(), 2);
    EXPECT_EQ(g_SunDataSet.CurCity(), L"北京");
}
