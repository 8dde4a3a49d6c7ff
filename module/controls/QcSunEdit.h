// An edit of a fixed layout: a template says where characters can be typed, what is typed overwrites the character
// there, and the caret goes to the next such place.
// Why: docs/decisions/controls.md
#pragma once

#include <utility>

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/window/CEdit.h"

// Template, default text and window text are aligned: a character of the window text can be typed over when the
// template has "_" at the same index; all others are fixed. Indexes count wchar_t units from 0. Where a unit has 16
// bits a character may be two of them; template and texts are aligned by whole characters then. A template without "_"
// leaves the caret where it is. A window text that is shorter or longer than the template is never cut or filled up by
// itself; where a number is written into a text that is too short for it, the missing characters come from the default
// text, behind its end from the template's fixed characters, else they are blanks.
//
// Only keys and the class's own operations change the text: paste, cut, clear, undo and the context menu do nothing.
// Copying works. What an input method commits is typed, character by character; what it composes is not shown.
class ORVO_API QcSunEdit : public CEdit {
public:
    // Without a template, without a window.
    QcSunEdit();
    ~QcSunEdit() override;

    // The template, the default text and the valid characters (empty: every printable one). What the window shows stays
    // as it is.
    void SetGrammarString(CString grammar) { m_strGrammar = std::move(grammar); }
    void SetDefaultString(CString text) { m_strDefault = std::move(text); }
    void SetValidChars(CString characters) { m_strValidChars = std::move(characters); }
    CString GetGrammarString() const { return m_strGrammar; }
    CString GetDefaultString() const { return m_strDefault; }
    CString GetValidChars() const { return m_strValidChars; }
    // The template's length, whatever the window shows.
    int GetLength() const { return m_strGrammar.GetLength(); }
    // Whether the kinds' tests of a character at its place look at ranges; false unless set.
    void SetNoFault(bool noFault) { m_bNoFault = noFault; }
    bool IsNoFault() const { return m_bNoFault; }

    // Shows the default text.
    void SetDefault();

    // The start of the selection, an index.
    int GetActivePos() const;
    // These select one character that can be typed over and give its index: the nearest one from the start of the
    // selection on, the one before it, the one behind it. The search goes around at the template's ends; it begins at 0
    // when the selection starts behind the template. Moving to the next one does not scroll.
    int MoveToValidPos();
    int MoveToPrePos();
    int MoveToNextPos();

    // Overwrites the selection with one character (never the zero character) and marks the edit modified.
    void replaceChar(wchar_t character);

    // Whether a character may be typed at all: one of the valid characters, or, when these are empty, any printable one
    // (see PrintableCharacter.h). This is what typing asks. Where a character can come in two halves, a half may be
    // typed when there are such characters among the valid ones; typing asks for both and then looks at the whole.
    virtual bool IsValidChar(wchar_t character);

    CString m_strDefault;     // what SetDefault shows, and what Backspace restores
    CString m_strGrammar;     // the template
    CString m_strValidChars;  // empty: every printable character
    bool m_bNoFault = false;  // the kinds' tests of a character at its place look at ranges

protected:
    // A character that is about to be typed, the place that the caret was moved to for it, and the text so far.
    struct PendingChar {
        wchar_t character;  // one unit of it
        int pos;            // the place's index
        CString text;       // of the window

        // The number in these characters of the text, with the pending one among them.
        int NumberAt(int first, int count) const;
    };

    // Whether QcSunEdit's own test of a character lets this one through; never for what is no wchar_t.
    bool PassesBaseTest(UINT character);
    // Moves the caret to where a character would go.
    PendingChar MoveForChar(UINT character);
    // The number at the beginning of these characters of the window text; 0 without digits.
    int GetNumberAt(int first, int count) const;
    // Writes a number from 0 to 99 over two characters of a text.
    void PutTwoDigits(CString& text, int first, int number) const;

    // Takes the messages that would change the text in another way.
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    // The window's own behaviour never sees a key or a character.
    afx_msg void OnChar(UINT character, UINT repeatCount, UINT flags);
    afx_msg void OnKeyDown(UINT key, UINT repeatCount, UINT flags);
    // A caret without a selection selects a character that can be typed over.
    afx_msg BOOL OnSetCursor(CWnd* window, UINT hitTest, UINT message);
    afx_msg void OnSetFocus(CWnd* oldWindow);

    DECLARE_MESSAGE_MAP()

private:
    int ActivePlace() const;
    int SelectPlace(int place);
    bool IsValidPair(wchar_t high, wchar_t low) const;
    void Overwrite(const wchar_t* character);
    CString FillCharacter(int place) const;
    void MoveFromEmptySelection();
    void RestoreSelection();

    wchar_t m_cHigh = 0;  // the half of a character whose other half has not come yet
};
