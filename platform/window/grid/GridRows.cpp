// The tree of a grid's rows; it tells its observer of each change.
#include "platform/window/grid/GridRows.h"

#include <algorithm>
#include <utility>

// Rows that nobody shows are still rows: without an observer nothing else changes.
GridRows::GridRows(QcUiGrid& grid) : m_grid(grid), m_root(new QcUiGridTreeRow(this, nullptr)) {}

GridRows::~GridRows() = default;

const GridColumn* GridRows::Column(int column) const {
    return column >= 0 && column < ColumnCount() ? &m_columns[static_cast<std::size_t>(column)] : nullptr;
}

int GridRows::AddColumn(const GridColumn& column) {
    const int number = ColumnCount();
    if (m_observer != nullptr) {
        m_observer->BeforeChange();
        m_observer->BeforeColumn(number);
    }
    m_columns.push_back(column);
    if (m_observer != nullptr)
        m_observer->AfterColumn();
    return number;
}

int GridRows::ChildCount(const QcUiGridTreeRow* parent) const {
    return parent ? parent->GetChildNum() : m_root->GetChildNum();
}

QcUiGridTreeRow* GridRows::Child(const QcUiGridTreeRow* parent, int index) const {
    return parent ? parent->GetChild(index) : m_root->GetChild(index);
}

void GridRows::Renumber(QcUiGridTreeRow& parent, int from) {
    for (int i = from; i < parent.GetChildNum(); ++i)
        parent.m_children[static_cast<std::size_t>(i)]->m_index = i;
}

QcUiGridTreeRow* GridRows::Insert(QcUiGridTreeRow* parent, int at) {
    if (m_observer != nullptr)
        m_observer->BeforeChange();
    QcUiGridTreeRow& under = Under(parent);
    at = std::clamp(at, 0, under.GetChildNum());
    if (m_observer != nullptr)
        m_observer->BeforeInsert(parent, at);
    const auto place = under.m_children.emplace(under.m_children.begin() + at, new QcUiGridTreeRow(this, &under));
    QcUiGridTreeRow* row = place->get();
    Renumber(under, at);
    // Rows that are filled in one after the other do not spoil the order.
    const bool last = m_isOrdered && parent == nullptr && at + 1 == under.GetChildNum();
    if (last)
        m_order.push_back(row);
    m_isOrdered = last;
    if (m_observer != nullptr)
        m_observer->AfterInsert(*row);
    return row;
}

void GridRows::Remove(QcUiGridTreeRow& row) {
    if (m_observer != nullptr)
        m_observer->BeforeChange();
    QcUiGridTreeRow& under = *row.m_parent;
    const int at = row.m_index;
    if (m_observer != nullptr)
        m_observer->BeforeRemove(row.GetParent(), at);
    // Gone from the tree before it is gone: nobody finds half a row.
    const std::unique_ptr<QcUiGridTreeRow> going = std::move(under.m_children[static_cast<std::size_t>(at)]);
    under.m_children.erase(under.m_children.begin() + at);
    Renumber(under, at);
    m_isOrdered = false;
    if (m_observer != nullptr)
        m_observer->AfterRemove();
}

void GridRows::Clear() {
    if (m_observer != nullptr) {
        m_observer->BeforeChange();
        m_observer->BeforeClear();
    }
    const std::unique_ptr<QcUiGridTreeRow> going =
        std::exchange(m_root, std::unique_ptr<QcUiGridTreeRow>(new QcUiGridTreeRow(this, nullptr)));
    m_order.clear();
    m_isOrdered = true;
    if (m_observer != nullptr)
        m_observer->AfterClear();
}

const std::vector<QcUiGridTreeRow*>& GridRows::InOrder() const {
    if (m_isOrdered)
        return m_order;
    m_order.clear();
    std::vector<QcUiGridTreeRow*> open = {m_root.get()};
    while (!open.empty()) {
        QcUiGridTreeRow* row = open.back();
        open.pop_back();
        if (row != m_root.get())
            m_order.push_back(row);
        for (int i = row->GetChildNum(); i-- > 0;)
            open.push_back(row->GetChild(i));
    }
    m_isOrdered = true;
    return m_order;
}

void GridRows::TellCellChanged(QcUiGridRow& row, int column) const {
    if (m_observer != nullptr)
        m_observer->CellChanged(*row.GetTreeRow(), column);
}

void GridRows::TellExpanded(const QcUiGridTreeRow& row) const {
    if (m_observer != nullptr)
        m_observer->Expanded(row);
}
