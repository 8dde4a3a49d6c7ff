// A dialog with edits in it, shown for the length of a test's body.
#pragma once

#include <gtest/gtest.h>

#include <QLineEdit>
#include <functional>

#include "platform/host/ResourceText.h"
#include "platform/window/CEdit.h"
#include "platform/window/CPropertyPage.h"
#include "platform/window/ModalDriver.h"

inline constexpr UINT kEditDialog = 7;
inline constexpr UINT kFirstEdit = 100;
inline constexpr UINT kSecondEdit = 101;

inline QWidget* WidgetOf(const CWnd& window) {
    return reinterpret_cast<QWidget*>(window.GetSafeHwnd());
}

inline QLineEdit* LineOf(const CWnd& window) {
    return static_cast<QLineEdit*>(WidgetOf(window));
}

inline CString TextOf(const CWnd& window) {
    CString text;
    window.GetWindowText(text);
    return text;
}

struct Selection {
    int start;
    int end;
    bool operator==(const Selection&) const = default;
};

inline void PrintTo(const Selection& selection, std::ostream* out) {
    *out << "[" << selection.start << ", " << selection.end << ")";
}

inline Selection SelectionOf(const CEdit& edit) {
    Selection selection{-1, -1};
    edit.GetSel(selection.start, selection.end);
    return selection;
}

// The program's resources are this test's dialog.
class EditResources {
public:
    EditResources() {
        AfxSetResourceText(nullptr,
                           "7 DIALOGEX 0, 0, 200, 90\n"
                           "STYLE DS_SETFONT | WS_POPUP | WS_CAPTION | WS_SYSMENU\n"
                           "CAPTION \"edits\"\n"
                           "FONT 9, \"sans\"\n"
                           "BEGIN\n"
                           "    EDITTEXT 100, 10, 10, 120, 12, ES_AUTOHSCROLL\n"
                           "    EDITTEXT 101, 10, 30, 120, 12, ES_AUTOHSCROLL\n"
                           "    DEFPUSHBUTTON \"OK\", 1, 10, 60, 50, 14\n"
                           "    PUSHBUTTON \"Cancel\", 2, 70, 60, 50, 14\n"
                           "END\n");
    }
    ~EditResources() { AfxSetResourceText(nullptr, {}); }
    EditResources(const EditResources&) = delete;
    EditResources& operator=(const EditResources&) = delete;
};

// Notes what the edits tell it: the text of the first one at each EN_CHANGE.
template <class Base>
class Noting : public Base {
public:
    Noting() : Base(kEditDialog) {}

    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override {
        if (wParam == MAKEWPARAM(kFirstEdit, EN_CHANGE)) {
            CString text;
            this->GetDlgItemText(kFirstEdit, text);
            m_changes.Add(text);
        }
        return Base::OnCommand(wParam, lParam);
    }

    CStringArray m_changes;
};

using EditDialog = Noting<CDialog>;
using EditPage = Noting<CPropertyPage>;

// Runs a dialog, calls the body once it is on the screen, and gives what the dialog ended with: IDCANCEL unless the
// body ended it otherwise.
inline int RunDialog(CDialog& dialog, const std::function<void()>& body) {
    const EditResources resources;
    const ModalDriver driver([&body](const ModalWindow&) {
        body();
        return IDCANCEL;
    });
    const INT_PTR result = dialog.DoModal();
    EXPECT_EQ(driver.GetCount(), 1) << "the dialog was not shown, so that nothing was tested";
    return static_cast<int>(result);
}

// The same with an edit in place of the first one, which shows its default text with the caret before it.
template <class Edit>
int RunWith(Edit& edit, const std::function<void(EditDialog&)>& body) {
    EditDialog dialog;
    return RunDialog(dialog, [&] {
        ASSERT_TRUE(edit.SubclassDlgItem(kFirstEdit, &dialog));
        edit.SetDefault();
        dialog.m_changes.RemoveAll();
        body(dialog);
    });
}
