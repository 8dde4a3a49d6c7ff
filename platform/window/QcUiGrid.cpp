// The grid's operations: rows and columns, the window that shows them, the current row. Commands and editing are in
// QcUiGridCommands.cpp.
#include "platform/window/QcUiGrid.h"

#include <QWidget>

#include "platform/window/grid/GridParts.h"

namespace {

constexpr UINT kNoId = 0xFFFF;

QcUiGridObserver s_observer = nullptr;
void* s_pObserverContext = nullptr;

// A grid as its parts see it.
class PartsOf final : public GridParts {
public:
    explicit PartsOf(QcUiGrid& grid) : GridParts(grid), m_grid(grid) {}

    bool EditCell(QcUiGridRow* row, int column) override { return m_grid.EditCell(row, column); }
    void Command(int command) override { m_grid.OnMenuCommand(command); }
    void ShowMenu(QcUiGridRow* row, POINT screen) override { m_grid.OnRightMenu(row, screen); }
    void TakeFocus() override { m_grid.SetFocus(); }
    void ShowActive(bool show) override { m_grid.ShowActive(show); }
    bool OwnsWindow(HWND window) const override { return m_grid.OwnsWindow(CWnd::FromHandle(window)); }
    void NoteDestroy() override {
        if (s_observer != nullptr)
            s_observer(m_grid, s_pObserverContext);
    }

private:
    QcUiGrid& m_grid;
};

// The empty widget that a template makes where a control of the program's own belongs.
WindowLink* FindPlaceholder(const QWidget* parent, UINT id) {
    WindowLink* link = WindowLink::Find(parent, id);
    const bool plain = link && !link->m_target && link->m_widget->metaObject() == &QWidget::staticMetaObject;
    return plain ? link : nullptr;
}

// The toolkit passes over the placeholder, which takes no focus, so the controls are lined up again.
void OrderKeyboard(const QWidget* parent, const WindowLink& placeholder) {
    QWidget* before = nullptr;
    for (const WindowLink* control : WindowLink::Controls(parent)) {
        if (control == &placeholder)
            continue;
        if (before != nullptr)
            QWidget::setTabOrder(before, control->m_widget);
        before = control->m_widget;
    }
}

// Whoever asked for the placeholder may hold it until the event loop runs again.
void TakePlace(WindowLink& placeholder, WindowLink& control) {
    QWidget* before = placeholder.m_widget;
    QWidget* widget = control.m_widget;
    control.m_order = placeholder.m_order;
    placeholder.m_id = kNoId;
    widget->setAccessibleName(before->accessibleName());
    OrderKeyboard(widget->parentWidget(), placeholder);
    before->hide();
    before->deleteLater();
}

}  // namespace

BEGIN_MESSAGE_MAP(QcUiGrid, CWnd)
END_MESSAGE_MAP()

QcUiGrid::QcUiGrid(int headerRows, int columnWidth) : m_parts(new PartsOf(*this)) {
    m_parts->state.hasTitles = headerRows > 0;
    m_parts->state.columnWidth = columnWidth;
}

QcUiGrid::~QcUiGrid() {
    m_parts->LetViewGo();
}

void QcUiGrid::PostNcDestroy() {
    m_parts->LetViewGo();
}

void QcUiGrid::Reset() {
    CancelEditCell();
    m_parts->rows.Clear();
    if (m_parts->view != nullptr)
        return;
    m_parts->rows.RemoveColumns();
    m_parts->state.options = 0;
    m_parts->state.isLastColumnFitted = false;
}

int QcUiGrid::AppendColumn(const wchar_t* title, int width) {
    return m_parts->rows.AddColumn({title, width > 0 ? width : m_parts->state.columnWidth});
}

int QcUiGrid::GetColumnCount() const {
    return m_parts->rows.ColumnCount();
}

CString QcUiGrid::GetColumnTitle(int column) const {
    const GridColumn* known = m_parts->rows.Column(column);
    return known ? known->title : CString();
}

int QcUiGrid::GetColumnWidth(int column) const {
    const GridColumn* known = m_parts->rows.Column(column);
    if (known == nullptr)
        return 0;
    return m_parts->view ? m_parts->view->ColumnWidth(column) : known->width;
}

void QcUiGrid::FitLastColumn() {
    m_parts->state.isLastColumnFitted = true;
    if (m_parts->view != nullptr)
        m_parts->view->FitLastColumn();
}

void QcUiGrid::SetOption(DWORD bits, bool on) {
    m_parts->state.options = on ? m_parts->state.options | bits : m_parts->state.options & ~bits;
    if (m_parts->view == nullptr)
        return;
    if (IsReadOnly())
        EndEditCell();
    m_parts->view->ShowOptions();
}

