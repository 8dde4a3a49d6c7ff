// The toolkit's tree view as a grid: keys, mouse, lines, and what the grid asks of it.
#include "platform/window/grid/GridView.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTreeView>

#include "platform/window/CWnd.h"
#include "platform/window/grid/GridModel.h"
#include "platform/window/toolkit/WindowEvents.h"

namespace {

constexpr double kUsualDigit = 6;  // column widths are meant for a font whose digits are so many pixels wide
constexpr int kIndentation = 18;
constexpr int kSmallestColumn = 32;
constexpr int kFrameAndLine = 2;  // around an editor, so that the active cell's frame stays visible
constexpr int kEditorEdges = 8;   // what an edit in a cell keeps free beside its text, and a cell does not
constexpr double kLineStrength = 0.17;

QColor Mix(const QColor& paper, const QColor& ink, double share) {
    const auto mix = [share](float from, float to) { return from + (to - from) * static_cast<float>(share); };
    return QColor::fromRgbF(mix(paper.redF(), ink.redF()), mix(paper.greenF(), ink.greenF()),
                            mix(paper.blueF(), ink.blueF()));
}

bool TypesText(const QKeyEvent& event) {
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    const bool alt = event.modifiers().testFlag(Qt::AltModifier);
    const QString text = event.text();
    return control == alt && !text.isEmpty() && (text.front().isPrint() || text.front().isSurrogate());
}

class TreeView : public QTreeView, public GridView, public GridObserver {
public:
    TreeView(GridContents& grid, QWidget* parent, std::function<void()> gone)
        : QTreeView(parent), m_grid(&grid), m_model(GridModel::Make(grid.rows, grid.state)), m_gone(std::move(gone)) {
        setItemDelegate(MakeGridDelegate(this, grid.state));
        setModel(&m_model->Items());
        setUniformRowHeights(true);
        setAlternatingRowColors(true);
        setEditTriggers(NoEditTriggers);
        setExpandsOnDoubleClick(false);
        setSelectionBehavior(SelectRows);
        setHorizontalScrollMode(ScrollPerPixel);
        header()->setSectionsMovable(false);
        header()->setHighlightSections(false);
        header()->setMinimumSectionSize(kSmallestColumn);
        header()->setStretchLastSection(false);
        header()->setContextMenuPolicy(Qt::PreventContextMenu);
        connect(this, &QTreeView::expanded, this, [this](const QModelIndex& index) { NoteExpanded(index, true); });
        connect(this, &QTreeView::collapsed, this, [this](const QModelIndex& index) { NoteExpanded(index, false); });
        connect(header(), &QHeaderView::sectionResized, this, [this] { EndEdit(); });
        grid.rows.SetObserver(this);
        for (int i = 0; i < grid.rows.ColumnCount(); ++i)
            ShowColumnWidth(i);
        for (const QcUiGridTreeRow* row : grid.rows.InOrder())
            if (row->IsParentRow() && row->IsExpanded())
                expand(m_model->IndexOf(row, 0));
    }

    ~TreeView() override {
        const std::function<void()> gone = m_gone;
        TreeView::Forget();
        if (gone)
            gone();
    }

    // ---- GridView. ----
    GridContents* Contents() const override { return m_grid; }
    WindowLink& Link() override { return *WindowLink::Of(this); }

    void Forget() override {
        if (m_grid == nullptr)
            return;
        m_grid->rows.SetObserver(nullptr);
        m_gone = nullptr;
        m_grid = nullptr;
        setModel(nullptr);
        setItemDelegate(nullptr);
        m_model.reset();
    }

    void ShowOptions() override {
        const GridState& state = m_grid->state;
        const bool tree = state.Has(QCGRID_TREE) && !state.Has(QCGRID_SINGLE_LEVEL);
        setSelectionMode(state.Has(QCGRID_MULTI_SELECT) ? ExtendedSelection : SingleSelection);
        setRootIsDecorated(tree);
        setItemsExpandable(tree);
        setIndentation(tree ? kIndentation : 0);
        header()->setSectionResizeMode(state.Has(QCGRID_RESIZE_COLUMNS) ? QHeaderView::Interactive
                                                                        : QHeaderView::Fixed);
        // Input methods are let in where something can be typed.
        setAttribute(Qt::WA_InputMethodEnabled, !state.IsReadOnly());
        viewport()->update();
    }
    void ShowTitles(bool show) override { header()->setVisible(show); }
    void FitLastColumn() override {
        // The toolkit keeps a stretched column at least as wide as it was.
        header()->resizeSection(header()->count() - 1, kSmallestColumn);
        header()->setStretchLastSection(true);
    }
    int ColumnWidth(int column) const override { return columnWidth(column); }
    void Redraw() override { viewport()->update(); }
    void RedrawActive() override { viewport()->update(visualRect(currentIndex())); }

