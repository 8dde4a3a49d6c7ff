// Opens and closes the editor of a cell and watches its keys. An edit ends in this order: first nothing is being
// edited, then the editor goes. What its going causes finds no edit to end.
#include "platform/window/grid/GridEditor.h"

#include <QKeyEvent>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "platform/window/CWnd.h"
#include "platform/window/QcUiGridCell.h"
#include "platform/window/grid/GridHost.h"
#include "platform/window/toolkit/QtText.h"
#include "platform/window/toolkit/WindowLink.h"

namespace {

// Sees the editor's keys before the editor does.
class EditorKeys : public QObject {
public:
    EditorKeys(GridHost& host, GridEditor& edit, QWidget* widget)
        : QObject(widget), m_host(host), m_edit(edit), m_editor(edit.Get()) {
        widget->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        const bool open = m_edit.Get() == m_editor;
        return open && event->type() == QEvent::KeyPress && Key(*static_cast<QKeyEvent*>(event));
    }

private:
    bool Key(const QKeyEvent& event) {
        const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
        if (event.key() == Qt::Key_Backtab || (event.key() == Qt::Key_Tab && modifiers == Qt::ShiftModifier))
            return Leave(&GridHost::MoveColumn, -1);
        if (modifiers != Qt::NoModifier)
            return false;
        switch (event.key()) {
            case Qt::Key_Escape:
                m_edit.Close(false);
                return true;
            case Qt::Key_Return:
            case Qt::Key_Enter:
            case Qt::Key_Down:
                return Leave(&GridHost::MoveRow, 1);
            case Qt::Key_Up:
                return Leave(&GridHost::MoveRow, -1);
            case Qt::Key_Tab:
                return Leave(&GridHost::MoveColumn, 1);
            case Qt::Key_Left:
                return !m_editor->WantsArrowKeys() && m_editor->IsCaretAtBegin() && Leave(&GridHost::MoveColumn, -1);
            case Qt::Key_Right:
                return !m_editor->WantsArrowKeys() && m_editor->IsCaretAtEnd() && Leave(&GridHost::MoveColumn, 1);
            default:
                return false;
        }
    }

    // A text that cannot be taken keeps its editor. The editor, and this, may be gone when the edit has ended.
    bool Leave(void (GridHost::*move)(int), int step) {
        GridHost& host = m_host;
        if (m_editor->IsModified() && !m_editor->CanEndEdit())
            return true;
        m_edit.Close(true);
        (host.*move)(step);
        return true;
    }

    GridHost& m_host;
    GridEditor& m_edit;
    QcUiGridCellCtrl* m_editor;
};

}  // namespace

// Deleted by the event loop that runs the editor's handlers, or a later one, or with the grid.
struct GridEditor::Retired : QObject {
    Retired(std::unique_ptr<QcUiGridCellCtrl> ctrl, std::shared_ptr<std::vector<QObject*>> all)
        : editor(std::move(ctrl)), list(std::move(all)) {
        list->push_back(this);
        deleteLater();
    }
    ~Retired() override { list->erase(std::find(list->begin(), list->end(), this)); }
    Retired(const Retired&) = delete;
    Retired& operator=(const Retired&) = delete;

    std::unique_ptr<QcUiGridCellCtrl> editor;
    std::shared_ptr<std::vector<QObject*>> list;
};

GridEditor::GridEditor(GridHost& host) : m_host(host), m_retired(std::make_shared<std::vector<QObject*>>()) {}

GridEditor::~GridEditor() {
    Close(false);
    while (!m_retired->empty())
        delete m_retired->back();
}

bool GridEditor::Open(std::unique_ptr<QcUiGridCellCtrl> editor, const RECT& place, const CString& name) {
    QcUiGridCellCtrl* opened = editor.get();
    m_editor = std::move(editor);
    const bool made = opened->Create(place) && opened->GetWnd() != nullptr;
    if (m_editor.get() != opened)
        return false;  // closed again while it was being made
    const WindowLink* link = made ? WindowLink::Of(opened->GetWnd()->m_hWnd) : nullptr;
    if (link == nullptr) {
        Close(false);
        return false;
    }
    link->m_widget->setAccessibleName(ToQString(name));
    new EditorKeys(m_host, *this, link->m_widget);  // a child of the widget
    return true;
}

void GridEditor::Close(bool take) {
    if (!m_editor)
        return;
    std::unique_ptr<QcUiGridCellCtrl> editor = std::move(m_editor);
    CWnd* window = editor->GetWnd();
    QcUiGridCell* cell = editor->GetCell();
    CString text;
    const bool taken =
        take && window != nullptr && window->m_hWnd != nullptr && editor->IsModified() && editor->CanEndEdit();
    if (taken)
        editor->GetText(text);
    if (taken && cell != nullptr)
        cell->SetText(text);
    if (window != nullptr && window->m_hWnd != nullptr) {
        if (editor->IsMyFocus(CWnd::GetFocus()))
            m_host.TakeFocus();
        window->DestroyWindow();
    }
    Retire(std::move(editor));
}

void GridEditor::Retire(std::unique_ptr<QcUiGridCellCtrl> editor) {
    new Retired(std::move(editor), m_retired);  // deletes itself
}
