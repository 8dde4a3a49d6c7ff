// What a grid is made of. For the sources of this room only.
#pragma once

#include <utility>

#include "platform/window/grid/GridView.h"

// The grid itself is the rest of the host.
class GridParts : public GridHost, public GridContents {
public:
    explicit GridParts(QcUiGrid& grid) : GridContents{*this, GridRows(grid), GridState(), GridEditor(*this)} {}
    virtual ~GridParts() = default;
    GridParts(const GridParts&) = delete;
    GridParts& operator=(const GridParts&) = delete;

    void MoveRow(int step) override {
        if (view != nullptr)
            view->MoveRow(step);
    }
    void MoveColumn(int step) override {
        if (view != nullptr)
            view->MoveColumn(step);
    }

    // The grid's window ends, or the grid does.
    void LetViewGo() {
        editor.Close(false);
        if (GridView* known = std::exchange(view, nullptr))
            known->Forget();
    }
    void NoteViewGone() {
        view = nullptr;
        editor.Close(false);
    }

    GridView* view = nullptr;  // belongs to the window around it
};
