// A row that may have rows under it.
#pragma once

#include "platform/window/QcUiGridRow.h"

// A row with children is a parent row, one that stands under another is a child row; a row can be both, or neither. The
// children of a row are shown as soon as it has some, until it is collapsed.
class ORVO_API QcUiGridTreeRow : public QcUiGridRow {
public:
    ~QcUiGridTreeRow() override;

    // Adds an empty row as the last child. Never null.
    QcUiGridTreeRow* AppendChild();
    // Without the children's own.
    int GetChildNum() const { return static_cast<int>(m_children.size()); }
    // A child by its index from 0; null when out of range.
    QcUiGridTreeRow* GetChild(int index) const;
    // The row that it stands under; null at the top level.
    QcUiGridTreeRow* GetParent() const;
    // From 0, among the rows of the same parent.
    int GetIndexInParent() const { return m_index; }
    // Whether there are rows under it.
    bool IsParentRow() const { return !m_children.empty(); }
    // Whether it stands under another row.
    bool IsChildRow() const { return GetParent() != nullptr; }
    // Shows or hides the children. Kept for a row that has none yet.
    void Expand(bool expand = true);
    // Whether children are shown, if there are any; true at first.
    bool IsExpanded() const { return m_isExpanded; }
    QcUiGridTreeRow* GetTreeRow() override { return this; }

private:
    friend class GridRows;  // keeps the tree

    QcUiGridTreeRow(GridKeeper* keeper, QcUiGridTreeRow* parent) : QcUiGridRow(keeper), m_parent(parent) {}

    std::vector<std::unique_ptr<QcUiGridTreeRow>> m_children;
    QcUiGridTreeRow* m_parent;  // the hidden root for the top level, null for that itself
    int m_index = 0;
    bool m_isExpanded = true;
};
