// The operations of combo boxes, each of which sends a message.
#include "platform/window/CComboBox.h"

#include <string>

BEGIN_MESSAGE_MAP(CComboBox, CWnd)
END_MESSAGE_MAP()

int CComboBox::GetCount() const {
    return static_cast<int>(SendMessage(CB_GETCOUNT));
}

int CComboBox::AddString(const wchar_t* text) {
    return static_cast<int>(SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)));
}

int CComboBox::InsertString(int index, const wchar_t* text) {
    return static_cast<int>(SendMessage(CB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text)));
}

int CComboBox::DeleteString(int index) {
    return static_cast<int>(SendMessage(CB_DELETESTRING, static_cast<WPARAM>(index)));
}

void CComboBox::ResetContent() {
    SendMessage(CB_RESETCONTENT);
}

int CComboBox::GetLBText(int index, CString& text) const {
    const int length = GetLBTextLen(index);
    text.Empty();
    if (length <= 0)
        return length;
    std::wstring buffer(static_cast<std::size_t>(length) + 1, L'\0');
    SendMessage(CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(buffer.data()));
    text = CString(buffer.data(), length);
    return length;
}

int CComboBox::GetLBTextLen(int index) const {
    return m_hWnd ? static_cast<int>(SendMessage(CB_GETLBTEXTLEN, static_cast<WPARAM>(index))) : 0;
}

int CComboBox::GetCurSel() const {
    return m_hWnd ? static_cast<int>(SendMessage(CB_GETCURSEL)) : CB_ERR;
}

int CComboBox::SetCurSel(int index) {
    return static_cast<int>(SendMessage(CB_SETCURSEL, static_cast<WPARAM>(index)));
}

DWORD_PTR CComboBox::GetItemData(int index) const {
    return static_cast<DWORD_PTR>(SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(index)));
}

int CComboBox::SetItemData(int index, DWORD_PTR data) {
    return static_cast<int>(SendMessage(CB_SETITEMDATA, static_cast<WPARAM>(index), static_cast<LPARAM>(data)));
}
