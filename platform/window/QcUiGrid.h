// A grid with columns, whose rows form a tree and whose cells are edited in place.
// Why: docs/decisions/window.md
#pragma once

#include <memory>

#include "platform/window/CWnd.h"
#include "platform/window/QcUiGridCell.h"
#include "platform/window/QcUiGridCellCtrl.h"
#include "platform/window/QcUiGridOptions.h"
#include "platform/window/QcUiGridRow.h"
#include "platform/window/QcUiGridTreeRow.h"

class GridParts;

// Rows are selected whole; one cell is the active one, marked with a frame while the grid or an editor in it has the
// focus. Columns, options and rows can be set up before there is a window; current row, selection and editing need one.
//
// Keys: arrows move the active cell, Left and Right in column 0 close and open a row; F2, Enter, a double click edit
// the cell, and typing replaces its text; Ins, Del and the menu key (or Shift+F10) give commands. In an editor Enter
// and Down, Tab, Shift+Tab and Up take the text and move to the next cell in that direction, Escape leaves the text as
// it was. All other keys, Ins and Del too, are the editor's. Tab, and Enter where nothing can be edited, are the
// dialog's. A click elsewhere, scrolling, and whatever changes rows or columns end an edit as losing the focus does.
class ORVO_API QcUiGrid : public CWnd {
public:
    // How many rows of column titles there are (0: no titles; more than one are one), and how wide a column is for
    // which no width is given.
    QcUiGrid(int headerRows, int columnWidth);
    ~QcUiGrid() override;

    // Removes all rows. Without a window, where a grid is set up, also columns and options; columns on the screen stay
    // as the user has arranged them. An edit is cancelled.
    void Reset();
    // Gives the column's number. A width is in pixels for a font whose digits are six pixels wide, and is shown in
    // proportion to the grid's font, plus the edges of an edit, so that a text that fits can be edited, too; 0 and
    // below is the grid's own.
    int AppendColumn(const wchar_t* title, int width = 0);
    // How many columns there are.
    int GetColumnCount() const;
    // Empty for a column that there is not.
    CString GetColumnTitle(int column) const;
    // In pixels, as shown; as asked for while there is no window. 0 for a column that there is not.
    int GetColumnWidth(int column) const;
    // The last column takes what room is left, now and whenever the others change.
    void FitLastColumn();
    // Sets bits, or takes them away; others stay.
    void SetOption(DWORD bits, bool on = true);
    // All bits.
    DWORD GetOption() const;
    // Whether a bit of QCGRID_READONLY_MASK is set.
    bool IsReadOnly() const;

    // The window, in pixels of the parent. A placeholder of that number in the parent's template gives its place in the
    // order of the keyboard, and, for an empty rectangle, its place on the screen, and goes. False without a parent, or
    // when there is a window already.
    virtual BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);

    // ---- Rows. ----
    // Adds an empty row at the end of the top level. Never null.
    QcUiGridTreeRow* AppendRow();
    // Of all levels.
    int GetRowCount() const;
    // All rows in their order from top to bottom, children after their parent, also where they are hidden. Null when
    // out of range.
    QcUiGridTreeRow* GetRow(int index) const;
    // Deletes a row and what is under it. Null and rows of other grids are ignored.
    void DeleteRow(QcUiGridRow* row);

    // ---- Current row and selection. ----
    // The current row, which stays the grid's; null when there is none.
    QcUiGridTreeRow* GetCurRow() const;
    // The same; null in single-level mode.
    QcUiGridTreeRow* GetCurTreeRow() const;
    // -1 when there is no current row.
    int GetCurColumn() const;
    // Makes the row current and the only one that is selected, in the column that was current. Opens the rows above it.
    // Null: no row is current or selected.
    void SetCurRow(QcUiGridRow* row);
    // The same in a column; nothing for one that there is not.
    void SetCurCell(QcUiGridRow* row, int column);
    // The active cell; null when there is none.
    QcUiGridCell* GetActiveCell() const;
    // How many rows are selected.
    int GetSelRowCount() const;
    // Whether this row is; false for null.
    bool IsRowSelected(const QcUiGridRow* row) const;
    // Leaves the other rows selected where several may be. The current row stays.
    void SelectRow(QcUiGridRow* row, bool select = true);
    // No row is selected afterwards.
    void ClearSelection();

    // ---- Editing. ----
    // Opens an editor in a cell, which becomes the active one. False when there is no such cell, in read-only modes,
    // without a window, and when the cell makes no editor.
    bool EditCell(QcUiGridRow* row, int column);
    // Whether an editor is open.
    bool IsEditing() const;
    // The editor that is open; null when there is none.
    QcUiGridCellCtrl* GetEditCtrl() const;
    // Takes the text of a modified editor into the cell, unless the editor says that it cannot be taken, and closes the
    // editor in any case. The editor's window goes at once or, like the editor itself, when its handlers have returned.
    // Does nothing without an edit.
    void EndEditCell();
    // Closes the editor; the cell keeps its text.
    void CancelEditCell();
    // How far below the top of its client area an editor begins with its text, beyond where it stands by itself. A
    // derived grid that shows its texts lower supplies its own; by itself 0.
    virtual int GetEditOffset() const;
    // Shows or hides the frame of the active cell which the focus does otherwise.
    void ShowActive(bool show);
    // Whether that frame is shown.
    bool IsActiveShown() const;

    // Draws all that is to be seen anew.
    void Redraw();
    // Whether a window is the grid or lies in it.
    bool OwnsWindow(CWnd* window) const;

    // ---- For derived classes. ----
    // QCGRID_CMD_INSERT_ROW inserts an empty row: after the current row, or, when that is a parent row, as its last
    // child. QCGRID_CMD_INSERT_PARENT inserts a row with one empty child, at the top level after the one in which the
    // current row lies; so does inserting without any current row. QCGRID_CMD_DELETE_ROWS deletes the selected rows,
    // or the current one when none is; a parent row that loses its last child this way gets an empty one, so that it
    // stays a parent row. The new row, or the one that takes the place of a deleted one, becomes current. WM_COMMAND
    // with these numbers from a menu comes here, too. Nothing happens in read-only modes and for other numbers.
    virtual void OnMenuCommand(int command);
    // The user wants a menu: for the row at the mouse, which has become current but changes nothing about the
    // selection, or at the current row by the keyboard. The point is on the screen. Not called where there is no row,
    // nor in read-only modes. Shows nothing by itself.
    virtual void OnRightMenu(QcUiGridRow* row, POINT screen);
    // The editor for a cell, made with new; its window is made later. Null: the cell cannot be edited. By itself an
    // edit of one line.
    virtual QcUiGridCellCtrl* CreateCellCtrl(QcUiGridCell* cell);
    // After a command has inserted a row, for each one, parents first.
    virtual void OnAfterInsertRow(QcUiGridRow* row);

    void PostNcDestroy() override;

protected:
    DECLARE_MESSAGE_MAP()

private:
    void InsertRow(QcUiGridTreeRow& current);
    void InsertParent();
    void DeleteRows();

    std::unique_ptr<GridParts> m_parts;
};

// The host may look at each grid whose window goes: its edit has ended, and its rows are still there. One observer,
// null for none; the context must outlive its use.
using QcUiGridObserver = void (*)(const QcUiGrid& grid, void* context);
ORVO_API void SetGridObserver(QcUiGridObserver observer, void* context);
