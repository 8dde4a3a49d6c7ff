// What a user does to a grid's rows and cells.
#include <algorithm>

#include "platform/window/QcUiGrid.h"
#include "platform/window/QcUiGridEdit.h"
#include "platform/window/grid/GridParts.h"

namespace {

bool LiesUnderOne(const QcUiGridTreeRow& row, const std::vector<QcUiGridTreeRow*>& rows) {
    for (const QcUiGridTreeRow* above = row.GetParent(); above != nullptr; above = above->GetParent())
        if (std::find(rows.begin(), rows.end(), above) != rows.end())
            return true;
    return false;
}

// Rows that go along with one above them need no deleting.
std::vector<QcUiGridTreeRow*> Uppermost(const std::vector<QcUiGridTreeRow*>& rows) {
    std::vector<QcUiGridTreeRow*> uppermost;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(uppermost),
                 [&rows](const QcUiGridTreeRow* row) { return !LiesUnderOne(*row, rows); });
    return uppermost;
}

const QcUiGridTreeRow* TopOf(const QcUiGridTreeRow* row) {
    while (row != nullptr && row->GetParent() != nullptr)
        row = row->GetParent();
    return row;
}

}  // namespace

void QcUiGrid::OnMenuCommand(int command) {
    if (IsReadOnly() || m_parts->view == nullptr)
        return;
    EndEditCell();
    if (command == QCGRID_CMD_INSERT_ROW && GetCurRow() != nullptr)
        InsertRow(*GetCurRow());
    else if (command == QCGRID_CMD_INSERT_ROW || command == QCGRID_CMD_INSERT_PARENT)
        InsertParent();
    else if (command == QCGRID_CMD_DELETE_ROWS)
        DeleteRows();
}

void QcUiGrid::InsertRow(QcUiGridTreeRow& current) {
    const bool under = current.IsParentRow() && !m_parts->state.Has(QCGRID_SINGLE_LEVEL);
    QcUiGridTreeRow* parent = under ? &current : current.GetParent();
    const int at = under ? current.GetChildNum() : current.GetIndexInParent() + 1;
    QcUiGridTreeRow* row = m_parts->rows.Insert(parent, at);
    SetCurRow(row);
    OnAfterInsertRow(row);
}

void QcUiGrid::InsertParent() {
    const QcUiGridTreeRow* top = TopOf(GetCurRow());
    const int at = top ? top->GetIndexInParent() + 1 : m_parts->rows.ChildCount(nullptr);
    QcUiGridTreeRow* row = m_parts->rows.Insert(nullptr, at);
    QcUiGridTreeRow* child = !m_parts->state.Has(QCGRID_SINGLE_LEVEL) ? row->AppendChild() : nullptr;
    SetCurCell(row, 0);
    OnAfterInsertRow(row);
    if (child != nullptr)
        OnAfterInsertRow(child);
}

void QcUiGrid::DeleteRows() {
    std::vector<QcUiGridTreeRow*> rows = m_parts->view->SelectedRows();
    if (rows.empty() && GetCurRow() != nullptr)
        rows.push_back(GetCurRow());
    rows = Uppermost(rows);
    if (rows.empty())
        return;
    // The current row's place counts, if it is one of them.
    QcUiGridTreeRow* current = GetCurRow();
    const bool goes = std::find(rows.begin(), rows.end(), current) != rows.end();
    QcUiGridTreeRow* first = goes ? current : rows.front();
    QcUiGridTreeRow* parent = first->GetParent();
    const auto above = [&](const QcUiGridTreeRow* row) {
        return row->GetParent() == parent && row->GetIndexInParent() < first->GetIndexInParent();
    };
    const int at = first->GetIndexInParent() - static_cast<int>(std::count_if(rows.begin(), rows.end(), above));
    std::vector<QcUiGridTreeRow*> parents;
    for (QcUiGridTreeRow* row : rows) {
        if (row->GetParent() != nullptr)
            parents.push_back(row->GetParent());
        m_parts->rows.Remove(*row);
    }
    std::vector<QcUiGridTreeRow*> filled;
    for (QcUiGridTreeRow* row : parents)
        if (!row->IsParentRow())
            filled.push_back(row->AppendChild());
    SetCurRow(m_parts->rows.Child(parent, std::min(at, m_parts->rows.ChildCount(parent) - 1)));
    for (QcUiGridTreeRow* row : filled)
        OnAfterInsertRow(row);
}

void QcUiGrid::DeleteRow(QcUiGridRow* row) {
    if (!m_parts->rows.Holds(row))
        return;
    const QcUiGridCellCtrl* editor = GetEditCtrl();
    for (const QcUiGridTreeRow* edited = editor ? editor->GetCell()->GetRow()->GetTreeRow() : nullptr;
         edited != nullptr; edited = edited->GetParent())
        if (edited == row)
            CancelEditCell();
    m_parts->rows.Remove(*row->GetTreeRow());
}

void QcUiGrid::OnRightMenu(QcUiGridRow* /*row*/, POINT /*screen*/) {}

void QcUiGrid::OnAfterInsertRow(QcUiGridRow* /*row*/) {}

QcUiGridCellCtrl* QcUiGrid::CreateCellCtrl(QcUiGridCell* cell) {
    return new QcUiGridEdit(cell);  // the edit owns it
}

bool QcUiGrid::EditCell(QcUiGridRow* row, int column) {
    if (m_parts->view == nullptr || IsReadOnly() || !m_parts->rows.Holds(row) || row->GetCell(column) == nullptr)
        return false;
    EndEditCell();
    std::unique_ptr<QcUiGridCellCtrl> editor(CreateCellCtrl(row->GetCell(column)));
    if (!editor)
        return false;
    if (!IsRowSelected(row))
        m_parts->view->SetCurrent(row->GetTreeRow(), column, true);
    const RECT place = m_parts->view->Reveal(*row->GetTreeRow(), column);
    return m_parts->editor.Open(std::move(editor), place, GetColumnTitle(column));
}

bool QcUiGrid::IsEditing() const {
    return m_parts->editor.Get() != nullptr;
}

QcUiGridCellCtrl* QcUiGrid::GetEditCtrl() const {
    return m_parts->editor.Get();
}

void QcUiGrid::EndEditCell() {
    m_parts->editor.Close(true);
}

void QcUiGrid::CancelEditCell() {
    m_parts->editor.Close(false);
}

// Edits put their line into the middle of what lies below the offset, and the grid its texts into the middle of the
// cell: without one, both stand at the same height.
int QcUiGrid::GetEditOffset() const {
    return 0;
}
