// Running the dialogs of the settings in tests: known places and standards, a play that says which windows come in
// which order, and the hands of a user.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <functional>
#include <string>
#include <vector>

#include "frame/ConfigDictionaries.h"
#include "platform/base/Language.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/host/ResourceText.h"
#include "platform/window/ModalDriver.h"
#include "resources/ModuleDialogs.h"
#include "settings/AnalysisParameters.h"
#include "settings/OrvoDataSet.h"
#include "support/FileTree.h"

// One window of a play: "IDD_2010" for a dialog, the text for a message box; and what is done in it. The answer is as a
// ModalDriver's.
struct Scene {
    std::string window;
    std::function<int(const ModalWindow&)> answer = [](const ModalWindow&) { return IDOK; };
};

// The windows that have to come, in this order and no others, while it lives. Windows over a window are scenes behind
// its own.
class Play {
public:
    explicit Play(std::vector<Scene> scenes)
        : m_scenes(std::move(scenes)), m_driver([this](const ModalWindow& window) { return Answer(window); }) {}
    ~Play() { EXPECT_EQ(m_next, m_scenes.size()) << "not every window came"; }
    Play(const Play&) = delete;
    Play& operator=(const Play&) = delete;

    static std::string NameOf(const ModalWindow& window) {
        const std::string name = static_cast<QWidget*>(window.widget)->objectName().toStdString();
        return name.rfind("IDD_", 0) == 0 ? name : ToUtf8(window.text.View());
    }

private:
    int Answer(const ModalWindow& window) {
        if (m_next == m_scenes.size()) {
            ADD_FAILURE() << "an unexpected window: " << NameOf(window);
            return ModalDriver::kCareful;
        }
        const Scene scene = m_scenes[m_next++];
        EXPECT_EQ(NameOf(window), scene.window);
        return scene.answer(window);
    }

    std::vector<Scene> m_scenes;
    std::size_t m_next = 0;
    ModalDriver m_driver;
};

// A scene whose answer looks and acts, and then cancels (or leaves it with another command; 0: acted already).
inline Scene Do(const std::string& window, const std::function<void(const ModalWindow&)>& act, int command = IDCANCEL) {
    return {window, [act, command](const ModalWindow& shown) {
                act(shown);
                return command;
            }};
}

template <class Widget = QWidget>
Widget* Item(const ModalWindow& window, int id) {
    auto* widget = static_cast<QWidget*>(window.widget)->findChild<Widget*>(QString("IDC_%1").arg(id));
    if (widget == nullptr)
        throw std::runtime_error("no control " + std::to_string(id));  // the driver fails the test
    return widget;
}

// Where the next key would go: the window itself may become the active one again a little later.
inline bool HasFocus(const ModalWindow& window, int id) {
    const QWidget* focus = static_cast<QWidget*>(window.widget)->focusWidget();
    const QWidget* item = Item(window, id);
    return focus != nullptr && (focus == item || focus == item->focusProxy());
}
inline bool IsOn(const ModalWindow& window, int id) {
    return Item(window, id)->isEnabled();
}
// The numbers of those that are enabled.
inline std::vector<int> Enabled(const ModalWindow& window, const std::vector<int>& ids) {
    std::vector<int> enabled;
    for (const int id : ids)
        if (IsOn(window, id))
            enabled.push_back(id);
    return enabled;
}
inline bool IsChecked(const ModalWindow& window, int id) {
    return Item<QAbstractButton>(window, id)->isChecked();
}
inline std::string EditText(const ModalWindow& window, int id) {
    return Item<QLineEdit>(window, id)->text().toStdString();
}
inline std::string ChoiceText(const ModalWindow& window, int id) {
    return Item<QComboBox>(window, id)->currentText().toStdString();
}
inline std::vector<std::string> Entries(const ModalWindow& window, int id) {
    const auto* combo = Item<QComboBox>(window, id);
    std::vector<std::string> entries;
    for (int index = 0; index < combo->count(); ++index)
        entries.push_back(combo->itemText(index).toStdString());
    return entries;
}