    QcUiGridTreeRow* CurRow() const override { return GridModel::RowOf(currentIndex()); }
    int CurColumn() const override { return currentIndex().column(); }
    void SetCurrent(const QcUiGridTreeRow* row, int column, bool select) override {
        m_isUnchosen = false;
        for (const QcUiGridTreeRow* above = row ? row->GetParent() : nullptr; above; above = above->GetParent())
            expand(m_model->IndexOf(above, 0));
        const QModelIndex index = row ? m_model->IndexOf(row, column) : QModelIndex();
        if (select)
            selectionModel()->select(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        if (index.isValid())
            scrollTo(index);
    }
    std::vector<QcUiGridTreeRow*> SelectedRows() const override {
        std::vector<QcUiGridTreeRow*> rows;
        for (const QModelIndex& index : selectionModel()->selectedRows())
            rows.push_back(GridModel::RowOf(index));
        return rows;
    }
    bool IsSelected(const QcUiGridTreeRow& row) const override {
        return selectionModel()->isSelected(m_model->IndexOf(&row, 0));
    }
    void Select(const QcUiGridTreeRow& row, bool select) override {
        QItemSelectionModel::SelectionFlags flags = QItemSelectionModel::Rows;
        flags |= select ? QItemSelectionModel::Select : QItemSelectionModel::Deselect;
        if (select && selectionMode() == SingleSelection)
            flags |= QItemSelectionModel::Clear;
        selectionModel()->select(m_model->IndexOf(&row, 0), flags);
    }
    void ClearSelection() override { selectionModel()->clearSelection(); }

    void MoveRow(int step) override {
        const QModelIndex current = currentIndex();
        GoTo(step > 0 ? indexBelow(current) : indexAbove(current), current.column());
    }
    void MoveColumn(int step) override {
        const QModelIndex current = currentIndex();
        const int last = header()->count() - 1;
        const int column = current.column() + step;
        if (column >= 0 && column <= last)
            GoTo(current, column);
        else
            GoTo(step > 0 ? indexBelow(current) : indexAbove(current), step > 0 ? 0 : last);
    }

    RECT Reveal(const QcUiGridTreeRow& row, int column) override {
        SetCurrent(&row, column, false);
        const QRect seen = visualRect(currentIndex()).intersected(viewport()->rect());
        const QRect place = seen.translated(viewport()->pos())
                                .adjusted(kFrameAndLine, kFrameAndLine, -kFrameAndLine - 1, -kFrameAndLine - 1);
        return {place.left(), place.top(), place.right() + 1, place.bottom() + 1};
    }

    void AskForMenu(const POINT* screen) override {
        if (screen != nullptr) {
            MenuAt(viewport()->mapFromGlobal(QPoint(screen->x, screen->y)));
            return;
        }
        const QModelIndex current = currentIndex();
        if (!current.isValid())
            return;
        scrollTo(current);
        const QRect seen = visualRect(current).intersected(viewport()->rect());
        Menu(current, viewport()->mapToGlobal(QPoint(seen.center().x(), seen.bottom())));
    }

    // ---- GridObserver. ----
    void BeforeChange() override { EndEdit(); }
    void BeforeInsert(const QcUiGridTreeRow* parent, int at) override { m_model->BeforeInsert(parent, at); }
    void AfterInsert(const QcUiGridTreeRow& row) override {
        m_model->AfterInsert();
        const QcUiGridTreeRow* parent = row.GetParent();
        if (parent != nullptr && parent->GetChildNum() == 1 && parent->IsExpanded())
            expand(m_model->IndexOf(parent, 0));
    }
    void BeforeRemove(const QcUiGridTreeRow* parent, int at) override { m_model->BeforeRemove(parent, at); }
    void AfterRemove() override { m_model->AfterRemove(); }
    void BeforeClear() override { m_model->BeforeClear(); }
    void AfterClear() override { m_model->AfterClear(); }
    void CellChanged(const QcUiGridTreeRow& row, int column) override { m_model->CellChanged(row, column); }
    void Expanded(const QcUiGridTreeRow& row) override {
        EndEdit();
        setExpanded(m_model->IndexOf(&row, 0), row.IsExpanded());
    }
    void BeforeColumn(int column) override { m_model->BeforeColumn(column); }
    void AfterColumn() override {
        m_model->AfterColumn();
        ShowColumnWidth(m_grid->rows.ColumnCount() - 1);
    }

protected:
    // ---- The keyboard. ----
    // The toolkit then makes the first cell the current one. Nobody has chosen it, so a stray key shall neither
    // replace what stands there nor delete it.
    void focusInEvent(QFocusEvent* event) override {
        const bool hadCurrent = currentIndex().isValid();
        QTreeView::focusInEvent(event);
        m_isUnchosen = m_isUnchosen || (!hadCurrent && currentIndex().isValid());
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (m_grid == nullptr || event->key() == Qt::Key_Escape) {
            event->ignore();
            return;
        }
        if (IsEditing()) {  // the rest of what began it; all else is the editor's
            if (TypesText(*event))
                Type(event->text());
            return;
        }
        const bool wouldDelete = event->key() == Qt::Key_Delete && !selectionModel()->hasSelection();
        if (m_isUnchosen && (TypesText(*event) || wouldDelete))
            return;
        m_isUnchosen = false;
        if (Command(*event))
            return;
        if (TypesText(*event) && EditCurrent())
            Type(event->text());
        else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            event->ignore();
        else
            QTreeView::keyPressEvent(event);
    }

    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override {
        const QModelIndex current = currentIndex();
        if (!current.isValid() || (action != MoveLeft && action != MoveRight))
            return QTreeView::moveCursor(action, modifiers);
        const bool right = action == MoveRight;
        const bool first = current.column() == 0 && itemsExpandable();
        const bool parent = model()->hasChildren(current.siblingAtColumn(0));
        if (first && parent && isExpanded(current) != right) {
            setExpanded(current, right);
            return current;
        }
        if (first && !right)
            return current.parent().isValid() ? current.parent() : current;
        const QModelIndex next = current.siblingAtColumn(current.column() + (right ? 1 : -1));
        return next.isValid() ? next : current;
    }

    // Composing begins an edit, which goes on in the editor.
    void inputMethodEvent(QInputMethodEvent* event) override {
        const bool text = !event->commitString().isEmpty() || !event->preeditString().isEmpty();
        if (m_grid == nullptr || !text || m_isUnchosen || (!IsEditing() && !EditCurrent())) {
            event->ignore();
            return;
        }
        if (const WindowLink* editor = EditorLink())
            QCoreApplication::sendEvent(editor->m_widget, event);
    }

    // ---- The mouse. ----
    void mousePressEvent(QMouseEvent* event) override {
        m_isUnchosen = false;
        EndEdit();
        QTreeView::mousePressEvent(event);
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override {
        const QModelIndex index = indexAt(event->pos());
        if (event->button() == Qt::LeftButton && visualRect(index).contains(event->pos())) {
            setCurrentIndex(index);
            EditCurrent();
        } else {
            QTreeView::mouseDoubleClickEvent(event);
        }
    }
    void contextMenuEvent(QContextMenuEvent* event) override {
        if (event->reason() == QContextMenuEvent::Mouse)
            MenuAt(event->pos());
        else
            AskForMenu(nullptr);
    }

    void scrollContentsBy(int dx, int dy) override {
        if (dx != 0 || dy != 0)
            EndEdit();
        QTreeView::scrollContentsBy(dx, dy);
    }
    void resizeEvent(QResizeEvent* event) override {
        EndEdit();
        QTreeView::resizeEvent(event);
    }

    void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QTreeView::drawRow(painter, option, index);
        if (m_grid == nullptr || !m_grid->state.Has(QCGRID_LINES))
            return;
        painter->setPen(Mix(palette().color(QPalette::Base), palette().color(QPalette::Text), kLineStrength));
        const QRect& row = option.rect;
        for (int column = 0; column < header()->count(); ++column) {
            const int right = columnViewportPosition(column) + columnWidth(column) - 1;
            painter->drawLine(right, row.top(), right, row.bottom());
        }
        const int end = columnViewportPosition(header()->count() - 1) + columnWidth(header()->count() - 1) - 1;
        painter->drawLine(columnViewportPosition(0), row.bottom(), end, row.bottom());
    }

private:
    bool IsEditing() const { return m_grid->editor.Get() != nullptr; }
    void EndEdit() {
        if (m_grid != nullptr)
            m_grid->editor.Close(true);
    }
    WindowLink* EditorLink() const {
        QcUiGridCellCtrl* editor = m_grid->editor.Get();
        const CWnd* window = editor ? editor->GetWnd() : nullptr;
        return window ? WindowLink::Of(window->m_hWnd) : nullptr;
    }
    bool EditCurrent() { return m_grid->host.EditCell(CurRow(), CurColumn()); }
    void Type(const QString& text) {
        for (const wchar_t character : text.toStdWString())
            if (WindowLink* editor = EditorLink())
                Dispatch(*editor, WM_CHAR, static_cast<WPARAM>(character), 1);
    }

    // The keys that mean something to a grid and nothing to a view.
    bool Command(const QKeyEvent& event) {
        const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
        if (event.key() == Qt::Key_F10 && modifiers == Qt::ShiftModifier) {
            AskForMenu(nullptr);
            return true;
        }
        if (modifiers != Qt::NoModifier)
            return false;
        switch (event.key()) {
            case Qt::Key_Insert:
                m_grid->host.Command(QCGRID_CMD_INSERT_ROW);
                return true;
            case Qt::Key_Delete:
                m_grid->host.Command(QCGRID_CMD_DELETE_ROWS);
                return true;
            case Qt::Key_F2:
                EditCurrent();
                return true;
            case Qt::Key_Return:
            case Qt::Key_Enter:
                return EditCurrent();
            default:
                return false;
        }
    }

    void GoTo(const QModelIndex& row, int column) {
        if (row.isValid())
            SetCurrent(GridModel::RowOf(row), column, true);
    }
    void MenuAt(const QPoint& place) {
        const QModelIndex index = indexAt(place);
        if (index.isValid())
            Menu(index, viewport()->mapToGlobal(place));
    }
    // The grid's handler may end the window.
    void Menu(const QModelIndex& index, const QPoint& screen) {
        if (m_grid == nullptr || m_grid->state.IsReadOnly())
            return;
        EndEdit();
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        m_grid->host.ShowMenu(GridModel::RowOf(index), POINT{screen.x(), screen.y()});
    }

    // What the user opens and closes is kept by the rows. Nothing stays selected or current where it cannot be seen.
    void NoteExpanded(const QModelIndex& index, bool expanded) {
        if (m_grid == nullptr)
            return;
        QcUiGridTreeRow* row = GridModel::RowOf(index);
        if (row->IsExpanded() != expanded)
            row->Expand(expanded);
        if (expanded)
            return;
        EndEdit();
        for (const QModelIndex& selected : selectionModel()->selectedRows())
            if (LiesUnder(selected, index))
                selectionModel()->select(selected, QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
        if (LiesUnder(currentIndex(), index))
            SetCurrent(row, currentIndex().column(), true);
    }
    static bool LiesUnder(const QModelIndex& index, const QModelIndex& row) {
        for (QModelIndex above = index.parent(); above.isValid(); above = above.parent())
            if (above.internalPointer() == row.internalPointer())
                return true;
        return false;
    }

    void ShowColumnWidth(int column) {
        const double digit = QFontMetricsF(font()).horizontalAdvance('0');
        header()->resizeSection(column,
                                qRound(m_grid->rows.Column(column)->width * digit / kUsualDigit) + kEditorEdges);
    }

    GridContents* m_grid;  // null once the grid is forgotten
    std::unique_ptr<GridModel> m_model;
    std::function<void()> m_gone;
    bool m_isUnchosen = false;  // the current cell, which only the focus has made that
};

}  // namespace

GridView* GridView::Make(GridContents& grid, const ControlRequest& request, std::function<void()> gone) {
    auto* view = new TreeView(grid, request.parent, std::move(gone));
    view->setFrameShape((request.style & WS_BORDER) != 0 ? QFrame::StyledPanel : QFrame::NoFrame);
    view->setFocusPolicy((request.style & WS_TABSTOP) != 0 ? Qt::StrongFocus : Qt::ClickFocus);
    MakeWindow(view, request.id, request.style, &GridProcedure);
    return view;
}
