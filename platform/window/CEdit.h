// An edit of one line. (ES_MULTILINE is accepted: such an edit has one line, too.)
// Why: docs/decisions/window.md
#pragma once

#include "platform/window/CWnd.h"

// Positions count characters from 0; a selection is [start, end), the caret stands at its end. Setting the text puts
// the caret before it and takes the modify flag away. Nothing can be dropped into an edit. Notifications to the parent:
// EN_SETFOCUS, EN_KILLFOCUS, EN_CHANGE (whoever changed the text).
class ORVO_API CEdit : public CWnd {
public:
    // A control of its own, in pixels of the parent. False without a parent, or when this has a window.
    virtual BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);

    // The selection, or the caret twice.
    void GetSel(int& start, int& end) const;
    // (0, -1) selects everything; an end before the start is taken as the start's mirror, both are clamped. Scrolls to
    // the caret unless told not to.
    void SetSel(int start, int end, BOOL noScroll = FALSE);
    // Replaces the selection and puts the caret behind what is new. Marks the edit modified.
    void ReplaceSel(const wchar_t* text, BOOL canUndo = FALSE);
    // Shows the part of the text with the caret.
    void ScrollCaret();
    // Whether the text was changed since it was set: by the user, by ReplaceSel or by SetModify.
    BOOL GetModify() const;
    void SetModify(BOOL modified = TRUE);
    // The length of the line, which is the whole text, in characters.
    int LineLength(int line = -1) const;
    // The formatting rectangle within the client area, in pixels; null changes nothing.
    void SetRect(const RECT* rect);
    // As the user's keys: undo, and the clipboard; Clear deletes the selection.
    BOOL Undo();
    void Cut();
    void Copy();
    void Paste();
    void Clear();

protected:
    DECLARE_MESSAGE_MAP()
};
