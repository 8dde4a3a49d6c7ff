// The dialogs of the settings in both languages: every text is there and has room, and the data know no language.
#include <QLabel>
#include <algorithm>

#include "settings/OrvoDataPrecisSetDlg.h"
#include "settings/OrvoSetStdDlg.h"
#include "settings/SettingsDialogs.h"
#include "support/FileTree.h"

namespace {

// The switch stays for good: the module remembers its dictionary, which is the switch's.
TeskLanguageSwitch& ShippedLanguages() {
    static TeskLanguageSwitch languages;
    return languages;
}

// A language of the program, with the table that ships, for as long as it lives.
class Language {
public:
    explicit Language(const wchar_t* name) {
        g_pTeskLangSwitch = &ShippedLanguages();
        EXPECT_TRUE(ShippedLanguages().SetLanguage(name));
    }
    ~Language() {
        ShippedLanguages().SetLanguage(L"zh");
        g_pTeskLangSwitch = nullptr;
    }
    Language(const Language&) = delete;
    Language& operator=(const Language&) = delete;
};

bool HasChinese(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar each) { return each.unicode() >= 0x2E80; });
}

// What a dialog says by itself: its title, labels, buttons, frames and tips.
QStringList OwnTexts(const QWidget* dialog) {
    QStringList texts = {dialog->windowTitle()};
    for (const auto* label : dialog->findChildren<QLabel*>())
        texts << label->text();
    for (const auto* button : dialog->findChildren<QAbstractButton*>())
        texts << button->text();
    for (const auto* box : dialog->findChildren<QGroupBox*>())
        texts << box->title();
    for (const auto* widget : dialog->findChildren<QWidget*>())
        texts << widget->accessibleDescription();
    texts.removeAll(QString());
    return texts;
}

// What stands in a dialog, but for frames.
std::vector<const QWidget*> Controls(const QWidget* dialog) {
    std::vector<const QWidget*> controls;
    for (const QObject* child : dialog->children()) {
        const auto* widget = qobject_cast<const QWidget*>(child);
        if (widget != nullptr && widget->isVisible() && qobject_cast<const QGroupBox*>(widget) == nullptr)
            controls.push_back(widget);
    }
    return controls;
}

void ExpectRoom(const QWidget* dialog) {
    const auto controls = Controls(dialog);
    for (const QWidget* control : controls) {
        EXPECT_TRUE(dialog->rect().contains(control->geometry())) << control->objectName().toStdString();
        const bool showsText = qobject_cast<const QLabel*>(control) || qobject_cast<const QAbstractButton*>(control);
        if (showsText) {
            EXPECT_LE(control->sizeHint().width(), control->width()) << control->accessibleName().toStdString();
            EXPECT_LE(control->fontMetrics().height(), control->height()) << control->accessibleName().toStdString();
        }
        for (const QWidget* other : controls)
            EXPECT_FALSE(other < control && other->geometry().intersects(control->geometry()))
                << control->objectName().toStdString() << " " << other->objectName().toStdString();
    }
}

class DialogLanguages : public SettingsDialogs {
protected:
    void SetUp() override {
        SettingsDialogs::SetUp();
        g_SunDataSet.m_date = OrvoDate(2026, 12, 22);
        AddStandard(L"甲");
        Analyse(L"北京");
    }

    // Every dialog of the settings, one after the other, with what is looked at in each.
    static void RunAll(const std::function<void(const ModalWindow&)>& look) {
        const ModalDriver driver([&](const ModalWindow& window) {
            look(window);
            if (Play::NameOf(window) == "IDD_2010" || Play::NameOf(window) == "IDD_2017") {
                Click(window, 2028);
                Click(window, 2029);
            }
            return int{IDCANCEL};
        });
        for (const bool glare : {false, true})
            RunPrecision(glare);
        SunStdDlgDoModal(nullptr);
        EXPECT_EQ(driver.GetCount(), 5);
    }
    static void RunPrecision(bool glare) {
        OrvoDataPrecisSetDlg dialog(nullptr, glare);
        dialog.DoModal();
    }

