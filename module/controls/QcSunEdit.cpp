// The edit of a fixed layout: the caret's ways through the template, and what keys do.
#include "controls/QcSunEdit.h"

#include <type_traits>

#include "controls/CharacterPlaces.h"
#include "controls/PrintableCharacter.h"
#include "platform/base/TextNumber.h"
#include "platform/window/CPropertyPage.h"

namespace {

constexpr wchar_t kTypeable = L'_';

// The first typeable place from `start` on, going around at the end; -1 when there is none.
int FindForward(const CString& grammar, int start) {
    const int unit = UnitOf(grammar, start);
    const int from = unit >= grammar.GetLength() ? 0 : unit;
    int found = grammar.Find(kTypeable, from);
    if (found < 0)
        found = grammar.Find(kTypeable);
    return found < 0 ? -1 : PlaceOf(grammar, found);
}

// The last typeable place up to `start`, going around at the beginning; -1 when there is none.
int FindBackward(const CString& grammar, int start) {
    const int unit = UnitOf(grammar, start);
    const bool isWithin = start >= 0 && unit < grammar.GetLength();
    int found = isWithin ? grammar.Left(unit + 1).ReverseFind(kTypeable) : -1;
    if (found < 0)
        found = grammar.ReverseFind(kTypeable);
    return found < 0 ? -1 : PlaceOf(grammar, found);
}

// A unit as a number. Through the unsigned type: where wchar_t has a sign, a negative one is far beyond every
// character.
char32_t CodeOf(wchar_t unit) {
    return static_cast<std::make_unsigned_t<wchar_t>>(unit);
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

// The number of the character where the selection starts.
int QcSunEdit::ActivePlace() const {
    CString text;
    GetWindowText(text);
    return PlaceOf(text, GetActivePos());
}

// Selects one character, and gives its index; -1 for no place moves nothing and gives the start of the selection.
int QcSunEdit::SelectPlace(int place) {
    if (place < 0)
        return GetActivePos();
    CString text;
    GetWindowText(text);
    const int pos = UnitOf(text, place);
    SetSel(pos, UnitOf(text, place + 1), TRUE);
    return pos;
}

int QcSunEdit::MoveToValidPos() {
    const int place = FindForward(m_strGrammar, ActivePlace());
    const int pos = SelectPlace(place);
    if (place >= 0)
        ScrollCaret();
    return pos;
}

int QcSunEdit::MoveToPrePos() {
    const int place = FindBackward(m_strGrammar, ActivePlace() - 1);
    const int pos = SelectPlace(place);
    if (place >= 0)
        ScrollCaret();
    return pos;
}

int QcSunEdit::MoveToNextPos() {
    return SelectPlace(FindForward(m_strGrammar, ActivePlace() + 1));
}

void QcSunEdit::replaceChar(wchar_t character) {
    if (character == 0)
        return;
    const wchar_t text[2] = {character, 0};
    Overwrite(text);
}

void QcSunEdit::Overwrite(const wchar_t* character) {
    ReplaceSel(character);
    SetModify(TRUE);
}

bool QcSunEdit::IsValidChar(wchar_t character) {
    if (!m_strValidChars.IsEmpty())
        return m_strValidChars.Find(character) >= 0;
    return IsHighHalf(character) || IsLowHalf(character) || IsPrintableCharacter(CodeOf(character));
}

bool QcSunEdit::IsValidPair(wchar_t high, wchar_t low) const {
    if (!IsHighHalf(high) || !IsLowHalf(low))
        return false;
    const wchar_t pair[3] = {high, low, 0};
    if (!m_strValidChars.IsEmpty())
        return m_strValidChars.Find(pair) >= 0;
    return IsPrintableCharacter(0x10000 + ((CodeOf(high) - 0xD800) << 10) + (CodeOf(low) - 0xDC00));
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

CString QcSunEdit::FillCharacter(int place) const {
    const CString restored = CharacterAt(m_strDefault, place);
    if (!restored.IsEmpty())
        return restored;
    const CString fixed = CharacterAt(m_strGrammar, place);
    return fixed.IsEmpty() || fixed.GetAt(0) == kTypeable ? CString(L" ") : fixed;
}

void QcSunEdit::PutTwoDigits(CString& text, int first, int number) const {
    while (text.GetLength() < first + 2)
        text += FillCharacter(PlaceOf(text, text.GetLength()));
    text.SetAt(first, static_cast<wchar_t>(L'0' + number / 10));
    text.SetAt(first + 1, static_cast<wchar_t>(L'0' + number % 10));
}

LRESULT QcSunEdit::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    return IsRefused(message) ? 0 : CEdit::WindowProc(message, wParam, lParam);
}

void QcSunEdit::OnChar(UINT character, UINT, UINT) {
    const auto typed = static_cast<wchar_t>(character);
    const wchar_t high = std::exchange(m_cHigh, L'\0');
    if (static_cast<UINT>(typed) != character || !IsValidChar(typed))
        return;
    if (IsHighHalf(typed)) {
        m_cHigh = typed;
        return;
    }
    if (IsLowHalf(typed) && !IsValidPair(high, typed))
        return;
    MoveToValidPos();
    const wchar_t pair[3] = {high, typed, 0};
    if (IsLowHalf(typed))
        Overwrite(pair);
    else
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
    CString text;
    GetWindowText(text);
    const int behind = PlaceOf(text, end);
    CString restored;
    for (int place = PlaceOf(text, start); place < behind; ++place)
        restored += m_strValidChars.IsEmpty() ? CString(L" ") : FillCharacter(place);
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
