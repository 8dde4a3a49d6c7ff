// The list box on the screen.
#include <QListWidget>
#include <QSignalBlocker>
#include <optional>
#include <vector>

#include "platform/window/toolkit/QtText.h"
#include "platform/window/toolkit/TypedSearch.h"
#include "platform/window/toolkit/WindowEvents.h"
#include "platform/window/toolkit/WindowKinds.h"

namespace {

constexpr int kDataRole = Qt::UserRole;

// One entry stays selected, whatever the user does: the toolkit's Ctrl would take the selection away.
class ListBox : public QListWidget {
public:
    using QListWidget::QListWidget;

    // What is typed selects the next entry that begins with it, as it stands or in Latin letters.
    void keyboardSearch(const QString& typed) override {
        const std::optional<int> row = m_search.Type(FromQString(typed), EntryTexts(), currentRow());
        if (row)
            setCurrentRow(*row, QItemSelectionModel::ClearAndSelect);
    }

protected:
    // Where nothing is edited the toolkit lets no input method in; here it types what is searched for.
    void currentChanged(const QModelIndex& current, const QModelIndex& before) override {
        QListWidget::currentChanged(current, before);
        setAttribute(Qt::WA_InputMethodEnabled);
    }
    void focusInEvent(QFocusEvent* event) override {
        QListWidget::focusInEvent(event);
        setAttribute(Qt::WA_InputMethodEnabled);
    }
    void focusOutEvent(QFocusEvent* event) override {
        m_search.Forget();
        QListWidget::focusOutEvent(event);
    }

    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override {
        const QItemSelectionModel::SelectionFlags command = QListWidget::selectionCommand(index, event);
        constexpr auto kTakesAway = QItemSelectionModel::Deselect | QItemSelectionModel::Toggle;
        return !index.isValid() || (command & kTakesAway) ? QItemSelectionModel::NoUpdate : command;
    }

private:
    std::vector<CString> EntryTexts() const {
        std::vector<CString> texts;
        for (int row = 0; row < count(); ++row)
            texts.push_back(FromQString(item(row)->text()));
        return texts;
    }

    TypedSearch m_search;
};

QListWidget& ListOf(const WindowLink& link) {
    return *static_cast<QListWidget*>(link.m_widget);
}

int SelectedRow(const QListWidget& list) {
    const QList<QListWidgetItem*> selected = list.selectedItems();
    return selected.isEmpty() ? LB_ERR : list.row(selected.front());
}

LRESULT Select(QListWidget& list, int row) {
    if (row < 0 || row >= list.count()) {
        list.clearSelection();
        list.setCurrentRow(-1);
        return LB_ERR;
    }
    list.setCurrentRow(row, QItemSelectionModel::ClearAndSelect);
    list.scrollToItem(list.item(row));
    return row;
}

LRESULT Insert(QListWidget& list, int row, LPARAM text) {
    if (row < -1 || row > list.count())
        return LB_ERR;
    const int at = row < 0 ? list.count() : row;
    auto* item = new QListWidgetItem(ToQString(reinterpret_cast<const wchar_t*>(text)));
    list.insertItem(at, item);  // takes it
    return list.row(item);
}

LRESULT Delete(QListWidget& list, int row) {
    if (row < 0 || row >= list.count())
        return LB_ERR;
    const int selected = SelectedRow(list);
    delete list.takeItem(row);
    // The toolkit selects a neighbour; the framework nothing.
    if (selected == row)
        Select(list, -1);
    return list.count();
}

LRESULT ItemMessage(QListWidget& list, UINT message, int row, LPARAM lParam) {
    QListWidgetItem* item = list.item(row);
    if (item == nullptr)
        return LB_ERR;
    const CString text = FromQString(item->text());
    switch (message) {
        case LB_GETTEXT:
            return CopyText(text, static_cast<WPARAM>(text.GetLength()) + 1, lParam);
        case LB_GETTEXTLEN:
            return text.GetLength();
        case LB_GETITEMDATA:
            return static_cast<LRESULT>(item->data(kDataRole).toLongLong());
        default:  // LB_SETITEMDATA
            item->setData(kDataRole, static_cast<qlonglong>(lParam));
            return 0;
    }
}

LRESULT ListBoxProcedure(WindowLink& link, UINT message, WPARAM wParam, LPARAM lParam) {
    QListWidget& list = ListOf(link);
    const int row = static_cast<int>(wParam);
    switch (message) {
        case LB_GETCOUNT:
            return list.count();
        case LB_GETCURSEL:
            return SelectedRow(list);
        case LB_GETTEXT:
        case LB_GETTEXTLEN:
        case LB_GETITEMDATA:
        case LB_SETITEMDATA:
            return ItemMessage(list, message, row, lParam);
        default:
            break;
    }
    // The parent hears of what the user does, not of what the program does.
    const QSignalBlocker quiet(message < LB_ADDSTRING || message > LB_SETITEMDATA ? nullptr : &list);
    switch (message) {
        case LB_ADDSTRING:
            return Insert(list, -1, lParam);
        case LB_INSERTSTRING:
            return Insert(list, row, lParam);
        case LB_DELETESTRING:
            return Delete(list, row);
        case LB_RESETCONTENT:
            list.clear();
            return 0;
        case LB_SETCURSEL:
            return Select(list, row);
        default:
            return CommonProcedure(link, message, wParam, lParam);
    }
}

}  // namespace

WindowLink& MakeListBox(const ControlRequest& request) {
    auto* list = new ListBox(request.parent);  // a child of the parent
    list->setUniformItemSizes(true);
    list->setSortingEnabled((request.style & LBS_SORT) != 0);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    WindowLink& link = MakeWindow(list, request.id, request.style, &ListBoxProcedure);
    if ((request.style & LBS_NOTIFY) != 0) {
        QObject::connect(list, &QListWidget::itemSelectionChanged, list, [&link] { link.NotifyParent(LBN_SELCHANGE); });
        QObject::connect(list, &QListWidget::itemDoubleClicked, list, [&link] { link.NotifyParent(LBN_DBLCLK); });
    }
    return link;
}