    // What a day's work writes.
    static std::string Work() {
        const ModalDriver driver([](const ModalWindow& window) {
            const std::string name = Play::NameOf(window);
            if (name == "IDD_2010" || name == "IDD_2017") {
                Click(window, 2028);
                Choose(window, 2039, 3);
                Choose(window, 2054, 1);
                TypeTime(window, 2042, "0815");
            } else if (name == "IDD_2004" || name == "IDD_2015") {
                Choose(window, 2004, 1);
                Choose(window, 2005, 1);
            }
            return int{IDOK};
        });
        SunStdDlgDoModal(nullptr);
        RunPrecision(false);
        const FileTree folder;
        EXPECT_TRUE(g_dictSunSet.SaveToXML(folder.File("choices.xml")));
        QcDtDictionary saved(L"S");
        EXPECT_TRUE(g_SunDataSet.SaveSunDataSetDict(&saved));
        EXPECT_TRUE(saved.SaveToXML(folder.File("SunSet.xml")));
        return folder.Read("choices.xml") + folder.Read("SunSet.xml");
    }
};

}  // namespace

TEST_F(DialogLanguages, ShowEveryTextInEnglish) {
    const Language english(L"en");
    RunAll([](const ModalWindow& window) {
        const QStringList texts = OwnTexts(static_cast<QWidget*>(window.widget));
        EXPECT_GT(texts.size(), 3);
        for (const QString& text : texts)
            EXPECT_FALSE(HasChinese(text)) << text.toStdString();
    });
}

TEST_F(DialogLanguages, ShowTheEntriesOfTheirListsInEnglish) {
    const Language english(L"en");
    const ModalDriver driver([](const ModalWindow& window) {
        const bool standards = Play::NameOf(window) == "IDD_2017";
        for (const int id : standards ? std::vector{2054} : std::vector{2003})
            for (const std::string& entry : Entries(window, id))
                EXPECT_FALSE(HasChinese(QString::fromStdString(entry))) << entry;
        if (!standards) {
            EXPECT_EQ(Entries(window, 2004).back(), "Manage Standards...");
            EXPECT_EQ(Entries(window, 2005).back(), "Place Database...");
        }
        return int{IDCANCEL};
    });
    RunPrecision(false);
    SunStdDlgDoModal(nullptr);
}

TEST_F(DialogLanguages, TellInEnglish) {
    const Language english(L"en");
    g_SunDataSet.CurCity() = L"Nowhere";
    int told = 0;
    const ModalDriver driver([&told](const ModalWindow& window) {
        if (!window.text.IsEmpty()) {
            ++told;
            EXPECT_EQ(window.text, L"Please add the location of Nowhere to the place database.");
        }
        return int{IDCANCEL};
    });
    RunPrecision(false);
    EXPECT_EQ(told, 2) << "in one wording by now";
}

TEST_F(DialogLanguages, HaveRoomForTheirTexts) {
    for (const wchar_t* name : {L"zh", L"en"}) {
        const Language language(name);
        RunAll([](const ModalWindow& window) { ExpectRoom(static_cast<QWidget*>(window.widget)); });
    }
}

TEST_F(DialogLanguages, ChangeAtTheNextDialog) {
    const Language language(L"zh");
    std::vector<CString> titles;
    const ModalDriver driver([&titles](const ModalWindow& window) {
        titles.push_back(window.caption);
        return int{IDCANCEL};
    });
    for (const wchar_t* name : {L"zh", L"en", L"zh"}) {
        ASSERT_TRUE(ShippedLanguages().SetLanguage(name));
        SunStdDlgDoModal(nullptr);
    }
    EXPECT_EQ(titles, (std::vector<CString>{L"日照分析标准", L"Sunlight Standard", L"日照分析标准"}));
}

TEST_F(DialogLanguages, LeaveTheSameBytesUnderEach) {
    std::vector<std::string> written;
    for (const wchar_t* name : {L"zh", L"en"}) {
        TearDown();
        SetUp();
        AddStandard(L"乙");
        Analyse(L"宁波");
        const Language language(name);
        written.push_back(Work());
    }
    EXPECT_EQ(written[0], written[1]);
    EXPECT_NE(written[0].find("宁波"), std::string::npos);
}
