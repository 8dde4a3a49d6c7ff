// The operations of list boxes, each of which sends a message.
#include "platform/window/CListBox.h"

#include <string>

BEGIN_MESSAGE_MAP(CListBox, CWnd)
END_MESSAGE_MAP()

int CListBox::GetCount() const {
    return static_cast<int>(SendMessage(LB_GETCOUNT));
}

int CListBox::AddString(const wchar_t* text) {
    return static_cast<int>(SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)));
}

int CListBox::InsertString(int index, const wchar_t* text) {
    return static_cast<int>(SendMessage(LB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text)));
}

int CListBox::DeleteString(int index) {
    return static_cast<int>(SendMessage(LB_DELETESTRING, static_cast<WPARAM>(index)));
}

void CListBox::ResetContent() {
    SendMessage(LB_RESETCONTENT);
}

int CListBox::GetText(int index, CString& text) const {
    const int length = GetTextLen(index);
    text.Empty();
    if (length <= 0)
        return length;
    std::wstring buffer(static_cast<std::size_t>(length) + 1, L'\0');
    SendMessage(LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(buffer.data()));
    text = CString(buffer.data(), length);
    return length;
}

int CListBox::GetTextLen(int index) const {
    return m_hWnd ? static_cast<int>(SendMessage(LB_GETTEXTLEN, static_cast<WPARAM>(index))) : 0;
}

int CListBox::GetCurSel() const {
    return m_hWnd ? static_cast<int>(SendMessage(LB_GETCURSEL)) : LB_ERR;
}

int CListBox::SetCurSel(int index) {
    return static_cast<int>(SendMessage(LB_SETCURSEL, static_cast<WPARAM>(index)));
}

DWORD_PTR CListBox::GetItemData(int index) const {
    return static_cast<DWORD_PTR>(SendMessage(LB_GETITEMDATA, static_cast<WPARAM>(index)));
}

int CListBox::SetItemData(int index, DWORD_PTR data) {
    return static_cast<int>(SendMessage(LB_SETITEMDATA, static_cast<WPARAM>(index), static_cast<LPARAM>(data)));
}
