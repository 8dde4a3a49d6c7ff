// The grid's window: its place in a dialog, what it shows, and how much of its rows it looks at.
#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <QIdentityProxyModel>

#include "window/GridForTests.h"

namespace {

// Widths are meant for digits of six pixels.
int ShownWidth(const QWidget& view, int width) {
    constexpr int kEdgesOfAnEdit = 8;
    return qRound(width * QFontMetricsF(view.font()).horizontalAdvance('0') / 6) + kEdgesOfAnEdit;
}

TEST(QcUiGridWindow, TakesThePlaceThatTheTemplateKeepsForIt) {
    GridDialog dialog;
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        EXPECT_EQ(dialog.GetDlgItem(kGridId), &grid);
        EXPECT_EQ(grid.GetDlgCtrlID(), kGridId);
        EXPECT_EQ(grid.GetParent(), &dialog);
        EXPECT_EQ(grid.GetStyle() & kGridStyle, kGridStyle);
        EXPECT_FALSE(grid.Create(kGridStyle, {0, 0, 10, 10}, &dialog, 5)) << "it has a window";
        NotingGrid other;
        EXPECT_FALSE(other.Create(kGridStyle, {0, 0, 10, 10}, nullptr, 5));
        EXPECT_FALSE(other.Create(kGridStyle, {0, 0, 10, 10}, &other, 5));
    });
}

TEST(QcUiGridWindow, AnEmptyRectangleIsThePlaceholders) {
    GridDialog dialog;
    dialog.m_onInit = [&] {
        RECT before = {};
        RECT after = {};
        dialog.GetDlgItem(kGridId)->GetWindowRect(&before);
        ASSERT_TRUE(dialog.m_grid.Create(kGridStyle, {0, 0, 0, 0}, &dialog, kGridId));
        dialog.m_grid.GetWindowRect(&after);
        EXPECT_EQ(before.right - before.left, after.right - after.left);
        EXPECT_EQ(before.bottom - before.top, after.bottom - after.top);
    };
    dialog.Run([](const ModalWindow&) {});
}

TEST(QcUiGridWindow, ShowsColumnsAndRowsMadeBeforeIt) {
    GridDialog dialog(false);
    dialog.m_onInit = [&] {
        dialog.m_grid.AppendColumn(L"省份", 80);
        dialog.m_grid.AppendColumn(L"城市", 60);
        FillProvinces(dialog.m_grid);
        dialog.m_grid.GetRow(3)->Expand(false);
        dialog.m_grid.FitLastColumn();
        ASSERT_TRUE(dialog.m_grid.Create(kGridStyle, {0, 0, 300, 200}, &dialog, kGridId));
    };
    dialog.RunInGrid([&] {
        QTreeView* view = ViewOf(dialog.m_grid);
        EXPECT_EQ(view->header()->count(), 2);
        EXPECT_EQ(view->model()->headerData(1, Qt::Horizontal).toString(), "城市");
        const QModelIndex first = view->model()->index(0, 0);
        const QModelIndex second = view->model()->index(1, 0);
        EXPECT_EQ(first.data().toString(), "北京");
        EXPECT_TRUE(view->isExpanded(first));
        EXPECT_FALSE(view->isExpanded(second));
        EXPECT_EQ(view->model()->index(1, 1, first).data().toString(), "西城");
        EXPECT_EQ(view->model()->index(1, 1, first).data(Qt::AccessibleDescriptionRole).toString(), "城市");
        EXPECT_EQ(dialog.m_grid.GetColumnWidth(0), ShownWidth(*view, 80)) << "in proportion to the font";
        EXPECT_EQ(dialog.m_grid.GetColumnWidth(1), view->viewport()->width() - ShownWidth(*view, 80)) << "the rest";
    });
}

TEST(QcUiGridWindow, OptionsDecideHowColumnsAndTheTreeBehave) {
    GridDialog dialog;
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        QTreeView* view = ViewOf(grid);
        EXPECT_EQ(view->header()->sectionResizeMode(0), QHeaderView::Interactive);
        EXPECT_TRUE(view->rootIsDecorated());
        EXPECT_FALSE(view->isHeaderHidden());
        const QImage lines = view->grab().toImage();
        grid.SetOption(QCGRID_LINES, false);
        EXPECT_NE(view->grab().toImage(), lines);
        grid.SetOption(QCGRID_RESIZE_COLUMNS | QCGRID_TREE, false);
        EXPECT_EQ(view->header()->sectionResizeMode(0), QHeaderView::Fixed);
        EXPECT_FALSE(view->rootIsDecorated());
    });
}

TEST(QcUiGridWindow, WithoutHeaderRowsThereAreNoTitles) {
    GridDialog dialog(false);
    dialog.m_onInit = {};
    dialog.Run([&](const ModalWindow&) {
        QcUiGrid grid(0, 50);
        grid.AppendColumn(L"a");
        ASSERT_TRUE(grid.Create(kGridStyle, {0, 0, 100, 100}, &dialog, kGridId));
        EXPECT_TRUE(ViewOf(grid)->isHeaderHidden());
        EXPECT_EQ(grid.GetColumnWidth(0), ShownWidth(*ViewOf(grid), 50));
    });
}

TEST(QcUiGridWindow, TheActiveCellIsMarkedWhereTheGridHasTheFocus) {
    GridDialog dialog;
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        grid.SetCurCell(grid.GetRow(1), 1);
        const QRect place = PlaceOf(grid, grid.GetRow(1), 1);
        const auto picture = [&] { return ViewOf(grid)->viewport()->grab(place).toImage(); };
        const QImage marked = picture();
        grid.ShowActive(false);
        EXPECT_NE(picture(), marked);
        grid.ShowActive(true);
        EXPECT_EQ(picture(), marked);
    });
}

