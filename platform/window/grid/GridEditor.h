// The edit of one cell of a grid, from its beginning to its end. For the sources of this room only.
#pragma once

#include <memory>
#include <vector>

#include "platform/base/FrameworkTypes.h"
#include "platform/window/QcUiGridCellCtrl.h"

class GridView;
class QObject;
class QcUiGrid;

class GridEditor {
public:
    explicit GridEditor(QcUiGrid& grid);
    ~GridEditor();
    GridEditor(const GridEditor&) = delete;
    GridEditor& operator=(const GridEditor&) = delete;

    // False, and nothing is open, when the editor makes no window, or loses the focus at once.
    bool Open(std::unique_ptr<QcUiGridCellCtrl> editor, const RECT& place);
    // Null when nothing is open.
    QcUiGridCellCtrl* Get() const { return m_pEditor.get(); }
    // Takes the text, if asked to, and closes. Without an edit, and within the closing itself, it does nothing.
    void Close(bool take);

private:
    struct Retired;

    void WatchKeys();
    void Retire(std::unique_ptr<QcUiGridCellCtrl> editor);

    QcUiGrid& m_grid;
    std::unique_ptr<QcUiGridCellCtrl> m_pEditor;
    std::shared_ptr<std::vector<QObject*>> m_retired;  // editors that wait for their handlers to return
};
