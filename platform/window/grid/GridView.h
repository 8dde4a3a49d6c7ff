// The grid on the screen: a view of the toolkit with the framework's messages. For the sources of this room only.
#pragma once

#include <functional>
#include <vector>

#include "platform/window/grid/GridEditor.h"
#include "platform/window/grid/GridHost.h"
#include "platform/window/grid/GridRows.h"
#include "platform/window/grid/GridState.h"
#include "platform/window/toolkit/WindowKinds.h"

// A grid as its view knows it.
struct GridContents {
    GridHost& host;
    GridRows rows;
    GridState state;
    GridEditor editor;  // goes before the cells do
};

// Belongs to the window around it. What the user does comes to the grid through its host.
class GridView {
public:
    // `gone` is called when the view goes, whoever ends it, unless it has been told to forget the grid.
    static GridView* Make(GridContents& grid, const ControlRequest& request, std::function<void()> gone);
    // What it shows; null once that is forgotten.
    virtual GridContents* Contents() const = 0;

    virtual WindowLink& Link() = 0;
    // The grid goes, or lets go: shows nothing from now on, and calls nobody.
    virtual void Forget() = 0;

    virtual void ShowOptions() = 0;
    virtual void ShowTitles(bool show) = 0;
    virtual void FitLastColumn() = 0;
    virtual int ColumnWidth(int column) const = 0;
    virtual void Redraw() = 0;
    // Also with a mark in another state, which costs nothing else.
    virtual void RedrawActive() = 0;

    virtual QcUiGridTreeRow* CurRow() const = 0;
    virtual int CurColumn() const = 0;  // -1 when there is none
    // Null: nothing is current any more. With `select` it becomes the only one that is selected.
    virtual void SetCurrent(const QcUiGridTreeRow* row, int column, bool select) = 0;
    virtual std::vector<QcUiGridTreeRow*> SelectedRows() const = 0;
    virtual bool IsSelected(const QcUiGridTreeRow& row) const = 0;
    virtual void Select(const QcUiGridTreeRow& row, bool select) = 0;
    virtual void ClearSelection() = 0;
    // The next cell among those that can be seen: a row up or down (-1, 1), or a column, over the ends of rows.
    virtual void MoveRow(int step) = 0;
    virtual void MoveColumn(int step) = 0;

    // Scrolls to a cell and gives the place for an editor in it, in pixels of the grid.
    virtual RECT Reveal(const QcUiGridTreeRow& row, int column) = 0;
    // Asks the grid for the menu, at a place on the screen or, for null, at the current row.
    virtual void AskForMenu(const POINT* screen) = 0;

protected:
    ~GridView() = default;
};

// What the grid's kind of window does with a message.
LRESULT GridProcedure(WindowLink& link, UINT message, WPARAM wParam, LPARAM lParam);