// At the left end, where the mark of a radio button or check box is.
inline void Click(const ModalWindow& window, int id) {
    auto* button = Item<QAbstractButton>(window, id);
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
}
inline void Type(const ModalWindow& window, int id, const QString& text) {
    auto* edit = Item<QLineEdit>(window, id);
    edit->setFocus();
    edit->selectAll();
    if (text.isEmpty())
        QTest::keyClick(edit, Qt::Key_Delete);
    else
        QTest::keyClicks(edit, text);
}
// Through the clipboard, as long texts come.
inline void Paste(const ModalWindow& window, int id, const QString& text) {
    auto* edit = Item<QLineEdit>(window, id);
    QApplication::clipboard()->setText(text);
    edit->setFocus();
    edit->selectAll();
    QTest::keySequence(edit, QKeySequence::Paste);
}
// Digits over a masked edit, from its first place on.
inline void TypeTime(const ModalWindow& window, int id, const QString& digits) {
    auto* edit = Item<QLineEdit>(window, id);
    edit->setFocus();
    edit->home(false);
    QTest::keyClicks(edit, digits);
}
// In the list that drops down.
inline void Choose(const ModalWindow& window, int id, int index) {
    auto* combo = Item<QComboBox>(window, id);
    ASSERT_LT(index, combo->count());
    combo->setFocus();
    combo->showPopup();
    combo->view()->setCurrentIndex(combo->model()->index(index, 0));
    QTest::keyClick(combo->view(), Qt::Key_Return);
}

// Fresh settings, a few places, and the module's dialogs in the program's resources.
class SettingsDialogs : public testing::Test {
protected:
    void SetUp() override {
        AfxSetResourceText(nullptr, Script());
        g_SunDataSet = OrvoDataSet();
        g_dictSunSet.RemoveAll();
        g_dictSunZone.RemoveAll();
        AddPlace(L"北京市", L"北京", L"116.4", L"39.9");
        AddPlace(L"浙江", L"杭州", L"120.2", L"30.28");
        AddPlace(L"浙江", L"宁波", L"121.5", L"29.87");
    }
    void TearDown() override {
        AfxSetResourceText(nullptr, {});
        g_strCurLanguage = L"Chs";
        g_SunDataSet = OrvoDataSet();
        g_dictSunSet.RemoveAll();
        g_dictSunZone.RemoveAll();
        g_nSunAngPrec = 0.00001;
        g_nSunDistPrec = 0.05;
        g_nSunWinOffset = 5.0;
    }

    // Through the file and back, as when the program ends and starts.
    static void Reload() {
        const FileTree folder;
        QcDtDictionary saved(L"S");
        ASSERT_TRUE(g_SunDataSet.SaveSunDataSetDict(&saved));
        ASSERT_TRUE(saved.SaveToXML(folder.File("SunSet.xml")));
        QcDtDictionary read;
        ASSERT_TRUE(read.ReadFromXML(folder.File("SunSet.xml")));
        g_SunDataSet = OrvoDataSet();
        ASSERT_TRUE(g_SunDataSet.LoadSunDataSetDict(&read));
    }

    static void AddPlace(const wchar_t* province, const wchar_t* city, const wchar_t* longitude,
                         const wchar_t* latitude) {
        OrvoZoneRecord record;
        record.m_strProvince = province;
        record.m_strCity = city;
        record.m_strLongitude = longitude;
        record.m_strLatitude = latitude;
        ASSERT_TRUE(record.SaveToXml());
    }
    // A standard that applies to December 22nd of 2026, from 9 to 15 o'clock, added to the list.
    static OrvoStdSet& AddStandard(const wchar_t* name) {
        OrvoStdSet standard;
        standard.m_strName = name;
        standard.m_date.SetXmlDate(L"2026-12-22");
        standard.m_dgStartTime = OrvoDegree(9, 0, 0);
        standard.m_dgEndTime = OrvoDegree(15, 0, 0);
        return *g_SunDataSet.NewStd(standard);
    }
    static void Analyse(const wchar_t* city) { g_SunDataSet.m_listCity.Append(new OrvoCity(city)); }

private:
    static const std::string& Script() {
        static const std::string text =
            SourceText("module/resources/Resource.h") + SourceText("module/resources/OrvoDataBase.rc");
        return text;
    }
};
