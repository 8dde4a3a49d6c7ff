// A row's place in the tree: the rows under it, and the one above.
#include "platform/window/QcUiGridTreeRow.h"

#include <iterator>

#include "platform/window/grid/GridKeeper.h"

// Rows may be nested deeper than a stack is: those below are taken out before they go.
QcUiGridTreeRow::~QcUiGridTreeRow() {
    std::vector<std::unique_ptr<QcUiGridTreeRow>> going = std::move(m_children);
    while (!going.empty()) {
        const std::unique_ptr<QcUiGridTreeRow> row = std::move(going.back());
        going.pop_back();
        std::move(row->m_children.begin(), row->m_children.end(), std::back_inserter(going));
        row->m_children.clear();
    }
}

QcUiGridTreeRow* QcUiGridTreeRow::AppendChild() {
    return Keeper().Insert(this, GetChildNum());
}

QcUiGridTreeRow* QcUiGridTreeRow::GetChild(int index) const {
    return index >= 0 && index < GetChildNum() ? m_children[static_cast<std::size_t>(index)].get() : nullptr;
}

QcUiGridTreeRow* QcUiGridTreeRow::GetParent() const {
    const bool nested = m_parent != nullptr && m_parent->m_parent != nullptr;
    return nested ? m_parent : nullptr;
}

void QcUiGridTreeRow::Expand(bool expand) {
    m_isExpanded = expand;
    Keeper().TellExpanded(*this);
}