TEST(QcUiGridWindow, ShowsTextsThatChange) {
    GridDialog dialog;
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        int changes = 0;
        const QAbstractItemModel* model = ViewOf(grid)->model();
        const auto noted =
            QObject::connect(model, &QAbstractItemModel::dataChanged, model, [&](const QModelIndex& from) {
                ++changes;
                EXPECT_EQ(from.data().toString(), "新");
            });
        grid.GetRow(2)->SetItemText(1, L"新");
        EXPECT_EQ(changes, 1);
        QObject::disconnect(noted);
    });
}

TEST(QcUiGridWindow, IsAPlainWindowWhileTheGridHasLetGoOfIt) {
    GridDialog dialog;
    dialog.RunInGrid([&] {
        EXPECT_EQ(dialog.m_grid.SendMessage(WM_GETDLGCODE), DLGC_WANTARROWS);
        const HWND window = dialog.m_grid.UnsubclassWindow();
        EXPECT_EQ(::SendMessage(window, WM_GETDLGCODE, 0, 0), 0);
        ASSERT_TRUE(dialog.m_grid.Attach(window));
        EXPECT_EQ(dialog.m_grid.SendMessage(WM_GETDLGCODE), DLGC_WANTARROWS);
    });
}

TEST(QcUiGridWindow, AnObserverSeesTheRowsBeforeTheWindowGoes) {
    struct Seen {
        int nCalls = 0;
        int nRows = 0;
        bool bEditing = true;
        CString text;
    };
    Seen seen;
    const auto look = [](const QcUiGrid& grid, void* context) {
        auto& into = *static_cast<Seen*>(context);
        ++into.nCalls;
        into.nRows = grid.GetRowCount();
        into.bEditing = grid.IsEditing();
        into.text = grid.GetRow(1)->GetItemText(1);
    };
    SetGridObserver(look, &seen);
    GridDialog dialog;
    dialog.RunInGrid([&] {
        ASSERT_TRUE(dialog.m_grid.EditCell(dialog.m_grid.GetRow(1), 1));
        dialog.m_grid.GetEditCtrl()->SetText(L"typed");
        dialog.m_grid.GetEditCtrl()->SetModified(true);
        dialog.m_grid.DestroyWindow();
    });
    SetGridObserver(nullptr, nullptr);
    EXPECT_EQ(seen.nCalls, 1);
    EXPECT_EQ(seen.nRows, 7);
    EXPECT_FALSE(seen.bEditing);
    EXPECT_EQ(seen.text, L"typed");
}

TEST(QcUiGridWindow, LeftAndRightMoveBetweenColumns) {
    GridDialog dialog;
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        grid.SetCurCell(grid.GetRow(1), 0);
        Press(Qt::Key_Right);
        Press(Qt::Key_Right);
        Press(Qt::Key_Right);
        EXPECT_EQ(grid.GetActiveCell(), grid.GetRow(1)->GetCell(2)) << "stops at the last";
        Press(Qt::Key_Down);
        EXPECT_EQ(grid.GetActiveCell(), grid.GetRow(2)->GetCell(2));
        Press(Qt::Key_Left);
        EXPECT_EQ(grid.GetActiveCell(), grid.GetRow(2)->GetCell(1));
    });
}

TEST(QcUiGridWindow, DeepTreesAreShown) {
    GridDialog dialog(false);
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        QcUiGridTreeRow* row = grid.AppendRow();
        for (int i = 0; i < 300; ++i)
            row = row->AppendChild();
        row->SetItemText(1, L"deep");
        ASSERT_TRUE(grid.EditCell(row, 1));
        EXPECT_EQ(EditorOf(grid)->text(), "deep");
        grid.DeleteRow(grid.GetRow(0));
        EXPECT_EQ(grid.GetRowCount(), 0);
        EXPECT_FALSE(grid.IsEditing());
    });
}

// Counts what is asked of it while it shows another model.
class CountingModel : public QIdentityProxyModel {
public:
    QVariant data(const QModelIndex& index, int role) const override {
        ++m_data;
        return QIdentityProxyModel::data(index, role);
    }
    mutable int m_data = 0;
};

TEST(QcUiGridWindow, FiveThousandRowsAreLookedAtOnlyWhereTheyAreSeen) {
    GridDialog dialog(false);
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        constexpr int kParents = 50;
        constexpr int kChildren = 99;
        for (int i = 0; i < kParents; ++i) {
            QcUiGridTreeRow* parent = grid.AppendRow();
            for (int k = 0; k < kChildren; ++k)
                AddChild(parent, L"城");
        }
        EXPECT_EQ(grid.GetRowCount(), kParents * (kChildren + 1));
        // The grid's own view, with somebody in between who counts its questions.
        QTreeView& view = *ViewOf(grid);
        QAbstractItemModel* own = view.model();
        CountingModel counting;
        counting.setSourceModel(own);
        view.setModel(&counting);
        view.expandAll();
        view.grab();
        EXPECT_GT(counting.m_data, 0);
        EXPECT_LT(counting.m_data, 2000) << "some roles of the cells that are seen, not 15,000 cells";
        view.setModel(own);
        view.expandAll();
        EXPECT_TRUE(ViewOf(grid)->findChildren<QLineEdit*>().isEmpty()) << "no widget in a cell";
        grid.SetCurRow(grid.GetRow(4999));
        EXPECT_TRUE(ViewOf(grid)->viewport()->rect().contains(PlaceOf(grid, grid.GetRow(4999), 0).center()));
    });
}

}  // namespace
