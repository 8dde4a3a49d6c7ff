// What a grid asks of an editor that stands in one of its cells.
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/base/FrameworkTypes.h"

class CWnd;
class QcUiGridCell;

// The grid makes an editor for the cell that is being edited, creates its window over the cell, takes its text into the
// cell when the edit ends, and deletes it. Ten operations, in the order of their slots after the destructor.
class ORVO_API QcUiGridCellCtrl {
public:
    // For a cell, which is not owned; null for none.
    explicit QcUiGridCellCtrl(QcUiGridCell* cell) : m_cell(cell) {}
    virtual ~QcUiGridCellCtrl();
    QcUiGridCellCtrl(const QcUiGridCellCtrl&) = delete;
    QcUiGridCellCtrl& operator=(const QcUiGridCellCtrl&) = delete;

    virtual CWnd* GetWnd() = 0;                     // 1: the editor's own window
    virtual bool Create(const RECT& cellRect) = 0;  // 2: makes its window over the cell, in the grid's pixels
    virtual bool IsModified() = 0;                  // 3: whether the user has changed the text
    virtual void GetText(CString& text) = 0;        // 4: copies the text out
    virtual bool IsCaretAtBegin() = 0;              // 5: then the left arrow may leave for the cell before
    virtual bool IsCaretAtEnd() = 0;                // 6: then the right arrow may leave for the next cell
    virtual bool WantsArrowKeys() = 0;              // 7: whether left and right move within the editor first
    virtual bool CanEndEdit() = 0;                  // 8: whether the text may be taken as it is
    virtual void SetModified(bool modified) = 0;    // 9: as if the user had, or had not
    virtual void SetText(const wchar_t* text) = 0;  // 10: shows another text

    // The cell that is edited; null for none.
    QcUiGridCell* GetCell() const { return m_cell; }
    // Whether a window is this editor's own or lies in it; false for null.
    bool IsMyFocus(CWnd* window);

private:
    QcUiGridCell* m_cell;
};
