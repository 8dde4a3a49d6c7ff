// Fills the list of layers, and passes on what is changed in it.
#include "workbench/window/LayerPanel.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QPixmap>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <algorithm>

#include "facts/NumberText.h"
#include "platform/base/PlainText.h"
#include "workbench/Texts.h"
#include "workbench/view/WidgetText.h"

namespace {

constexpr double kMostMetres = 10'000.0;

// Only the height is typed.
class HeightDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override {
        return index.column() == LayerPanel::Height ? QStyledItemDelegate::createEditor(parent, option, index)
                                                    : nullptr;
    }
};

QIcon Swatch(int rgb) {
    QPixmap pixmap(14, 14);
    pixmap.fill(QColor(rgb >> 16 & 255, rgb >> 8 & 255, rgb & 255));
    QPainter(&pixmap).drawRect(0, 0, 13, 13);
    return pixmap;
}

QString Metres(double metres) {
    return QString::number(metres, 'g', 12);
}

std::wstring KeyOf(const LayerHeight& height) {
    CString name = height.layer;
    return std::wstring(name.Trim().MakeLower().View());
}

}  // namespace

LayerPanel::LayerPanel(QWidget* parent) : QTreeWidget(parent) {
    setObjectName("LayerPanel");
    setColumnCount(4);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setItemDelegate(new HeightDelegate(this));
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(Name, QHeaderView::Stretch);
    for (const int column : {Faces, Lines, Height})
        header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    connect(this, &QTreeWidget::itemChanged, this,
            [this](QTreeWidgetItem* item, int column) { TakeChange(*item, column); });
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item, int column) {
        if (column == Height)
            editItem(item, Height);
    });
    Retranslate();
}

void LayerPanel::Retranslate() {
    setHeaderLabels({ShownSay(L"图层"), ShownSay(L"面数"), ShownSay(L"线数"), ShownSay(L"高度（米）")});
    headerItem()->setToolTip(Name, ShownSay(L"只决定视图里显示什么：图形不变，隐藏的图层在日照分析里照样投下阴影"));
    headerItem()->setToolTip(Height, ShownSay(L"给这个图层上没有厚度的闭合轮廓一个高度；图形不变"));
    setAccessibleName(ShownSay(L"图层列表"));
    setAccessibleDescription(ShownSay(L"空格显示或隐藏一个图层，F2 输入它的高度，Ctrl+A 显示全部"));
    SetRows(std::vector<LayerRow>(m_rows), std::vector<LayerHeight>(m_heights), false);
}

void LayerPanel::SetRows(std::vector<LayerRow> rows, const std::vector<LayerHeight>& heights, bool isAnother) {
    const QSignalBlocker quiet(this);
    const int current = currentItem() ? indexOfTopLevelItem(currentItem()) : -1;
    m_rows = std::move(rows);
    m_heights = heights;
    if (isAnother)
        m_hidden.clear();
    clear();
    QList<QTreeWidgetItem*> items;
    for (const LayerRow& row : m_rows) {
        items.append(new QTreeWidgetItem);
        Fill(*items.back(), row);
    }
    addTopLevelItems(items);
    if (!isAnother && current >= 0 && current < topLevelItemCount())
        setCurrentItem(topLevelItem(current));
}

void LayerPanel::Fill(QTreeWidgetItem& item, const LayerRow& row) {
    const QString name = Shown(Printable(row.name));
    item.setText(Name, row.isVisible ? name : Shown(SayFormat(L"%s（图形中已关闭）", Printable(row.name))));
    item.setIcon(Name, Swatch(row.rgb));
    item.setText(Faces, QString::number(row.faceCount));
    item.setText(Lines, QString::number(row.segmentCount));
    if (const LayerHeight* const height = HeightOf(row))
        item.setText(Height, Metres(height->metres));
    for (const int column : {Faces, Lines, Height})
        item.setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    item.setToolTip(Name, name + "\n" + headerItem()->toolTip(Name));
    item.setToolTip(Height, headerItem()->toolTip(Height));
    item.setCheckState(Name, row.isVisible && !m_hidden.contains(row.key) ? Qt::Checked : Qt::Unchecked);
    item.setFlags(row.isVisible ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable |
                                      Qt::ItemIsEditable | Qt::ItemNeverHasChildren
                                : Qt::ItemIsSelectable | Qt::ItemNeverHasChildren);
}

