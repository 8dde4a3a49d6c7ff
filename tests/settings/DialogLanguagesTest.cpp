// The dialogs of the settings in both languages: the texts have room, and the data know no language.
#include <QLabel>

#include "settings/OrvoDataPrecisSetDlg.h"
#include "settings/OrvoSetStdDlg.h"
#include "settings/ProgramLanguage.h"
#include "settings/SettingsDialogs.h"
#include "support/FileTree.h"

namespace {

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
                Click(window, 2033);
                Click(window, 2035);
                Type(window, 2036, "1234.5");
                Choose(window, 2004, 0);
                Click(window, 2029);
                Click(window, 2031);
                Click(window, 2059);
                auto* picker = Item<QDateEdit>(window, 2038);
                picker->setFocus();
                picker->setSelectedSection(QDateTimeEdit::DaySection);
                QTest::keyClicks(picker, "05");
            } else if (name == "IDD_2009" || name == "IDD_2013") {
                // The name that is offered first, and another where a standard is renamed.
                if (EditText(window, 2026) == "甲")
                    Paste(window, 2026, "戊-5 <&> 😀");
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

TEST_F(DialogLanguages, ShowTheEntriesOfTheirListsInEnglish) {
    const ProgramLanguage english(L"en");
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
    const ProgramLanguage english(L"en");
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
        const ProgramLanguage language(name);
        RunAll([](const ModalWindow& window) { ExpectRoom(static_cast<QWidget*>(window.widget)); });
    }
}

TEST_F(DialogLanguages, ChangeAtTheNextDialog) {
    const ProgramLanguage language(L"zh");
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
        const ProgramLanguage language(name);
        written.push_back(Work());
    }
    EXPECT_EQ(written[0], written[1]);
    for (const char* text : {"宁波", "新建标准", "戊-5", "1234.5", "2026-12- 5", "当前日照设置数据"})
        EXPECT_NE(written[0].find(text), std::string::npos) << text;
}
