// Rows of a grid without a window: the tree, its order, its texts.
#include "platform/window/QcUiGrid.h"

#include <gtest/gtest.h>

#include "window/GridForTests.h"

namespace {

TEST(QcUiGridRows, AreKeptInTheOrderOfTheTree) {
    NotingGrid grid;
    grid.AppendColumn(L"a", 10);
    grid.AppendColumn(L"b", 10);
    FillProvinces(grid);
    EXPECT_EQ(Written(grid), L"北京(东城 西城) 河北(石家庄 唐山 保定)");
    ASSERT_EQ(grid.GetRowCount(), 7);
    EXPECT_EQ(grid.GetRow(0)->GetItemText(0), L"北京");
    EXPECT_EQ(grid.GetRow(2)->GetItemText(1), L"西城");
    EXPECT_EQ(grid.GetRow(3)->GetItemText(0), L"河北");
    EXPECT_EQ(grid.GetRow(-1), nullptr);
    EXPECT_EQ(grid.GetRow(7), nullptr);
    AddChild(grid.GetRow(0), L"海淀");
    EXPECT_EQ(grid.GetRow(3)->GetItemText(1), L"海淀");
}

TEST(QcUiGridRows, KnowTheirKind) {
    NotingGrid grid;
    QcUiGridTreeRow* top = grid.AppendRow();
    EXPECT_FALSE(top->IsParentRow());
    EXPECT_FALSE(top->IsChildRow());
    EXPECT_EQ(top->GetParent(), nullptr);
    QcUiGridTreeRow* child = top->AppendChild();
    QcUiGridTreeRow* below = child->AppendChild();
    EXPECT_TRUE(top->IsParentRow());
    EXPECT_TRUE(child->IsParentRow());
    EXPECT_TRUE(child->IsChildRow());
    EXPECT_EQ(child->GetParent(), top);
    EXPECT_EQ(below->GetParent(), child);
    EXPECT_EQ(top->GetChildNum(), 1);
    EXPECT_EQ(top->GetChild(0), child);
    EXPECT_EQ(top->GetChild(1), nullptr);
    EXPECT_EQ(top->GetChild(-1), nullptr);
    EXPECT_EQ(below->GetGrid(), &grid);
}

TEST(QcUiGridRows, HoldTextsForTheirColumnsOnly) {
    NotingGrid grid;
    QcUiGridTreeRow* row = grid.AppendRow();
    EXPECT_EQ(row->GetCell(0), nullptr);
    grid.AppendColumn(L"a", 10);
    QcUiGridCell* first = row->GetCell(0);
    ASSERT_NE(first, nullptr);
    grid.AppendColumn(L"b", 10);
    row->SetItemText(1, L"text");
    row->SetItemText(2, L"nowhere");
    row->SetItemText(-1, L"nowhere");
    EXPECT_EQ(row->GetItemText(1), L"text");
    EXPECT_EQ(row->GetItemText(2), L"");
    EXPECT_EQ(row->GetItemText(-1), L"");
    EXPECT_EQ(row->GetCell(0), first) << "cells stay where they are";
    EXPECT_EQ(row->GetCell(1)->GetColumn(), 1);
    EXPECT_EQ(row->GetCell(1)->GetRow(), row);
    EXPECT_EQ(row->GetCell(1)->GetGrid(), &grid);
}

TEST(QcUiGridRows, GoWithWhatIsUnderThem) {
    NotingGrid grid;
    grid.AppendColumn(L"a", 10);
    grid.AppendColumn(L"b", 10);
    FillProvinces(grid);
    grid.DeleteRow(grid.GetRow(4));
    EXPECT_EQ(Written(grid), L"北京(东城 西城) 河北(唐山 保定)");
    EXPECT_EQ(grid.GetRow(3)->GetChild(0)->GetIndexInParent(), 0);
    grid.DeleteRow(grid.GetRow(0));
    EXPECT_EQ(Written(grid), L"河北(唐山 保定)");
    grid.DeleteRow(nullptr);
    NotingGrid other;
    grid.DeleteRow(other.AppendRow());
    EXPECT_EQ(grid.GetRowCount(), 3);
    EXPECT_EQ(other.GetRowCount(), 1);
}

TEST(QcUiGridRows, MayBeNestedDeeperThanAStack) {
    constexpr int kDepth = 200000;
    NotingGrid grid;
    QcUiGridTreeRow* row = grid.AppendRow();
    for (int i = 1; i < kDepth; ++i)
        row = row->AppendChild();
    EXPECT_EQ(grid.GetRowCount(), kDepth);
    EXPECT_EQ(grid.GetRow(kDepth - 1), row);
    grid.Reset();
    EXPECT_EQ(grid.GetRowCount(), 0);
}

TEST(QcUiGridRows, ResetWithoutAWindowTakesColumnsAndOptions) {
    NotingGrid grid;
    EXPECT_EQ(grid.AppendColumn(L"a", 80), 0);
    EXPECT_EQ(grid.AppendColumn(L"b"), 1);
    EXPECT_EQ(grid.GetColumnWidth(0), 80);
    EXPECT_EQ(grid.GetColumnWidth(1), 100) << "the grid's own width";
    EXPECT_EQ(grid.GetColumnWidth(2), 0);
    EXPECT_EQ(grid.GetColumnTitle(1), L"b");
    EXPECT_EQ(grid.GetColumnTitle(2), L"");
    grid.SetOption(QCGRID_TREE | QCGRID_LINES);
    grid.SetOption(QCGRID_TREE, false);
    EXPECT_EQ(grid.GetOption(), QCGRID_LINES);
    grid.AppendRow();
    grid.Reset();
    EXPECT_EQ(grid.GetColumnCount(), 0);
    EXPECT_EQ(grid.GetOption(), 0U);
    EXPECT_EQ(grid.GetRowCount(), 0);
}

TEST(QcUiGridRows, HaveNoCurrentOneWithoutAWindow) {
    NotingGrid grid;
    grid.AppendColumn(L"a");
    QcUiGridTreeRow* row = grid.AppendRow();
    grid.SetCurRow(row);
    grid.SelectRow(row);
    grid.ClearSelection();
    grid.EndEditCell();
    grid.CancelEditCell();
    grid.OnMenuCommand(1);
    EXPECT_EQ(grid.GetCurRow(), nullptr);
    EXPECT_EQ(grid.GetActiveCell(), nullptr);
    EXPECT_EQ(grid.GetCurColumn(), -1);
    EXPECT_EQ(grid.GetSelRowCount(), 0);
    EXPECT_FALSE(grid.EditCell(row, 0));
    EXPECT_FALSE(grid.OwnsWindow(nullptr));
    EXPECT_FALSE(grid.OwnsWindow(&grid));
    EXPECT_EQ(grid.GetRowCount(), 1);
}

TEST(QcUiGridRows, EachReadOnlyBitMakesTheGridReadOnly) {
    for (const DWORD bit : {0x1U, 0x2U, 0x8000U}) {
        NotingGrid grid;
        EXPECT_FALSE(grid.IsReadOnly());
        grid.SetOption(bit);
        EXPECT_TRUE(grid.IsReadOnly());
        grid.SetOption(bit, false);
        EXPECT_FALSE(grid.IsReadOnly());
    }
    NotingGrid grid;
    grid.SetOption(0x4 | 0x80 | 0x800 | 0x4000 | QCGRID_SINGLE_LEVEL);
    EXPECT_FALSE(grid.IsReadOnly());
}

}  // namespace