HiddenLayers LayerPanel::GetHidden() const {
    HiddenLayers hidden;
    for (const LayerRow& row : m_rows)
        for (const std::uint32_t number : row.numbers) {
            if (hidden.size() <= number)
                hidden.resize(number + 1);
            hidden[number] = m_hidden.contains(row.key);
        }
    return hidden;
}

int LayerPanel::CountHidden() const {
    return static_cast<int>(std::count_if(m_rows.begin(), m_rows.end(), [this](const LayerRow& row) {
        return row.isVisible && row.faceCount > 0 && m_hidden.contains(row.key);
    }));
}

const LayerHeight* LayerPanel::HeightOf(const LayerRow& row) const {
    for (const LayerHeight& height : m_heights)
        if (KeyOf(height) == row.key)
            return &height;
    return nullptr;
}

void LayerPanel::TakeChange(QTreeWidgetItem& item, int column) {
    const LayerRow& row = m_rows[static_cast<std::size_t>(indexOfTopLevelItem(&item))];
    if (column == Height)
        return TakeHeight(item, row);
    if (column != Name)
        return;
    if (item.checkState(Name) == Qt::Checked)
        m_hidden.erase(row.key);
    else
        m_hidden.insert(row.key);
    if (m_onHidden)
        m_onHidden();
}

// What is no height leaves the one before. Heights are passed on once the editor has gone, because they may fill the
// list anew.
void LayerPanel::TakeHeight(QTreeWidgetItem& item, const LayerRow& row) {
    CString typed = Typed(item.text(Height));
    typed.Trim();
    const std::optional<double> metres = ParseDecimal(typed);
    const bool isHeight = metres && *metres > 0.0 && *metres <= kMostMetres;
    const bool isTaken = typed.IsEmpty() || isHeight;
    if (isTaken) {
        std::erase_if(m_heights, [&](const LayerHeight& height) { return KeyOf(height) == row.key; });
        if (isHeight)
            m_heights.push_back({row.name, *metres});
    }
    {
        const QSignalBlocker quiet(this);
        const LayerHeight* const height = HeightOf(row);
        item.setText(Height, height ? Metres(height->metres) : QString());
    }
    if (!isTaken && m_onRefused)
        m_onRefused(typed);
    if (isTaken && m_onHeights)
        QMetaObject::invokeMethod(
            this, [this] { m_onHeights(m_heights); }, Qt::QueuedConnection);
}

void LayerPanel::keyPressEvent(QKeyEvent* event) {
    if (state() == EditingState)
        return;  // Enter, which the editor has taken already
    const bool isEdit = event->key() == Qt::Key_F2 || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEdit && currentItem() && currentItem()->flags().testFlag(Qt::ItemIsEditable))
        return editItem(currentItem(), Height);
    if (event->matches(QKeySequence::SelectAll)) {
        m_hidden.clear();
        SetRows(std::vector<LayerRow>(m_rows), std::vector<LayerHeight>(m_heights), false);
        if (m_onHidden)
            m_onHidden();
        return;
    }
    // The box is the name's, wherever in the row the focus is.
    if (event->key() == Qt::Key_Space && currentItem() && currentItem()->flags().testFlag(Qt::ItemIsUserCheckable)) {
        const bool isShown = currentItem()->checkState(Name) == Qt::Checked;
        return currentItem()->setCheckState(Name, isShown ? Qt::Unchecked : Qt::Checked);
    }
    QTreeWidget::keyPressEvent(event);
}