DWORD QcUiGrid::GetOption() const {
    return m_parts->state.options;
}

bool QcUiGrid::IsReadOnly() const {
    return m_parts->state.IsReadOnly();
}

BOOL QcUiGrid::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    const WindowLink* around = parent ? WindowLink::Of(parent->m_hWnd) : nullptr;
    if (around == nullptr || m_hWnd != nullptr)
        return FALSE;
    WindowLink* placeholder = FindPlaceholder(around->m_widget, id);
    GridParts* parts = m_parts.get();
    parts->view = GridView::Make(*parts, {around->m_widget, id, style, CString()}, [parts] { parts->NoteViewGone(); });
    WindowLink& link = parts->view->Link();
    Attach(link.Handle());
    parts->view->ShowOptions();
    parts->view->ShowTitles(parts->state.hasTitles);
    if (parts->state.isLastColumnFitted)
        parts->view->FitLastColumn();
    MoveWindow(&rect);
    if (placeholder != nullptr) {
        if (rect.right <= rect.left || rect.bottom <= rect.top)
            link.m_widget->setGeometry(placeholder->m_widget->geometry());
        TakePlace(*placeholder, link);
    }
    EnableWindow((style & WS_DISABLED) == 0);
    ShowWindow((style & WS_VISIBLE) != 0 ? SW_SHOW : SW_HIDE);
    return TRUE;
}

QcUiGridTreeRow* QcUiGrid::AppendRow() {
    return m_parts->rows.Insert(nullptr, m_parts->rows.ChildCount(nullptr));
}

int QcUiGrid::GetRowCount() const {
    return static_cast<int>(m_parts->rows.InOrder().size());
}

QcUiGridTreeRow* QcUiGrid::GetRow(int index) const {
    const std::vector<QcUiGridTreeRow*>& rows = m_parts->rows.InOrder();
    return index >= 0 && index < static_cast<int>(rows.size()) ? rows[static_cast<std::size_t>(index)] : nullptr;
}

QcUiGridTreeRow* QcUiGrid::GetCurRow() const {
    return m_parts->view ? m_parts->view->CurRow() : nullptr;
}

QcUiGridTreeRow* QcUiGrid::GetCurTreeRow() const {
    return m_parts->state.Has(QCGRID_SINGLE_LEVEL) ? nullptr : GetCurRow();
}

int QcUiGrid::GetCurColumn() const {
    return m_parts->view ? m_parts->view->CurColumn() : -1;
}

void QcUiGrid::SetCurRow(QcUiGridRow* row) {
    SetCurCell(row, GetCurColumn() < 0 ? 0 : GetCurColumn());
}

void QcUiGrid::SetCurCell(QcUiGridRow* row, int column) {
    const bool known = row == nullptr || (m_parts->rows.Holds(row) && m_parts->rows.Column(column) != nullptr);
    if (m_parts->view == nullptr || !known)
        return;
    EndEditCell();
    m_parts->view->SetCurrent(row ? row->GetTreeRow() : nullptr, column, true);
}

QcUiGridCell* QcUiGrid::GetActiveCell() const {
    QcUiGridTreeRow* row = GetCurRow();
    return row ? row->GetCell(GetCurColumn()) : nullptr;
}

int QcUiGrid::GetSelRowCount() const {
    return m_parts->view ? static_cast<int>(m_parts->view->SelectedRows().size()) : 0;
}

bool QcUiGrid::IsRowSelected(const QcUiGridRow* row) const {
    if (m_parts->view == nullptr || !m_parts->rows.Holds(row))
        return false;
    return m_parts->view->IsSelected(static_cast<const QcUiGridTreeRow&>(*row));
}

void QcUiGrid::SelectRow(QcUiGridRow* row, bool select) {
    if (m_parts->view != nullptr && m_parts->rows.Holds(row))
        m_parts->view->Select(*row->GetTreeRow(), select);
}

void QcUiGrid::ClearSelection() {
    if (m_parts->view != nullptr)
        m_parts->view->ClearSelection();
}

void QcUiGrid::ShowActive(bool show) {
    m_parts->state.isActiveShown = show;
    if (m_parts->view != nullptr)
        m_parts->view->RedrawActive();
}

bool QcUiGrid::IsActiveShown() const {
    return m_parts->state.isActiveShown;
}

void QcUiGrid::Redraw() {
    if (m_parts->view != nullptr)
        m_parts->view->Redraw();
}

bool QcUiGrid::OwnsWindow(CWnd* window) const {
    const bool there = window != nullptr && window->m_hWnd != nullptr && m_hWnd != nullptr;
    return there && (window->m_hWnd == m_hWnd || IsChild(window));
}

void SetGridObserver(QcUiGridObserver observer, void* context) {
    s_observer = observer;
    s_pObserverContext = context;
}
