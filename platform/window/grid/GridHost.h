// What a grid's view and editor ask of the grid itself. For the sources of this room only.
// Why: docs/decisions/window.md
#pragma once

#include "platform/window/WindowMessages.h"

class QcUiGridRow;

class GridHost {
public:
    // Opens an editor in a cell; false where that cannot be.
    virtual bool EditCell(QcUiGridRow* row, int column) = 0;
    // The user wants something done: a number of QcUiGridOptions.h.
    virtual void Command(int command) = 0;
    // The user wants a menu for a row, at a place on the screen.
    virtual void ShowMenu(QcUiGridRow* row, POINT screen) = 0;
    // Makes the next cell current that can be seen: a row up or down (-1, 1), or a column, over the ends of rows.
    virtual void MoveRow(int step) = 0;
    virtual void MoveColumn(int step) = 0;

    virtual void TakeFocus() = 0;
    // Shows or hides the frame of the active cell.
    virtual void ShowActive(bool show) = 0;
    // Whether a window is the grid's or lies in it.
    virtual bool OwnsWindow(HWND window) const = 0;
    // The window is about to go, with the rows still there.
    virtual void NoteDestroy() = 0;

protected:
    ~GridHost() = default;
};
