// The grid's operations: rows and columns, the window that shows them, the current row. Commands and editing are in
// QcUiGridCommands.cpp.
#include "platform/window/QcUiGrid.h"

#include <QWidget>

#include "platform/window/grid/QcUiGridImpl.h"

namespace {

constexpr UINT kNoId = 0xFFFF;

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

QcUiGrid::QcUiGrid(int headerRows, int columnWidth) : m_pImpl(new Impl(*this)) {
    m_pImpl->bTitles = headerRows > 0;
    m_pImpl->nColumnWidth = columnWidth;
}

QcUiGrid::~QcUiGrid() {
    m_pImpl->LetViewGo();
}

void QcUiGrid::PostNcDestroy() {
    m_pImpl->LetViewGo();
}

GridView* QcUiGrid::GetView() const {
    return m_pImpl->pView;
}

void QcUiGrid::Reset() {
    CancelEditCell();
    m_pImpl->rows.Clear();
    if (m_pImpl->pView != nullptr)
        return;
    m_pImpl->rows.RemoveColumns();
    m_pImpl->dwOptions = 0;
    m_pImpl->bFitLast = false;
}

int QcUiGrid::AppendColumn(const wchar_t* title, int width) {
    return m_pImpl->rows.AddColumn({title, width > 0 ? width : m_pImpl->nColumnWidth});
}

int QcUiGrid::GetColumnCount() const {
    return m_pImpl->rows.ColumnCount();
}

CString QcUiGrid::GetColumnTitle(int column) const {
    const GridColumn* known = m_pImpl->rows.Column(column);
    return known ? known->strTitle : CString();
}

int QcUiGrid::GetColumnWidth(int column) const {
    const GridColumn* known = m_pImpl->rows.Column(column);
    if (known == nullptr)
        return 0;
    return m_pImpl->pView ? m_pImpl->pView->ColumnWidth(column) : known->nWidth;
}

void QcUiGrid::FitLastColumn() {
    m_pImpl->bFitLast = true;
    if (m_pImpl->pView != nullptr)
        m_pImpl->pView->FitLastColumn();
}

void QcUiGrid::SetOption(DWORD bits, bool on) {
    m_pImpl->dwOptions = on ? m_pImpl->dwOptions | bits : m_pImpl->dwOptions & ~bits;
    if (m_pImpl->pView == nullptr)
        return;
    if (IsReadOnly())
        EndEditCell();
    m_pImpl->pView->ShowOptions();
}

DWORD QcUiGrid::GetOption() const {
    return m_pImpl->dwOptions;
}

bool QcUiGrid::IsReadOnly() const {
    return (m_pImpl->dwOptions & QCGRID_READONLY_MASK) != 0;
}

BOOL QcUiGrid::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    const WindowLink* around = parent ? WindowLink::Of(parent->m_hWnd) : nullptr;
    if (around == nullptr || m_hWnd != nullptr)
        return FALSE;
    WindowLink* placeholder = FindPlaceholder(around->m_pWidget, id);
    Impl* impl = m_pImpl.get();
    impl->pView =
        GridView::Make(impl->rows, {around->m_pWidget, id, style, CString()}, [impl] { impl->NoteViewGone(); });
    WindowLink& link = impl->pView->Link();
    Attach(link.Handle());
    impl->pView->ShowOptions();
    impl->pView->ShowTitles(impl->bTitles);
    if (impl->bFitLast)
        impl->pView->FitLastColumn();
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
    return m_pImpl->rows.Insert(nullptr, m_pImpl->rows.ChildCount(nullptr));
}

int QcUiGrid::GetRowCount() const {
    return static_cast<int>(m_pImpl->rows.InOrder().size());
}

QcUiGridTreeRow* QcUiGrid::GetRow(int index) const {
    const std::vector<QcUiGridTreeRow*>& rows = m_pImpl->rows.InOrder();
    return index >= 0 && index < static_cast<int>(rows.size()) ? rows[static_cast<std::size_t>(index)] : nullptr;
}

QcUiGridTreeRow* QcUiGrid::GetCurRow() const {
    return m_pImpl->pView ? m_pImpl->pView->CurRow() : nullptr;
}

QcUiGridTreeRow* QcUiGrid::GetCurTreeRow() const {
    return (m_pImpl->dwOptions & QCGRID_SINGLE_LEVEL) != 0 ? nullptr : GetCurRow();
}

int QcUiGrid::GetCurColumn() const {
    return m_pImpl->pView ? m_pImpl->pView->CurColumn() : -1;
}

void QcUiGrid::SetCurRow(QcUiGridRow* row) {
    SetCurCell(row, GetCurColumn() < 0 ? 0 : GetCurColumn());
}

void QcUiGrid::SetCurCell(QcUiGridRow* row, int column) {
    const bool known = row == nullptr || (m_pImpl->rows.Holds(row) && m_pImpl->rows.Column(column) != nullptr);
    if (m_pImpl->pView == nullptr || !known)
        return;
    EndEditCell();
    m_pImpl->pView->SetCurrent(row ? row->GetTreeRow() : nullptr, column, true);
}

QcUiGridCell* QcUiGrid::GetActiveCell() const {
    QcUiGridTreeRow* row = GetCurRow();
    return row ? row->GetCell(GetCurColumn()) : nullptr;
}

int QcUiGrid::GetSelRowCount() const {
    return m_pImpl->pView ? static_cast<int>(m_pImpl->pView->SelectedRows().size()) : 0;
}

bool QcUiGrid::IsRowSelected(const QcUiGridRow* row) const {
    if (m_pImpl->pView == nullptr || !m_pImpl->rows.Holds(row))
        return false;
    return m_pImpl->pView->IsSelected(static_cast<const QcUiGridTreeRow&>(*row));
}

void QcUiGrid::SelectRow(QcUiGridRow* row, bool select) {
    if (m_pImpl->pView != nullptr && m_pImpl->rows.Holds(row))
        m_pImpl->pView->Select(*row->GetTreeRow(), select);
}

void QcUiGrid::ClearSelection() {
    if (m_pImpl->pView != nullptr)
        m_pImpl->pView->ClearSelection();
}

void QcUiGrid::ShowActive(bool show) {
    m_pImpl->bActiveShown = show;
    if (m_pImpl->pView != nullptr)
        m_pImpl->pView->RedrawActive();
}

bool QcUiGrid::IsActiveShown() const {
    return m_pImpl->bActiveShown;
}

void QcUiGrid::Redraw() {
    if (m_pImpl->pView != nullptr)
        m_pImpl->pView->Redraw();
}

bool QcUiGrid::OwnsWindow(CWnd* window) const {
    const bool there = window != nullptr && window->m_hWnd != nullptr && m_hWnd != nullptr;
    return there && (window->m_hWnd == m_hWnd || IsChild(window));
}
