// The dialogs of the settings after the language was changed from Chinese to English: not a Chinese letter is left in
// any text that is not the user's own.
#include <QCalendarWidget>
#include <algorithm>
#include <map>
#include <set>

#include "settings/OrvoDataPrecisSetDlg.h"
#include "settings/OrvoSetStdDlg.h"
#include "settings/ProgramLanguage.h"
#include "settings/SettingsDialogs.h"

namespace {

// All data are Latin, so that whatever is Chinese is the program's.
class EnglishDialogs : public SettingsDialogs {
protected:
    void SetUp() override {
        SettingsDialogs::SetUp();
        g_dictSunZone.RemoveAll();
        AddPlace(L"Province", L"Alpha", L"116.4", L"39.9");
        AddPlace(L"Province", L"Beta", L"120.2", L"30.28");
        g_SunDataSet.CurCity() = L"Alpha";
        AddStandard(L"First");
        AddStandard(L"Second");
        Analyse(L"Alpha");
        Analyse(L"Beta");
    }

    static void RunPrecision(bool glare) {
        OrvoDataPrecisSetDlg dialog(nullptr, glare);
        dialog.DoModal();
    }

    // Opens every dialog, and has each of them say whatever it can say; gives the windows' texts by the windows' names.
    static std::map<std::string, QStringList> SayEverything() {
        std::map<std::string, QStringList> said;
        const ModalDriver driver([&said](const ModalWindow& window) {
            const auto* widget = static_cast<QWidget*>(window.widget);
            const std::string name = Play::NameOf(window);
            said[name] << AllTexts(widget) << QString::fromStdString(ToUtf8(window.text.View()));
            if (name == "IDD_2010" || name == "IDD_2017")
                AskOfStandards(window);
            else if (name == "IDD_2009" || name == "IDD_2013")
                AskOfName(window);
            else if (name.rfind("IDD_20", 0) == 0 && widget->findChild<QWidget*>("IDC_2003") != nullptr)
                AskOfPrecision(window);
            return int{IDCANCEL};
        });
        for (const bool glare : {false, true})
            RunPrecision(glare);
        const CString city = g_SunDataSet.CurCity();
        g_SunDataSet.CurCity() = L"Nowhere";
        RunPrecision(false);
        g_dictSunZone.RemoveAll();
        RunPrecision(false);
        g_SunDataSet.CurCity() = city;
        SunStdDlgDoModal(nullptr);
        return said;
    }

    static void Refuse(const ModalWindow& window, int id, const char* entry) {
        const QString before = Item<QLineEdit>(window, id)->text();
        Type(window, id, entry);
        Click(window, IDOK);
        Item<QLineEdit>(window, id)->setText(before);
    }
    static void AskOfPrecision(const ModalWindow& window) {
        Refuse(window, 2006, "x");
        Refuse(window, 2008, "361");
        Choose(window, 2005, Item<QComboBox>(window, 2005)->count() - 1);
    }
    static void AskOfStandards(const ModalWindow& window) {
        g_SunDataSet.GetStd(0).m_nMaxContinue = 0;
        Refuse(window, 2044, "x");
        Click(window, 2031);
        Refuse(window, 2055, "1.5");
        TypeTime(window, 2042, "2500");
        Click(window, IDOK);
        TypeTime(window, 2042, "0900");
        Click(window, 2028);
        Click(window, 2029);
        Click(window, 2030);
        Click(window, 2030);  // the last one
    }
    static void AskOfName(const ModalWindow& window) {
        for (const char* name : {"", "Second"}) {
            Type(window, 2026, name);
            Click(window, IDOK);
        }
    }
};

}  // namespace

