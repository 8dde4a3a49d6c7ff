// The windows of an answer as rows of a table: sorted, filtered, and found again.
#pragma once

#include <QAbstractTableModel>
#include <cstddef>
#include <memory>
#include <vector>

#include "workbench/commands/AnalysisReport.h"

// It sorts and filters by itself: a proxy before a hundred thousand rows would keep the window waiting.
class WindowModel : public QAbstractTableModel {
public:
    enum Column { Name, Hours, Verdict, Before, Lost, Floor, Building, Flat, kColumnCount };

    // Null for no answer. The order and the filter stay.
    void SetReport(std::shared_ptr<const AnalysisReport> report);
    // Only windows with this text in a name, a building, a flat or the verdict, whatever the case; and only those that
    // fail, if that is asked for.
    void SetFilter(const QString& text, bool areOnlyFailing);
    void Retranslate();

    // Which of the answer's windows a row is; and where a window stands, -1 where the filter leaves it out.
    std::size_t WindowAt(int row) const { return m_rows[static_cast<std::size_t>(row)]; }
    int RowOf(std::size_t window) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

private:
    void FillTexts();
    void FillRows();
    void SortRows();
    QString TextOf(const WindowResult& window, int column) const;

    std::shared_ptr<const AnalysisReport> m_report;
    std::vector<QString> m_texts;     // of each window: what the filter looks at
    std::vector<std::size_t> m_rows;  // windows
    QString m_filter;
    bool m_areOnlyFailing = false;
    int m_column = -1;  // by which they are sorted; -1: as drawn
    Qt::SortOrder m_order = Qt::AscendingOrder;
};
