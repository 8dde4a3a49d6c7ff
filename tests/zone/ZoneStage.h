// The stage for tests of the dialogs of places: a zone.xml of the test's own, the module initialised so that its
// templates are found, and the means to look at a dialog's real widgets.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QTest>
#include <QTreeView>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "frame/ConfigFiles.h"
#include "frame/ConfigSandbox.h"
#include "frame/Resources.h"
#include "platform/base/Language.h"
#include "platform/host/CommandStack.h"
#include "platform/host/DynamicLinker.h"
#include "platform/host/HostMessages.h"
#include "platform/host/RxRegistry.h"
#include "platform/window/CFileDialog.h"
#include "platform/window/ModalDriver.h"
#include "support/Folders.h"
#include "zone/OrvoZoneDbSetDlg.h"
#include "zone/OrvoZoneWDGrid.h"

using Texts = std::vector<std::string>;

inline void PrintTo(const CString& text, std::ostream* out) {
    *out << '"' << ToUtf8(text.View()) << '"';
}

// A control of a shown dialog, by its number.
template <class Widget = QWidget>
Widget* ControlOf(const ModalWindow& window, int id) {
    return static_cast<QWidget*>(window.widget)->findChild<Widget*>(QString("IDC_%1").arg(id));
}

inline void Press(const ModalWindow& window, int id) {
    auto* button = ControlOf<QAbstractButton>(window, id);
    ASSERT_NE(button, nullptr) << id;
    QTest::mouseClick(button, Qt::LeftButton);
}

inline std::string TextOf(const QWidget* widget) {
    const auto* edit = dynamic_cast<const QLineEdit*>(widget);
    return edit ? edit->text().toStdString() : std::string();
}

inline std::vector<std::string> EntriesOf(const QListWidget& list) {
    std::vector<std::string> entries;
    for (int row = 0; row < list.count(); ++row)
        entries.push_back(list.item(row)->text().toStdString());
    return entries;
}

// What modal windows over a dialog (boxes, menus) said, and what they are answered with.
class Answers {
public:
    explicit Answers(int command = IDOK)
        : m_driver([this, command](const ModalWindow& window) {
              texts.push_back(ToUtf8(window.text.View()));
              captions.push_back(ToUtf8(window.caption.View()));
              owners.push_back(window.owner);
              return command;
          }) {}

    Texts texts;
    Texts captions;
    std::vector<HWND> owners;

private:
    ModalDriver m_driver;
};

// The interface in English for as long as it lives. The module keeps the address of the switch's dictionary, so that
// there is one switch for all tests.
class EnglishInterface {
public:
    EnglishInterface() {
        const EnvironmentVariable data("ORVO_SUPPORT_PATH", SourceFolder() + "/data");
        EXPECT_TRUE(Switch().SetLanguage(L"en"));
        g_pTeskLangSwitch = &Switch();
    }
    ~EnglishInterface() {
        Switch().SetLanguage(L"zh");
        g_pTeskLangSwitch = nullptr;
    }
    EnglishInterface(const EnglishInterface&) = delete;
    EnglishInterface& operator=(const EnglishInterface&) = delete;

private:
    static TeskLanguageSwitch& Switch() {
        static TeskLanguageSwitch& languages = *new TeskLanguageSwitch;
        return languages;
    }
};

class ZoneStage : public ConfigSandbox {
protected:
    void SetUp() override {
        ConfigSandbox::SetUp();
        acrxEntryPoint(1, Handle());
        m_lines.clear();
    }
    void TearDown() override {
        acrxEntryPoint(2, Handle());
        dynamic_cast<AcRxDynamicLinker*>(acrxSysRegistry()->at(L"DynamicLinker"))->forget(Handle());
        CFileDialog::ShowDialogsAgainForTest();
        g_strCurLanguage = L"Chs";
        ConfigSandbox::TearDown();
    }

    // Makes zone.xml of these elements and loads it.
    void Load(const std::string& elements) {
        m_folder.Write("zone.xml", Document(elements));
        ASSERT_TRUE(LoadSunData());
    }
    static std::string Document(const std::string& elements) {
        return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ORVO_ZONEDATA xmlns:dt=\"urn:orvo:dictionary\">" +
               elements + "</ORVO_ZONEDATA>\n";
    }
    // What zone.xml holds now.
    std::unique_ptr<QcDtDictionary> Saved() const {
        auto saved = std::make_unique<QcDtDictionary>();
        EXPECT_TRUE(saved->ReadFromXML(m_folder.File("zone.xml")));
        return saved;
    }

    // Runs a dialog; `body` works in it once it is shown. What is left open then is cancelled.
    static INT_PTR Run(const std::function<INT_PTR()>& modal, const std::function<void(const ModalWindow&)>& body) {
        const ModalDriver driver([&body](const ModalWindow& window) {
            body(window);
            return IDCANCEL;
        });
        const INT_PTR result = modal();
        EXPECT_EQ(driver.GetCount(), 1) << "the dialog was not shown, or a window over it was left to us";
        return result;
    }

private:
    static void* Handle() { return &g_SunDataSet; }
};

// Two provinces: 甲 with A and B, 乙 with C.
inline const char* const kTwoProvinces =
    "<甲 type=\"PROVINCE\">"
    "<A type=\"CITY\" longitude=\"116.4666666667\" latitude=\" 39.9000000000\" comment=\"note A\"/>"
    "<B type=\"CITY\" longitude=\"121.5\" latitude=\"31.25\" comment=\"note B\"/>"
    "</甲>"
    "<乙 type=\"PROVINCE\">"
    "<C type=\"CITY\" longitude=\"113.25\" latitude=\"23.125\" comment=\"note C\"/>"
    "</乙>";
