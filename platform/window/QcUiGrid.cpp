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
    const bool plain = link && !link->m_target && link->m_pWidget->metaObject() == &QWidget::staticMetaObject;
    return plain ? link : nullptr;
}

// The toolkit passes over the placeholder, which takes no focus, so the controls are lined up again.
void OrderKeyboard(const QWidget* parent, const WindowLink& placeholder) {
    QWidget* before = nullptr;
    for (const WindowLink* control : WindowLink::Controls(parent)) {
        if (control == &placeholder)
            continue;
        if (before != nullptr)
            QWidget::setTabOrder(before, control->m_pWidget);
        before = control->m_pWidget;
    }
}

// Whoever asked for the placeholder may hold it until the event loop runs again.
void TakePlace(WindowLink& placeholder, WindowLink& control) {
    QWidget* before = placeholder.m_pWidget;
    QWidget* widget = control.m_pWidget;
    control.m_nOrder = placeholder.m_nOrder;
    placeholder.m_nID = kNoId;
    widget->setAccessibleName(before->accessibleName());
    OrderKeyboard(widget->parentWidget(), placeholder);
    before->hide();
    before->deleteLater();
}

}  // namespace

BEGIN_MESSAGE_MAP(QcUiGrid, CWnd)
END_MESSAGE_MAP()

QcUiGrid::QcUiGrid(int headerRows, int columnWidth) : m_pParts(new PartsOf(*this)) {
    m_pParts->state.hasTitles = headerRows > 0;
    m_pParts->state.columnWidth = columnWidth;
}

QcUiGrid::~QcUiGrid() {
    m_pParts->LetViewGo();
}

void QcUiGrid::PostNcDestroy() {
    m_pParts->LetViewGo();
}

void QcUiGrid::Reset() {
    CancelEditCell();
    m_pParts->rows.Clear();
    if (m_pParts->view != nullptr)
        return;
    m_pParts->rows.RemoveColumns();
    m_pParts->state.options = 0;
    m_pParts->state.isLastColumnFitted = false;
}

int QcUiGrid::AppendColumn(const wchar_t* title, int width) {
    return m_pParts->rows.AddColumn({title, width > 0 ? width : m_pParts->state.columnWidth});
}

int QcUiGrid::GetColumnCount() const {
    return m_pParts->rows.ColumnCount();
}

CString QcUiGrid::GetColumnTitle(int column) const {
    const GridColumn* known = m_pParts->rows.Column(column);
    return known ? known->strTitle : CString();
}

int QcUiGrid::GetColumnWidth(int column) const {
    const GridColumn* known = m_pParts->rows.Column(column);
    if (known == nullptr)
        return 0;
    return m_pParts->view ? m_pParts->view->ColumnWidth(column) : known->nWidth;
}

void QcUiGrid::FitLastColumn() {
    m_pParts->state.isLastColumnFitted = true;
    if (m_pParts->view != nullptr)
        m_pParts->view->FitLastColumn();
}

void QcUiGrid::SetOption(DWORD bits, bool on) {
    m_pParts->state.options = on ? m_pParts->state.options | bits : m_pParts->state.options & ~bits;
    if (m_pParts->view == nullptr)
        return;
    if (IsReadOnly())
        EndEditCell();
    m_pParts->view->ShowOptions();
}

DWORD QcUiGrid::GetOption() const {
    return m_pParts->state.options;
}

bool QcUiGrid::IsReadOnly() const {
    return m_pParts->state.IsReadOnly();
}

BOOL QcUiGrid::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    const WindowLink* around = parent ? WindowLink::Of(parent->m_hWnd) : nullptr;
    if (around == nullptr || m_hWnd != nullptr)
        return FALSE;
    WindowLink* placeholder = FindPlaceholder(around->m_pWidget, id);
    GridParts* parts = m_pParts.get();
    parts->view = GridView::Make(*parts, {around->m_pWidget, id, style, CString()}, [parts] { parts->NoteViewGone(); });
    WindowLink& link = parts->view->Link();
    Attach(link.Handle());
    parts->view->ShowOptions();
    parts->view->ShowTitles(parts->state.hasTitles);
    if (parts->state.isLastColumnFitted)
        parts->view->FitLastColumn();
    MoveWindow(&rect);
    if (placeholder != nullptr) {
        if (rect.right <= rect.left || rect.bottom <= rect.top)
            link.m_pWidget->setGeometry(placeholder->m_pWidget->geometry());
        TakePlace(*placeholder, link);
    }
    EnableWindow((style & WS_DISABLED) == 0);
    ShowWindow((style & WS_VISIBLE) != 0 ? SW_SHOW : SW_HIDE);
    return TRUE;
}

