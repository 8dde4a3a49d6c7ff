// Shows the properties of what was picked in the view.
#pragma once

#include <QTreeWidget>
#include <vector>

#include "workbench/window/EntityProperties.h"

// A name and a value a row; Ctrl with C copies the row's value.
class PropertiesPanel : public QTreeWidget {
public:
    explicit PropertiesPanel(QWidget* parent);

    // Without any it says how something is picked.
    void SetProperties(const std::vector<EntityProperty>& properties);
    void Retranslate();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    QSize sizeHint() const override { return {280, 220}; }
};
