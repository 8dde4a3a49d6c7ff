// Moves the value of one member to its control or back, for each kind of both.
#include "platform/window/DataExchange.h"

#include <QRadioButton>
#include <charconv>
#include <cmath>
#include <string>

#include "platform/base/Language.h"
#include "platform/window/toolkit/QtText.h"
#include "platform/window/toolkit/WindowLink.h"

namespace {

constexpr int kShownDigits = 15;

CString NumberText(double value) {
    constexpr std::size_t kRoom = 64;
    char buffer[kRoom];
    const auto end = std::to_chars(buffer, buffer + kRoom, value, std::chars_format::general, kShownDigits).ptr;
    return FromUtf8({buffer, static_cast<std::size_t>(end - buffer)});
}

CString NumberText(int value) {
    CString text;
    text.Format(L"%d", value);
    return text;
}

// The whole of an entry as a number; blanks around it and a leading plus are allowed.
template <class Number>
bool ReadNumber(CString text, Number& value) {
    const std::string bytes = ToUtf8(text.Trim().View());
    const char* first = bytes.data();
    const char* last = first + bytes.size();
    if (first != last && *first == '+' && last - first > 1 && first[1] != '-')
        ++first;
    Number number = 0;
    const auto [end, error] = std::from_chars(first, last, number);
    if (error != std::errc() || end != last || !std::isfinite(static_cast<double>(number)))
        return false;
    value = number;
    return true;
}

[[noreturn]] void Refuse(CDataExchange* exchange, const CString& message) {
    exchange->m_pDlgWnd->MessageBox(message, nullptr, MB_ICONEXCLAMATION);
    exchange->Fail();
}

// The name of an edit that cannot take the focus, for a message that would not say which one it means; else nothing.
CString NameOfDisabled(const CWnd& edit) {
    const QWidget* widget = WindowLink::Of(edit.m_hWnd)->m_widget;
    if (widget->isEnabled() || widget->accessibleName().isEmpty())
        return CString();
    return FromQString(widget->accessibleName() + ": ");
}

template <class Number>
void ExchangeNumber(CDataExchange* exchange, int id, Number& value, const wchar_t* refusal) {
    CWnd* edit = exchange->PrepareEditCtrl(id);
    if (!exchange->m_bSaveAndValidate) {
        edit->SetWindowText(NumberText(value));
        return;
    }
    CString text;
    edit->GetWindowText(text);
    if (!ReadNumber(text, value))
        Refuse(exchange, NameOfDisabled(*edit) + PlatformText(refusal));
}

void ExchangeIndex(CDataExchange* exchange, int id, int& index, UINT get, UINT set) {
    CWnd* control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate)
        index = static_cast<int>(control->SendMessage(get));
    else
        control->SendMessage(set, static_cast<WPARAM>(index));
}

// The radio buttons from one on to the end of its group.
std::vector<WindowLink*> GroupFrom(const CWnd& first) {
    std::vector<WindowLink*> group;
    const CWnd* dialog = first.GetParent();
    bool inside = false;
    for (WindowLink* control : WindowLink::Controls(WindowLink::Of(dialog->m_hWnd)->m_widget)) {
        if (inside && (control->m_style & WS_GROUP) != 0)
            break;
        inside = inside || control->Handle() == first.m_hWnd;
        if (inside && qobject_cast<const QRadioButton*>(control->m_widget) != nullptr)
            group.push_back(control);
    }
    return group;
}

}  // namespace

void DDX_Control(CDataExchange* exchange, int id, CWnd& control) {
    if (control.m_hWnd != nullptr)
        return;
    exchange->PrepareCtrl(id);
    control.SubclassDlgItem(static_cast<UINT>(id), exchange->m_pDlgWnd);
}

void DDX_Text(CDataExchange* exchange, int id, CString& value) {
    CWnd* edit = exchange->PrepareEditCtrl(id);
    if (exchange->m_bSaveAndValidate)
        edit->GetWindowText(value);
    else
        edit->SetWindowText(value);
}

void DDX_Text(CDataExchange* exchange, int id, int& value) {
    ExchangeNumber(exchange, id, value, L"请键入一个整数。");
}

void DDX_Text(CDataExchange* exchange, int id, double& value) {
    ExchangeNumber(exchange, id, value, L"请键入一个数字。");
}

void DDX_Check(CDataExchange* exchange, int id, int& value) {
    CWnd* control = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate)
        value = static_cast<int>(control->SendMessage(BM_GETCHECK));
    else
        control->SendMessage(BM_SETCHECK, value != 0 ? BST_CHECKED : BST_UNCHECKED);
}

void DDX_Radio(CDataExchange* exchange, int id, int& value) {
    const CWnd* first = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate)
        value = -1;
    int index = 0;
    for (WindowLink* radio : GroupFrom(*first)) {
        if (exchange->m_bSaveAndValidate && Dispatch(*radio, BM_GETCHECK, 0, 0) != 0)
            value = index;
        if (!exchange->m_bSaveAndValidate)
            Dispatch(*radio, BM_SETCHECK, index == value ? BST_CHECKED : BST_UNCHECKED, 0);
        ++index;
    }
}

void DDX_CBIndex(CDataExchange* exchange, int id, int& index) {
    ExchangeIndex(exchange, id, index, CB_GETCURSEL, CB_SETCURSEL);
}

void DDV_MinMaxDouble(CDataExchange* exchange, const double& value, double minimum, double maximum) {
    if (!exchange->m_bSaveAndValidate || (value >= minimum && value <= maximum))
        return;
    CString message;
    message.Format(PlatformText(L"请键入一个介于 %s 和 %s 之间的数字。"), NumberText(minimum), NumberText(maximum));
    Refuse(exchange, message);
}
