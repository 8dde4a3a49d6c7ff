// The list of a drawing's layers: which are shown in the view, and which height their flat outlines get.
// Why: docs/decisions/workbench.md
#pragma once

#include <QTreeWidget>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "scene/LayerHeight.h"
#include "workbench/view/ScenePick.h"
#include "workbench/window/LayerRows.h"

// A row has a box that shows and hides the layer, its colour, what lies on it, and its height, which is typed (F2,
// Enter, or a double click). Space changes the box of the row that has the focus, and Ctrl with A shows all.
class LayerPanel : public QTreeWidget {
public:
    enum Column { Name, Faces, Lines, Height };

    explicit LayerPanel(QWidget* parent);

    // The layers of another drawing (all are shown then), or of a later state of the same one.
    void SetRows(std::vector<LayerRow> rows, const std::vector<LayerHeight>& heights, bool isAnother);
    HiddenLayers GetHidden() const;
    // How many layers with faces the list hides.
    int CountHidden() const;
    void Retranslate();

    std::function<void()> m_onHidden;
    // Receives all heights, when one was typed that can be one.
    std::function<void(const std::vector<LayerHeight>&)> m_onHeights;
    // Receives what was typed and is no height.
    std::function<void(const CString&)> m_onRefused;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    QSize sizeHint() const override { return {280, 220}; }

private:
    void Fill(QTreeWidgetItem& item, const LayerRow& row);
    void TakeChange(QTreeWidgetItem& item, int column);
    void TakeHeight(QTreeWidgetItem& item, const LayerRow& row);
    const LayerHeight* HeightOf(const LayerRow& row) const;

    std::vector<LayerRow> m_rows;
    std::vector<LayerHeight> m_heights;
    std::set<std::wstring> m_hidden;  // by LayerRow::key
};
