// The edit of one cell of a grid, from its beginning to its end. For the sources of this room only.
#pragma once

#include <memory>
#include <vector>

#include "platform/base/FrameworkTypes.h"
#include "platform/window/QcUiGridCellCtrl.h"

class GridHost;
class QObject;

class GridEditor {
public:
    explicit GridEditor(GridHost& host);
    ~GridEditor();
    GridEditor(const GridEditor&) = delete;
    GridEditor& operator=(const GridEditor&) = delete;

    // The name is for who cannot see the cell. False, and nothing is open, when the editor makes no window, or loses
    // the focus at once.
    bool Open(std::unique_ptr<QcUiGridCellCtrl> editor, const RECT& place, const CString& name);
    // Null when nothing is open.
    QcUiGridCellCtrl* Get() const { return m_editor.get(); }
    // Takes the text, if asked to, and closes. Without an edit, and within the closing itself, it does nothing.
    void Close(bool take);

private:
    struct Retired;

    void Retire(std::unique_ptr<QcUiGridCellCtrl> editor);

    GridHost& m_host;
    std::unique_ptr<QcUiGridCellCtrl> m_editor;
    std::shared_ptr<std::vector<QObject*>> m_retired;  // editors that wait for their handlers to return
};
