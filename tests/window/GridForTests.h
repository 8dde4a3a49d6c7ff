// A dialog with a grid in it for tests: two provinces with cities, worked on with real keys and clicks.
#pragma once

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QTreeView>
#include <string>
#include <vector>

#include "platform/window/CMenu.h"
#include "platform/window/QcUiGrid.h"
#include "platform/window/QcUiGridEdit.h"
#include "window/DialogForTests.h"

inline constexpr int kGridId = 2001;
inline constexpr DWORD kGridStyle = 0x56810000;
inline constexpr DWORD kGridOptions = QCGRID_RESIZE_COLUMNS | QCGRID_MULTI_SELECT | QCGRID_LINES | QCGRID_TREE;

// Notes what the grid calls.
class NotingGrid : public QcUiGrid {
public:
    NotingGrid() : QcUiGrid(1, 100) {}

    void OnRightMenu(QcUiGridRow* row, POINT screen) override {
        m_menuRows.push_back(row);
        m_menuPoint = screen;
        if (m_onMenu)
            m_onMenu(row, screen);
    }
    void OnAfterInsertRow(QcUiGridRow* row) override { m_inserted.push_back(row); }
    QcUiGridCellCtrl* CreateCellCtrl(QcUiGridCell* cell) override {
        return m_makeEditor ? m_makeEditor(cell) : QcUiGrid::CreateCellCtrl(cell);
    }
    void OnOwnCommand() { ++m_ownCommands; }

    std::function<void(QcUiGridRow*, POINT)> m_onMenu;
    std::function<QcUiGridCellCtrl*(QcUiGridCell*)> m_makeEditor;
    std::vector<QcUiGridRow*> m_menuRows;
    std::vector<QcUiGridRow*> m_inserted;
    POINT m_menuPoint = {};
    int m_ownCommands = 0;

protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    const AFX_MSGMAP* GetMessageMap() const override { return GetThisMessageMap(); }
};

inline const AFX_MSGMAP* NotingGrid::GetThisMessageMap() {
    using ThisClass = NotingGrid;
    static constexpr AFX_MSGMAP_ENTRY s_entries[] = {ON_COMMAND(101, &NotingGrid::OnOwnCommand){0, 0, 0, nullptr}};
    static constexpr AFX_MSGMAP s_map = {&QcUiGrid::GetThisMessageMap, s_entries};
    return &s_map;
}

inline QcUiGridTreeRow* AddChild(QcUiGridTreeRow* parent, const wchar_t* name) {
    QcUiGridTreeRow* row = parent->AppendChild();
    row->SetItemText(0, parent->GetItemText(0));
    row->SetItemText(1, name);
    return row;
}

// 北京 (东城, 西城), 河北 (石家庄, 唐山, 保定).
inline void FillProvinces(QcUiGrid& grid) {
    QcUiGridTreeRow* first = grid.AppendRow();
    first->SetItemText(0, L"北京");
    AddChild(first, L"东城");
    AddChild(first, L"西城");
    QcUiGridTreeRow* second = grid.AppendRow();
    second->SetItemText(0, L"河北");
    AddChild(second, L"石家庄");
    AddChild(second, L"唐山");
    AddChild(second, L"保定");
}

// The rows as one line: column 0 of parent rows, column 1 of others, with braces round children.
inline std::wstring Written(QcUiGridTreeRow& row) {
    if (!row.IsParentRow())
        return row.GetItemText(1).IsEmpty() ? L"_" : row.GetItemText(1).GetString();
    std::wstring text = row.GetItemText(0).IsEmpty() ? L"_" : row.GetItemText(0).GetString();
    text += L"(";
    for (int i = 0; i < row.GetChildNum(); ++i)
        text += (i > 0 ? L" " : L"") + Written(*row.GetChild(i));
    return text + L")";
}

inline std::wstring Written(QcUiGrid& grid) {
    std::wstring text;
    for (int i = 0; i < grid.GetRowCount(); ++i)
        if (!grid.GetRow(i)->IsChildRow())
            text += (text.empty() ? L"" : L" ") + Written(*grid.GetRow(i));
    return text;
}

inline QTreeView* ViewOf(const QcUiGrid& grid) {
    return static_cast<QTreeView*>(WidgetFor(grid.m_hWnd));
}

inline QModelIndex IndexOf(QcUiGrid& grid, QcUiGridTreeRow* row, int column) {
    std::vector<int> path;
    for (; row != nullptr; row = row->GetParent())
        path.insert(path.begin(), row->GetIndexInParent());
    QModelIndex index;
    for (const int step : path)
        index = ViewOf(grid)->model()->index(step, 0, index);
    return index.siblingAtColumn(column);
}

// In pixels of the grid's viewport.
inline QRect PlaceOf(QcUiGrid& grid, QcUiGridTreeRow* row, int column) {
    return ViewOf(grid)->visualRect(IndexOf(grid, row, column));
}

// Also brings it into view.
inline void ClickCell(QcUiGrid& grid, QcUiGridTreeRow* row, int column, Qt::KeyboardModifiers modifiers = {}) {
    ViewOf(grid)->scrollTo(IndexOf(grid, row, column));
    QTest::mouseClick(ViewOf(grid)->viewport(), Qt::LeftButton, modifiers, PlaceOf(grid, row, column).center());
}

inline void RightClick(QcUiGrid& grid, const QPoint& place) {
    QWidget* viewport = ViewOf(grid)->viewport();
    QTest::mousePress(viewport, Qt::RightButton, {}, place);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, viewport->mapToGlobal(place));
    QCoreApplication::sendEvent(viewport, &event);
    QTest::mouseRelease(viewport, Qt::RightButton, {}, place);
}

inline void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

inline void Type(const char* text) {
    QTest::keyClicks(QApplication::focusWidget(), text);
}

// The editor that is open; null when there is none.
inline QLineEdit* EditorOf(const QcUiGrid& grid) {
    QcUiGridCellCtrl* editor = grid.GetEditCtrl();
    return editor ? static_cast<QLineEdit*>(WidgetFor(editor->GetWnd()->m_hWnd)) : nullptr;
}

// The dialog, with the grid in the place that the template keeps for it.
class GridDialog : public DialogForTests {
public:
    explicit GridDialog(bool fill = true)
        : DialogForTests(
              "EDITTEXT 10, 5, 75, 60, 12\n"
              "CONTROL \"\", 2001, \"QcUiGrid\", WS_BORDER | WS_TABSTOP, 5, 5, 190, 65\n"
              "DEFPUSHBUTTON \"OK\", 1, 80, 75, 50, 14\n"
              "PUSHBUTTON \"Cancel\", 2, 140, 75, 50, 14\n") {
        m_onInit = [this, fill] {
            SetUp();
            if (fill)
                FillProvinces(m_grid);
        };
    }

    void SetUp() {
        m_grid.Reset();
        for (const wchar_t* title : {L"省份", L"城市", L"经度"})
            m_grid.AppendColumn(title, 80);
        m_grid.SetOption(kGridOptions);
        RECT place = {};
        GetDlgItem(kGridId)->GetWindowRect(&place);
        ScreenToClient(&place);
        ASSERT_TRUE(m_grid.Create(kGridStyle, place, this, kGridId));
        m_grid.FitLastColumn();
    }

    // Runs with the focus in the grid.
    INT_PTR RunInGrid(const std::function<void()>& body) {
        return Run([&](const ModalWindow&) {
            m_grid.SetFocus();
            body();
        });
    }

    NotingGrid m_grid;
};