TEST_F(EnglishDialogs, HaveNoChineseLetterAfterAChangeOfTheLanguage) {
    {
        const ProgramLanguage chinese(L"zh");
        for (const auto& [name, texts] : SayEverything()) {
            const auto isChinese = [](const QString& text) { return HasChinese(text); };
            EXPECT_TRUE(std::any_of(texts.begin(), texts.end(), isChinese)) << name;
        }
    }
    TearDown();
    SetUp();
    const ProgramLanguage english(L"en");
    const auto said = SayEverything();
    std::set<std::string> windows;
    for (const auto& [name, texts] : said) {
        windows.insert(name);
        EXPECT_GT(texts.size(), 2) << name;
        // A name that is offered, and a place that nobody named, are kept in files, and are the same in every language.
        for (const QString& text : texts)
            EXPECT_TRUE(text == QString("新建标准") || text == QString("未定义") || !HasChinese(text))
                << name << ": " << text.toStdString();
    }
    const std::set<std::string> expected = {"IDD_2013",
                                            "IDD_2014",
                                            "IDD_2015",
                                            "IDD_2016",
                                            "IDD_2017",
                                            "Cannot open the place database Zone.dbf.",
                                            "Cannot open the place database Zone.xml.",
                                            "One standard has to stay in the list.",
                                            "Please add the location of Nowhere to the place database.",
                                            "Please enter a name for the standard.",
                                            "The time has to lie between 00:00 and 23:59.",
                                            "This name is in use already. Please choose another."};
    for (const std::string& window : expected)
        EXPECT_TRUE(windows.count(window) == 1) << window << " did not come";
    EXPECT_EQ(windows.size(), expected.size() + 3) << "and the refusals of numbers, whole numbers and ranges";
}

TEST_F(EnglishDialogs, NameTheSolarTermsInTheLanguageInForce) {
    const auto termsOf = [](const wchar_t* language) {
        const ProgramLanguage in(language);
        std::vector<std::string> terms;
        const ModalDriver driver([&terms](const ModalWindow& window) {
            terms = Entries(window, 2039);
            EXPECT_EQ(Item<QComboBox>(window, 2039)->currentIndex(), 0) << "December 22nd";
            return int{IDCANCEL};
        });
        SunStdDlgDoModal(nullptr);
        return terms;
    };
    EXPECT_EQ(termsOf(L"zh").at(12), "夏至");
    const auto terms = termsOf(L"en");
    ASSERT_EQ(terms.size(), 24U);
    EXPECT_EQ(terms.front(), "Winter Solstice");
    EXPECT_EQ(terms.at(12), "Summer Solstice");
    EXPECT_EQ(g_SunDataSet.GetStd(0).m_date.GetTerm(12)->m_strName, L"夏至") << "the data know no language";
}

// The calendar is the toolkit's, and would speak the machine's language.
TEST_F(EnglishDialogs, NameTheMonthsInTheLanguageInForce) {
    const QLocale machine;
    QLocale::setDefault(QLocale(QLocale::German));
    const std::pair<const wchar_t*, QLocale::Language> languages[] = {{L"zh", QLocale::Chinese},
                                                                      {L"en", QLocale::English}};
    for (const auto& [name, language] : languages) {
        const ProgramLanguage in(name);
        const ModalDriver driver([language = language](const ModalWindow& window) {
            auto* picker = Item<QDateEdit>(window, 2038);
            QTest::mouseClick(picker, Qt::LeftButton, {}, QPoint(picker->width() - 6, picker->height() / 2));
            const QCalendarWidget* calendar = picker->calendarWidget();
            EXPECT_EQ(calendar->locale().language(), language);
            const auto* month = calendar->findChild<QAbstractButton*>("qt_calendar_monthbutton");
            const QString december = QLocale(language).standaloneMonthName(12, QLocale::LongFormat);
            EXPECT_EQ(month->text().toStdString(), december.toStdString());
            QTest::keyClick(const_cast<QCalendarWidget*>(calendar), Qt::Key_Escape);
            EXPECT_EQ(picker->text().toStdString(), "2026-12-22");
            return int{IDCANCEL};
        });
        SunStdDlgDoModal(nullptr);
        EXPECT_EQ(driver.GetCount(), 1);
    }
    QLocale::setDefault(machine);
}
