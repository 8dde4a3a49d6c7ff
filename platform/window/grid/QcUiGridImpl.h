// What a grid is made of. For the sources of this room only.
#pragma once

#include "platform/window/QcUiGrid.h"
#include "platform/window/grid/GridEditor.h"
#include "platform/window/grid/GridRows.h"
#include "platform/window/grid/GridView.h"

class QcUiGrid::Impl {
public:
    explicit Impl(QcUiGrid& grid) : rows(grid), editor(grid) {}

    // The grid's window ends, or the grid does.
    void LetViewGo() {
        editor.Close(false);
        if (GridView* view = pView) {
            pView = nullptr;
            view->Forget();
        }
    }
    void NoteViewGone() {
        pView = nullptr;
        editor.Close(false);
    }

    GridRows rows;
    GridEditor editor;          // goes before the cells do
    GridView* pView = nullptr;  // belongs to the window around it
    DWORD dwOptions = 0;
    int nColumnWidth = 0;
    bool bTitles = true;
    bool bFitLast = false;
    bool bActiveShown = false;
};
