// An edit without a screen: a text, a selection and a mark, with what the masked edit asks of the framework's.
#pragma once

#include <algorithm>

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/window/WindowMessages.h"

#define afx_msg
#define DECLARE_MESSAGE_MAP()
#define BEGIN_MESSAGE_MAP(theClass, baseClass)
#define ON_WM_SETCURSOR()
#define ON_WM_SETFOCUS()
#define ON_WM_CHAR()
#define ON_WM_KEYDOWN()
#define END_MESSAGE_MAP()

class CWnd {
public:
    CWnd() = default;
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;
    virtual ~CWnd() = default;
    CWnd* GetParent() const { return nullptr; }
    void GetWindowText(CString& text) const { text = m_text; }
    void SetWindowText(const CString& text) {
        m_text = text;
        m_start = m_end = 0;
    }

protected:
    virtual LRESULT WindowProc(UINT, WPARAM, LPARAM) { return 0; }
    BOOL OnSetCursor(CWnd*, UINT, UINT) { return TRUE; }
    void OnSetFocus(CWnd*) {}

    CString m_text;
    int m_start = 0;
    int m_end = 0;
};

class CEdit : public CWnd {
public:
    void GetSel(int& start, int& end) const {
        start = m_start;
        end = m_end;
    }
    void SetSel(int start, int end, BOOL = FALSE) {
        m_start = std::clamp(start, 0, m_text.GetLength());
        m_end = std::clamp(end, m_start, m_text.GetLength());
    }
    void ReplaceSel(const wchar_t* text) {
        const int behind = m_start + CString(text).GetLength();
        CString replaced = m_text.Left(m_start);
        replaced += CString(text);
        replaced += m_text.Mid(m_end, m_text.GetLength());
        m_text = replaced;
        SetSel(behind, behind);
    }
    void ScrollCaret() {}
    BOOL GetModify() const { return m_modified; }
    void SetModify(BOOL modified) { m_modified = modified; }

private:
    BOOL m_modified = FALSE;
};
