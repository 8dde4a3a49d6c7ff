// The combo box on the screen.
#include <QComboBox>
#include <QLineEdit>
#include <QSignalBlocker>

#include "platform/window/toolkit/QtText.h"
#include "platform/window/toolkit/WindowEvents.h"
#include "platform/window/toolkit/WindowKinds.h"

namespace {

constexpr int kMostVisible = 24;

QComboBox& ComboOf(const WindowLink& link) {
    return *static_cast<QComboBox*>(link.m_widget);
}

// The selected entry; none once another text is typed.
int Selected(const QComboBox& combo) {
    const int index = combo.currentIndex();
    const bool typed = combo.isEditable() && index >= 0 && combo.currentText() != combo.itemText(index);
    return typed ? CB_ERR : index;
}

// Selects nothing and keeps what is typed.
void Unselect(QComboBox& combo, const QString& typed) {
    combo.setCurrentIndex(-1);
    if (combo.isEditable())
        combo.setEditText(typed);
}

LRESULT Insert(QComboBox& combo, int index, LPARAM text) {
    if (index < -1 || index > combo.count())
        return CB_ERR;
    const int selected = Selected(combo);
    const int at = index < 0 ? combo.count() : index;
    const QString typed = combo.currentText();
    combo.insertItem(at, ToQString(reinterpret_cast<const wchar_t*>(text)));
    if (selected < 0)  // the toolkit selects a first entry by itself
        Unselect(combo, typed);
    return at;
}

LRESULT Delete(QComboBox& combo, int index) {
    if (index < 0 || index >= combo.count())
        return CB_ERR;
    const int selected = Selected(combo);
    const QString typed = combo.currentText();
    combo.removeItem(index);
    if (selected < 0)
        Unselect(combo, typed);
    else if (selected == index)
        combo.setCurrentIndex(-1);
    return combo.count();
}

LRESULT Select(QComboBox& combo, int index) {
    const bool known = index >= 0 && index < combo.count();
    combo.setCurrentIndex(known ? index : -1);
    return known ? index : CB_ERR;
}

LRESULT ItemMessage(QComboBox& combo, UINT message, int index, LPARAM lParam) {
    if (index < 0 || index >= combo.count())
        return CB_ERR;
    const CString text = FromQString(combo.itemText(index));
    switch (message) {
        case CB_GETLBTEXT:
            return CopyText(text, static_cast<WPARAM>(text.GetLength()) + 1, lParam);
        case CB_GETLBTEXTLEN:
            return text.GetLength();
        case CB_GETITEMDATA:
            return static_cast<LRESULT>(combo.itemData(index).toLongLong());
        default:  // CB_SETITEMDATA
            combo.setItemData(index, static_cast<qlonglong>(lParam));
            return 0;
    }
}

LRESULT TextMessage(QComboBox& combo, UINT message, WPARAM wParam, LPARAM lParam) {
    const CString text = FromQString(combo.currentText());
    switch (message) {
        case WM_GETTEXT:
            return CopyText(text, wParam, lParam);
        case WM_GETTEXTLENGTH:
            return text.GetLength();
        default:  // WM_SETTEXT
            if (!combo.isEditable())
                return CB_ERR;
            combo.setEditText(ToQString(reinterpret_cast<const wchar_t*>(lParam)));
            return TRUE;
    }
}

LRESULT ComboBoxProcedure(WindowLink& link, UINT message, WPARAM wParam, LPARAM lParam) {
    QComboBox& combo = ComboOf(link);
    const int index = static_cast<int>(wParam);
    switch (message) {
        case CB_GETCOUNT:
            return combo.count();
        case CB_GETCURSEL:
            return Selected(combo);
        case CB_ADDSTRING:
            return Insert(combo, -1, lParam);
        case CB_INSERTSTRING:
            return Insert(combo, index, lParam);
        case CB_DELETESTRING:
            return Delete(combo, index);
        case CB_RESETCONTENT:
            combo.clear();
            return 0;
        case CB_SETCURSEL:
            return Select(combo, index);
        case CB_GETLBTEXT:
        case CB_GETLBTEXTLEN:
        case CB_GETITEMDATA:
        case CB_SETITEMDATA:
            return ItemMessage(combo, message, index, lParam);
        case WM_SETTEXT:
        case WM_GETTEXT:
        case WM_GETTEXTLENGTH:
            return TextMessage(combo, message, wParam, lParam);
        default:
            return CommonProcedure(link, message, wParam, lParam);
    }
}

}  // namespace

WindowLink& MakeComboBox(const ControlRequest& request) {
    auto* combo = new QComboBox(request.parent);  // a child of the parent
    constexpr DWORD kKindMask = CBS_DROPDOWNLIST;
    combo->setEditable((request.style & kKindMask) != CBS_DROPDOWNLIST);
    combo->setInsertPolicy(QComboBox::NoInsert);
    if (combo->isEditable())
        combo->setCompleter(nullptr);  // what is typed stays as typed
    combo->setMaxVisibleItems(kMostVisible);
    WindowLink& link = MakeWindow(combo, request.id, request.style, &ComboBoxProcedure);
    // Both signals come from the user alone.
    QObject::connect(combo, &QComboBox::activated, combo, [&link] { link.NotifyParent(CBN_SELCHANGE); });
    if (combo->isEditable())
        QObject::connect(combo->lineEdit(), &QLineEdit::textEdited, combo,
                         [&link] { link.NotifyParent(CBN_EDITCHANGE); });
    return link;
}
