// The model of a grid's rows. An index is a row's address with a column; the views ask for what they show, and nothing
// is kept twice.
#include "platform/window/grid/GridModel.h"

#include <QAbstractItemModel>

#include "platform/window/toolkit/QtText.h"

namespace {

class Model : public QAbstractItemModel, public GridModel {
public:
    Model(GridRows& rows, const GridState& state) : m_rows(rows), m_state(state) {}

    // ---- For the views. ----
    QModelIndex index(int row, int column, const QModelIndex& parent) const override {
        if (column < 0 || column >= m_rows.ColumnCount())
            return {};
        QcUiGridTreeRow* child = m_rows.Child(RowOf(parent), row);
        return child ? createIndex(row, column, child) : QModelIndex();
    }
    QModelIndex parent(const QModelIndex& child) const override {
        const QcUiGridTreeRow* row = RowOf(child);
        return row ? IndexOf(row->GetParent(), 0) : QModelIndex();
    }
    int rowCount(const QModelIndex& parent) const override {
        return parent.column() > 0 ? 0 : m_rows.ChildCount(RowOf(parent));
    }
    int columnCount(const QModelIndex& /*parent*/) const override { return m_rows.ColumnCount(); }

    QVariant data(const QModelIndex& index, int role) const override {
        QcUiGridTreeRow* row = RowOf(index);
        if (row == nullptr)
            return {};
        switch (role) {
            case Qt::DisplayRole:
            case Qt::EditRole:
                return ToQString(row->GetItemText(index.column()));
            case Qt::AccessibleDescriptionRole:
                return headerData(index.column(), Qt::Horizontal, Qt::DisplayRole);
            case Qt::TextAlignmentRole:
                return QVariant::fromValue(AlignmentOf(*row, index.column()));
            default:
                return {};
        }
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        const GridColumn* column = orientation == Qt::Horizontal ? m_rows.Column(section) : nullptr;
        if (column == nullptr)
            return {};
        if (role == Qt::TextAlignmentRole)
            return QVariant::fromValue(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
        return role == Qt::DisplayRole ? ToQString(column->title) : QVariant();
    }
    Qt::ItemFlags flags(const QModelIndex& index) const override {
        const Qt::ItemFlags flags = QAbstractItemModel::flags(index);
        // So that input methods are let in; the editors are the grid's own.
        return index.isValid() && !m_state.IsReadOnly() ? flags | Qt::ItemIsEditable : flags;
    }

    // ---- For the grid. ----
    QAbstractItemModel& Items() override { return *this; }
    QModelIndex IndexOf(const QcUiGridTreeRow* row, int column) const override {
        return row ? createIndex(row->GetIndexInParent(), column, row) : QModelIndex();
    }
    void BeforeInsert(const QcUiGridTreeRow* parent, int at) override { beginInsertRows(IndexOf(parent, 0), at, at); }
    void AfterInsert() override { endInsertRows(); }
    void BeforeRemove(const QcUiGridTreeRow* parent, int at) override { beginRemoveRows(IndexOf(parent, 0), at, at); }
    void AfterRemove() override { endRemoveRows(); }
    void BeforeClear() override { beginResetModel(); }
    void AfterClear() override { endResetModel(); }
    void BeforeColumn(int column) override { beginInsertColumns({}, column, column); }
    void AfterColumn() override { endInsertColumns(); }
    void CellChanged(const QcUiGridTreeRow& row, int column) override {
        const QModelIndex changed = IndexOf(&row, column);
        emit dataChanged(changed, changed);
    }

private:
    static Qt::Alignment AlignmentOf(QcUiGridTreeRow& row, int column) {
        const QcUiGridCell* cell = row.GetCell(column);
        const bool centred = cell != nullptr && (cell->GetStyle() & QCGRID_CELL_CENTER) != 0;
        return (centred ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter;
    }

    GridRows& m_rows;
    const GridState& m_state;
};

}  // namespace

std::unique_ptr<GridModel> GridModel::Make(GridRows& rows, const GridState& state) {
    return std::make_unique<Model>(rows, state);
}

QcUiGridTreeRow* GridModel::RowOf(const QModelIndex& index) {
    return static_cast<QcUiGridTreeRow*>(index.internalPointer());
}
