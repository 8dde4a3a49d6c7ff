// Dialogs for tests: made from a script in the test, run, and answered in their real widgets.
#pragma once

#include <gtest/gtest.h>

#include <QDialog>
#include <QTest>
#include <QWidget>
#include <functional>
#include <string>

#include "platform/host/ExtensionModule.h"
#include "platform/host/ResourceText.h"
#include "platform/window/ModalDriver.h"
#include "platform/window/QcUiDialog.h"

// While it lives, the program's dialogs are those of this script.
class ScriptForTests {
public:
    explicit ScriptForTests(std::string script) : m_script(std::move(script)) { AfxSetResourceText(nullptr, m_script); }
    ~ScriptForTests() { AfxSetResourceText(nullptr, {}); }
    ScriptForTests(const ScriptForTests&) = delete;
    ScriptForTests& operator=(const ScriptForTests&) = delete;

private:
    std::string m_script;
};

// A script with one dialog, number 100 of 200 x 100 units, with these items.
inline std::string DialogScript(const std::string& items) {
    return "100 DIALOGEX 0, 0, 200, 100\nSTYLE WS_POPUP | WS_CAPTION | WS_SYSMENU\nCAPTION \"Test\"\n"
           "FONT 9, \"MS Shell Dlg\"\nBEGIN\n" +
           items + "END\n";
}

inline QWidget* WidgetFor(HWND window) {
    return reinterpret_cast<QWidget*>(window);
}

// The control of a shown dialog, by its number.
template <class Widget = QWidget>
Widget* Control(const ModalWindow& window, int id) {
    return static_cast<QWidget*>(window.widget)->findChild<Widget*>(QString("IDC_%1").arg(id));
}

// A dialog that runs what a test gives it, in the moments of its life.
class DialogForTests : public QcUiDialog {
public:
    explicit DialogForTests(const std::string& items) : QcUiDialog(100), m_script(DialogScript(items)) {}

    std::function<void()> m_onInit;
    std::function<void(CDataExchange*)> m_onExchange;
    std::function<void(UINT message, WPARAM wParam, LPARAM lParam)> m_onMessage;  // sees every message first

    // Shows the dialog and lets `answer` work in it; what is left open then is closed as with Escape. Gives DoModal's
    // result.
    INT_PTR Run(const std::function<void(const ModalWindow&)>& answer) {
        const ModalDriver driver([this, &answer](const ModalWindow& window) {
            if (window.widget != WidgetFor(m_hWnd))
                return ModalDriver::kCareful;  // a window over this one is for a driver of its own
            answer(window);
            return IDCANCEL;
        });
        return DoModal();
    }

    BOOL OnInitDialog() override {
        const BOOL result = QcUiDialog::OnInitDialog();
        if (m_onInit)
            m_onInit();
        return result;
    }

    void DoDataExchange(CDataExchange* exchange) override {
        if (m_onExchange)
            m_onExchange(exchange);
    }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (m_onMessage)
            m_onMessage(message, wParam, lParam);
        return QcUiDialog::WindowProc(message, wParam, lParam);
    }

private:
    ScriptForTests m_script;
};