QcUiGridTreeRow* QcUiGrid::AppendRow() {
    return m_pParts->rows.Insert(nullptr, m_pParts->rows.ChildCount(nullptr));
}

int QcUiGrid::GetRowCount() const {
    return static_cast<int>(m_pParts->rows.InOrder().size());
}

QcUiGridTreeRow* QcUiGrid::GetRow(int index) const {
    const std::vector<QcUiGridTreeRow*>& rows = m_pParts->rows.InOrder();
    return index >= 0 && index < static_cast<int>(rows.size()) ? rows[static_cast<std::size_t>(index)] : nullptr;
}

QcUiGridTreeRow* QcUiGrid::GetCurRow() const {
    return m_pParts->view ? m_pParts->view->CurRow() : nullptr;
}

QcUiGridTreeRow* QcUiGrid::GetCurTreeRow() const {
    return m_pParts->state.Has(QCGRID_SINGLE_LEVEL) ? nullptr : GetCurRow();
}

int QcUiGrid::GetCurColumn() const {
    return m_pParts->view ? m_pParts->view->CurColumn() : -1;
}

void QcUiGrid::SetCurRow(QcUiGridRow* row) {
    SetCurCell(row, GetCurColumn() < 0 ? 0 : GetCurColumn());
}

void QcUiGrid::SetCurCell(QcUiGridRow* row, int column) {
    const bool known = row == nullptr || (m_pParts->rows.Holds(row) && m_pParts->rows.Column(column) != nullptr);
    if (m_pParts->view == nullptr || !known)
        return;
    EndEditCell();
    m_pParts->view->SetCurrent(row ? row->GetTreeRow() : nullptr, column, true);
}

QcUiGridCell* QcUiGrid::GetActiveCell() const {
    QcUiGridTreeRow* row = GetCurRow();
    return row ? row->GetCell(GetCurColumn()) : nullptr;
}

int QcUiGrid::GetSelRowCount() const {
    return m_pParts->view ? static_cast<int>(m_pParts->view->SelectedRows().size()) : 0;
}

bool QcUiGrid::IsRowSelected(const QcUiGridRow* row) const {
    if (m_pParts->view == nullptr || !m_pParts->rows.Holds(row))
        return false;
    return m_pParts->view->IsSelected(static_cast<const QcUiGridTreeRow&>(*row));
}

void QcUiGrid::SelectRow(QcUiGridRow* row, bool select) {
    if (m_pParts->view != nullptr && m_pParts->rows.Holds(row))
        m_pParts->view->Select(*row->GetTreeRow(), select);
}

void QcUiGrid::ClearSelection() {
    if (m_pParts->view != nullptr)
        m_pParts->view->ClearSelection();
}

void QcUiGrid::ShowActive(bool show) {
    m_pParts->state.isActiveShown = show;
    if (m_pParts->view != nullptr)
        m_pParts->view->RedrawActive();
}

bool QcUiGrid::IsActiveShown() const {
    return m_pParts->state.isActiveShown;
}

void QcUiGrid::Redraw() {
    if (m_pParts->view != nullptr)
        m_pParts->view->Redraw();
}

bool QcUiGrid::OwnsWindow(CWnd* window) const {
    const bool there = window != nullptr && window->m_hWnd != nullptr && m_hWnd != nullptr;
    return there && (window->m_hWnd == m_hWnd || IsChild(window));
}

void SetGridObserver(QcUiGridObserver observer, void* context) {
    s_observer = observer;
    s_pObserverContext = context;
}
