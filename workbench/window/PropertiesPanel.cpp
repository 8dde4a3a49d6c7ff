// Fills the list of properties.
#include "workbench/window/PropertiesPanel.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>

#include "workbench/view/WidgetText.h"

PropertiesPanel::PropertiesPanel(QWidget* parent) : QTreeWidget(parent) {
    setObjectName("PropertiesPanel");
    setColumnCount(2);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    Retranslate();
}

void PropertiesPanel::Retranslate() {
    setHeaderLabels({ShownSay(L"属性名"), ShownSay(L"值")});
    setAccessibleName(ShownSay(L"所选实体的属性"));
}

void PropertiesPanel::SetProperties(const std::vector<EntityProperty>& properties) {
    clear();
    for (const EntityProperty& property : properties) {
        auto* item = new QTreeWidgetItem(this, {Shown(property.name), Shown(property.value)});
        item->setToolTip(1, Shown(property.value));
    }
    if (!properties.empty())
        return;
    auto* hint = new QTreeWidgetItem(this, {ShownSay(L"在视图里点击一个实体")});
    hint->setFlags(Qt::NoItemFlags);
    hint->setForeground(0, palette().color(QPalette::PlaceholderText));  // paler ones are hard to read
    hint->setFirstColumnSpanned(true);
}

void PropertiesPanel::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy) && currentItem())
        return QApplication::clipboard()->setText(currentItem()->text(1));
    QTreeWidget::keyPressEvent(event);
}
