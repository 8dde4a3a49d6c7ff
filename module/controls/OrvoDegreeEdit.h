// The edit into which an angle is typed, in degrees, minutes and seconds: also the editor that a grid puts into a cell.
// Why: docs/decisions/controls.md
#pragma once

#include "controls/QcSunEdit.h"
#include "platform/window/QcUiGridCellCtrl.h"

class QcUiGrid;

// Shows "   度  分00秒"; degrees are characters 0 to 2, minutes 4 and 5, seconds 7 and 8. Template and default text
// pass through the language switch when an edit is constructed, and a translation has to keep each character that can
// be typed over at its index.
//
// The cell that it edits has to outlive the edit. Without one (null), or with one that is in no grid, it is an edit
// like the others; what would reach for the grid then does nothing.
class ORVO_API OrvoDegreeEdit : public QcSunEdit, public QcUiGridCellCtrl {
public:
    // For a cell, which is not owned; null for none.
    explicit OrvoDegreeEdit(QcUiGridCell* cell);
    ~OrvoDegreeEdit() override;

    using QcSunEdit::IsValidChar;
    // Whether a character may be typed where the caret is, moving it to a place for one first. Without the no-fault
    // flag only QcSunEdit's own test counts; with it the value that would come about:
    // - degrees lie within their limits. At the smallest degree the minutes must not be below their minimum, at the
    //   greatest not above their maximum; the minutes are looked for in characters 3 and 4, as a time has them, and so
    //   are 0 as long as character 3 is no digit.
    // - minutes are below 60, at the smallest degree not below their minimum, and not above their maximum where the
    //   degree equals that maximum.
    // - seconds are below 60, at the minimum of the minutes not below their own, and not above their maximum where the
    //   minutes equal that maximum.
    // Typing does not ask this: it is for owners that do.
    virtual bool IsValidChar(UINT character);

    // The grid owns the editor and deletes it, so the end of the window is not the end of the object.
    void PostNcDestroy() override;

    // ---- As the editor of a cell. ----
    using QcSunEdit::Create;
    CWnd* GetWnd() override;
    // False without a grid, or when there is a window already.
    bool Create(const RECT& cellRect) override;
    bool IsModified() override;
    void GetText(CString& text) override;
    bool IsCaretAtBegin() override;
    bool IsCaretAtEnd() override;
    bool WantsArrowKeys() override;
    bool CanEndEdit() override;
    void SetModified(bool modified) override;
    void SetText(const wchar_t* text) override;

    // The limits, both included.
    short m_nMinDegree = 0;
    short m_nMaxDegree = 179;
    short m_nMinMinute = 0;
    short m_nMaxMinute = 59;
    short m_nMinSecond = 0;
    short m_nMaxSecond = 59;

protected:
    afx_msg void OnSetFocus(CWnd* oldWindow);
    // Ends the edit, unless the focus stays within the editor.
    afx_msg void OnKillFocus(CWnd* newWindow);

    DECLARE_MESSAGE_MAP()

private:
    QcUiGrid* GetGrid() const;
    void ShowCellText(int topOffset);
    bool IsValidDegreeDigit(int degree, int minute) const;
    bool IsValidMinuteDigit(int degree, int minute) const;
    bool IsValidSecondDigit(int minute, int second) const;
};
