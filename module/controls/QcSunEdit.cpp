// The edit of a fixed layout: the caret's ways through the template, and what keys do.
#include "controls/QcSunEdit.h"

#include "controls/PrintableCharacter.h"
#include "platform/base/TextNumber.h"
#include "platform/window/CPropertyPage.h"

namespace {

constexpr wchar_t kTypeable = L'_';

// The first typeable index from `start` on, going around at the end; -1 when there is none.
int FindForward(const CString& grammar, int start) {
    const int from = start >= grammar.GetLength() ? 0 : start;
    const int found = grammar.Find(kTypeable, from);
    return found >= 0 ? found : grammar.Find(kTypeable);
}

// The last typeable index up to `start`, going around at the beginning; -1 when there is none.
int FindBackward(const CString& grammar, int start) {
    const bool isWithin = start >= 0 && start < grammar.GetLength();
    const int found = isWithin ? grammar.Left(start + 1).ReverseFind(kTypeable) : -1;
    return found >= 0 ? found : grammar.ReverseFind(kTypeable);
}

// What would change the text past the template, or offer to.
bool IsRefused(UINT message) {
    switch (message) {
        case WM_PASTE:
        case WM_CUT:
        case WM_CLEAR:
        case WM_UNDO:
        case EM_UNDO:
        case WM_CONTEXTMENU:
        case WM_IME_COMPOSITION:  // what it commits comes as characters instead
            return true;
        default:
            return false;
    }
}

}  // namespace

BEGIN_MESSAGE_MAP(QcSunEdit, CEdit)
    ON_WM_SETCURSOR()
    ON_WM_SETFOCUS()
    ON_WM_CHAR()
    ON_WM_KEYDOWN()
END_MESSAGE_MAP()

QcSunEdit::QcSunEdit() = default;

QcSunEdit::~QcSunEdit() = default;

void QcSunEdit::SetDefault() {
    SetWindowText(m_strDefault);
}

int QcSunEdit::GetActivePos() const {
    int start = 0;
    int end = 0;
    GetSel(start, end);
    return start;
}

int QcSunEdit::MoveToValidPos() {
    const int active = GetActivePos();
    const int pos = FindForward(m_strGrammar, active);
    if (pos < 0)
        return active;
    SetSel(pos, pos + 1, TRUE);
    ScrollCaret();
    return pos;
}

int QcSunEdit::MoveToPrePos() {
    const int active = GetActivePos();
    const int pos = FindBackward(m_strGrammar, active - 1);
    if (pos < 0)
        return active;
    SetSel(pos, pos + 1, TRUE);
    ScrollCaret();
    return pos;
}

int QcSunEdit::MoveToNextPos() {
    const int active = GetActivePos();
    const int pos = FindForward(m_strGrammar, active + 1);
    if (pos < 0)
        return active;
    SetSel(pos, pos + 1, TRUE);
    return pos;
}

void QcSunEdit::replaceChar(wchar_t character) {
    if (character == 0)
        return;
    const wchar_t text[2] = {character, 0};
    ReplaceSel(text);
    SetModify(TRUE);
}

bool QcSunEdit::IsValidChar(wchar_t character) {
    return m_strValidChars.IsEmpty() ? IsPrintableCharacter(character) : m_strValidChars.Find(character) >= 0;
}

int QcSunEdit::PendingChar::NumberAt(int first, int count) const {
    CString digits;
    for (int index = first; index < first + count; ++index) {
        const wchar_t digit = index == pos ? character : text.GetAt(index);
        if (digit != 0)
            digits += digit;
    }
    return _wtoi(digits);
}

bool QcSunEdit::PassesBaseTest(UINT character) {
    const auto typed = static_cast<wchar_t>(character);
    return static_cast<UINT>(typed) == character && QcSunEdit::IsValidChar(typed);
}

QcSunEdit::PendingChar QcSunEdit::MoveForChar(UINT character) {
    MoveToValidPos();
    PendingChar pending{static_cast<wchar_t>(character), GetActivePos(), CString()};
    GetWindowText(pending.text);
    return pending;
}

int QcSunEdit::GetNumberAt(int first, int count) const {
    CString text;
    GetWindowText(text);
    return _wtoi(text.Mid(first, count));
}

wchar_t QcSunEdit::FillCharacter(int index) const {
    if (index < m_strDefault.GetLength())
        return m_strDefault.GetAt(index);
    if (index < m_strGrammar.GetLength() && m_strGrammar.GetAt(index) != kTypeable)
        return m_strGrammar.GetAt(index);
    return L' ';
}

void QcSunEdit::PutTwoDigits(CString& text, int first, int number) const {
    while (text.GetLength() < first + 2)
        text += FillCharacter(text.GetLength());
    text.SetAt(first, static_cast<wchar_t>(L'0' + number / 10));
    text.SetAt(first + 1, static_cast<wchar_t>(L'0' + number % 10));
}

LRESULT QcSunEdit::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    return IsRefused(message) ? 0 : CEdit::WindowProc(message, wParam, lParam);
}

void QcSunEdit::OnChar(UINT character, UINT, UINT) {
    const auto typed = static_cast<wchar_t>(character);
    if (static_cast<UINT>(typed) != character || !IsValidChar(typed))
        return;
    MoveToValidPos();
    replaceChar(typed);
    // The caret stands behind the typed character now: on to the next place that can be typed over.
    MoveToValidPos();
    if (auto* page = dynamic_cast<CPropertyPage*>(GetParent()))
        page->SetModified(TRUE);
}

void QcSunEdit::OnKeyDown(UINT key, UINT, UINT) {
    if (key == VK_BACK)
        RestoreSelection();
    else if (key == VK_LEFT)
        MoveToPrePos();
    else if (key == VK_RIGHT)
        MoveToNextPos();
}

// Backspace: what is selected becomes the default text again, fixed characters too. An empty selection only moves, and
// counts as a change all the same.
void QcSunEdit::RestoreSelection() {
    int start = 0;
    int end = 0;
    GetSel(start, end);
    CString restored;
    for (int index = start; index < end; ++index)
        restored += m_strValidChars.IsEmpty() ? L' ' : FillCharacter(index);
    ReplaceSel(restored);
    SetSel(start, start, TRUE);
    ScrollCaret();
    MoveToPrePos();
    SetModify(TRUE);
}

BOOL QcSunEdit::OnSetCursor(CWnd* window, UINT hitTest, UINT message) {
    const BOOL result = CEdit::OnSetCursor(window, hitTest, message);
    MoveFromEmptySelection();
    return result;
}

void QcSunEdit::OnSetFocus(CWnd* oldWindow) {
    CEdit::OnSetFocus(oldWindow);
    MoveFromEmptySelection();
}

// A caret between two characters, as a click or a new text leaves it, becomes the selection of one.
void QcSunEdit::MoveFromEmptySelection() {
    int start = 0;
    int end = 0;
    GetSel(start, end);
    if (start == end)
        MoveToValidPos();
}
