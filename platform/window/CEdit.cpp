// The operations of edits, each of which sends a message, so that whoever is attached to the edit sees it.
#include "platform/window/CEdit.h"

#include <QWidget>

#include "platform/window/toolkit/WindowKinds.h"

BEGIN_MESSAGE_MAP(CEdit, CWnd)
END_MESSAGE_MAP()

BOOL CEdit::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    const WindowLink* around = parent ? WindowLink::Of(parent->m_hWnd) : nullptr;
    if (around == nullptr || m_hWnd != nullptr)
        return FALSE;
    const WindowLink& link = MakeEdit({around->m_widget, id, style, CString()});
    Attach(link.Handle());
    MoveWindow(&rect);
    EnableWindow((style & WS_DISABLED) == 0);
    if ((style & WS_VISIBLE) != 0)
        ShowWindow(SW_SHOW);
    return TRUE;
}

void CEdit::GetSel(int& start, int& end) const {
    DWORD from = 0;
    DWORD to = 0;
    SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    start = static_cast<int>(from);
    end = static_cast<int>(to);
}

void CEdit::SetSel(int start, int end, BOOL noScroll) {
    SendMessage(EM_SETSEL, static_cast<WPARAM>(start), end);
    if (!noScroll)
        ScrollCaret();
}

void CEdit::ReplaceSel(const wchar_t* text, BOOL canUndo) {
    SendMessage(EM_REPLACESEL, static_cast<WPARAM>(canUndo), reinterpret_cast<LPARAM>(text ? text : L""));
}

void CEdit::ScrollCaret() {
    SendMessage(EM_SCROLLCARET);
}

BOOL CEdit::GetModify() const {
    return static_cast<BOOL>(SendMessage(EM_GETMODIFY));
}

void CEdit::SetModify(BOOL modified) {
    SendMessage(EM_SETMODIFY, static_cast<WPARAM>(modified));
}

int CEdit::LineLength(int line) const {
    return static_cast<int>(SendMessage(EM_LINELENGTH, static_cast<WPARAM>(line)));
}

void CEdit::SetRect(const RECT* rect) {
    SendMessage(EM_SETRECT, 0, reinterpret_cast<LPARAM>(rect));
}

BOOL CEdit::Undo() {
    return static_cast<BOOL>(SendMessage(EM_UNDO));
}

void CEdit::Cut() {
    SendMessage(WM_CUT);
}

void CEdit::Copy() {
    SendMessage(WM_COPY);
}

void CEdit::Paste() {
    SendMessage(WM_PASTE);
}

void CEdit::Clear() {
    SendMessage(WM_CLEAR);
}
