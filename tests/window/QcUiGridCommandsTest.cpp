// Ins, Del, menus and selection in a grid on the screen.
#include <gtest/gtest.h>

#include "window/GridForTests.h"

namespace {

using Rows = std::vector<QcUiGridRow*>;

TEST(QcUiGridCommands, InsPutsARowAfterAChildRow) {
    GridDialog dialog;
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        ClickCell(grid, grid.GetRow(1), 1);
        Press(Qt::Key_Insert);
        EXPECT_EQ(Written(grid), L"北京(东城 _ 西城) 河北(石家庄 唐山 保定)");
        EXPECT_EQ(grid.GetCurRow(), grid.GetRow(2));
        EXPECT_EQ(grid.GetCurColumn(), 1);
        EXPECT_EQ(grid.GetSelRowCount(), 1);
        EXPECT_TRUE(grid.IsRowSelected(grid.GetRow(2)));
        EXPECT_EQ(grid.m_inserted, Rows{grid.GetRow(2)});
    });
}

TEST(QcUiGridCommands, InsPutsARowAtTheEndOfAParentRow) {
    GridDialog dialog;
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        ClickCell(grid, grid.GetRow(0), 0);
        grid.GetRow(0)->Expand(false);
        Press(Qt::Key_Insert);
        EXPECT_EQ(Written(grid), L"北京(东城 西城 _) 河北(石家庄 唐山 保定)");
        EXPECT_EQ(grid.GetCurRow(), grid.GetRow(3));
        EXPECT_TRUE(grid.GetRow(0)->IsExpanded()) << "so that the new row can be seen";
    });
}

TEST(QcUiGridCommands, InsAfterAChildlessRowOfTheTopLevelStaysThere) {
    GridDialog dialog(false);
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        grid.AppendRow()->SetItemText(1, L"一");
        grid.AppendRow()->SetItemText(1, L"二");
        grid.SetCurRow(grid.GetRow(0));
        Press(Qt::Key_Insert);
        EXPECT_EQ(Written(grid), L"一 _ 二");
    });
}

TEST(QcUiGridCommands, InsInAnEmptyGridMakesAParentRow) {
    GridDialog dialog(false);
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        Press(Qt::Key_Insert);
        EXPECT_EQ(Written(grid), L"_(_)");
        EXPECT_EQ(grid.GetCurRow(), grid.GetRow(0));
        EXPECT_EQ(grid.m_inserted, (Rows{grid.GetRow(0), grid.GetRow(1)})) << "parents first";
    });
}

TEST(QcUiGridCommands, InsertParentComesAfterTheWholeOfTheCurrentOne) {
    GridDialog dialog;
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        grid.SetCurCell(grid.GetRow(1), 2);
        grid.SendMessage(WM_COMMAND, QCGRID_CMD_INSERT_PARENT);
        EXPECT_EQ(Written(grid), L"北京(东城 西城) _(_) 河北(石家庄 唐山 保定)");
        EXPECT_EQ(grid.GetCurRow(), grid.GetRow(3));
        EXPECT_EQ(grid.GetCurColumn(), 0);
        EXPECT_EQ(grid.m_inserted, (Rows{grid.GetRow(3), grid.GetRow(4)}));
    });
}

TEST(QcUiGridCommands, DelDeletesTheSelectedRows) {
    GridDialog dialog;
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        ClickCell(grid, grid.GetRow(1), 1);
        ClickCell(grid, grid.GetRow(4), 1, Qt::ControlModifier);
        ClickCell(grid, grid.GetRow(5), 1, Qt::ControlModifier);
        ASSERT_EQ(grid.GetSelRowCount(), 3);
        Press(Qt::Key_Delete);
        EXPECT_EQ(Written(grid), L"北京(西城) 河北(保定)");
        EXPECT_EQ(grid.GetCurRow(), grid.GetRow(3)) << "what took the current row's place";
        EXPECT_EQ(grid.GetSelRowCount(), 1);
        EXPECT_TRUE(grid.m_inserted.empty());
    });
}

TEST(QcUiGridCommands, DelTakesChildrenAlongAndDoesNotDeleteThemTwice) {
    GridDialog dialog;
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        ClickCell(grid, grid.GetRow(3), 0);
        ClickCell(grid, grid.GetRow(5), 1, Qt::ControlModifier);
        Press(Qt::Key_Delete);
        EXPECT_EQ(Written(grid), L"北京(东城 西城)");
        EXPECT_EQ(grid.GetCurRow(), grid.GetRow(0));
    });
}

TEST(QcUiGridCommands, DelWithoutASelectionDeletesTheCurrentRow) {
    GridDialog dialog;
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        grid.SetCurRow(grid.GetRow(6));
        grid.ClearSelection();
        EXPECT_EQ(grid.GetCurRow(), grid.GetRow(6));
        grid.OnMenuCommand(QCGRID_CMD_DELETE_ROWS);
        EXPECT_EQ(Written(grid), L"北京(东城 西城) 河北(石家庄 唐山)");
        EXPECT_EQ(grid.GetCurRow(), grid.GetRow(5)) << "the last one left";
    });
}

TEST(QcUiGridCommands, DelKeepsAParentRowAParentRow) {
    GridDialog dialog;
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        grid.SetCurRow(grid.GetRow(1));
        Press(Qt::Key_Delete);
        Press(Qt::Key_Delete);
        EXPECT_EQ(Written(grid), L"北京(_) 河北(石家庄 唐山 保定)");
        EXPECT_EQ(grid.m_inserted, Rows{grid.GetRow(1)});
        EXPECT_EQ(grid.GetCurRow(), grid.GetRow(1));
        grid.DeleteRow(grid.GetRow(1));
        EXPECT_FALSE(grid.GetRow(0)->IsParentRow()) << "the program's own call deletes and does nothing else";
    });
}

TEST(QcUiGridCommands, DelInAnEmptyGridDoesNothing) {
    GridDialog dialog(false);
    dialog.RunInGrid([&] {
        Press(Qt::Key_Delete);
        EXPECT_EQ(dialog.m_grid.GetRowCount(), 0);
    });
}

TEST(QcUiGridCommands, ReadOnlyModesTakeKeysAndMenusAway) {
    for (const DWORD bit : {QCGRID_READONLY, QCGRID_READONLY_DATA, QCGRID_READONLY_BUSY}) {
        GridDialog dialog;
        dialog.RunInGrid([&] {
            NotingGrid& grid = dialog.m_grid;
            grid.SetCurRow(grid.GetRow(1));
            grid.SetOption(bit);
            const std::wstring before = Written(grid);
            for (const Qt::Key key : {Qt::Key_Insert, Qt::Key_Delete, Qt::Key_F2})
                Press(key);
            Type("x");
            for (const int command : {1, 2, 13})
                grid.OnMenuCommand(command);
            Press(Qt::Key_F10, Qt::ShiftModifier);
            RightClick(grid, PlaceOf(grid, grid.GetRow(1), 1).center());
            EXPECT_EQ(Written(grid), before);
            EXPECT_FALSE(grid.IsEditing());
            EXPECT_FALSE(grid.EditCell(grid.GetRow(1), 1));
            EXPECT_TRUE(grid.m_menuRows.empty());
        });
    }
}

TEST(QcUiGridCommands, RightClickNamesTheRowAndLeavesTheSelection) {
    GridDialog dialog;
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        ClickCell(grid, grid.GetRow(1), 1);
        ClickCell(grid, grid.GetRow(2), 1, Qt::ControlModifier);
        const QPoint place = PlaceOf(grid, grid.GetRow(1), 1).center();
        RightClick(grid, place);
        ASSERT_EQ(grid.m_menuRows, Rows{grid.GetRow(1)});
        const QPoint screen = ViewOf(grid)->viewport()->mapToGlobal(place);
        EXPECT_EQ(QPoint(grid.m_menuPoint.x, grid.m_menuPoint.y), screen);
        EXPECT_EQ(grid.GetCurRow(), grid.GetRow(1));
        EXPECT_EQ(grid.GetSelRowCount(), 2) << "a click on one of them keeps them all";
    });
}

TEST(QcUiGridCommands, NoMenuBelowTheRows) {
    GridDialog dialog(false);
    dialog.RunInGrid([&] {
        RightClick(dialog.m_grid, QPoint(20, 20));
        Press(Qt::Key_F10, Qt::ShiftModifier);
        EXPECT_TRUE(dialog.m_grid.m_menuRows.empty());
    });
}

TEST(QcUiGridCommands, TheKeyboardAsksForTheMenuAtTheCurrentRow) {
    GridDialog dialog;
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        grid.SetCurCell(grid.GetRow(2), 1);
        Press(Qt::Key_F10, Qt::ShiftModifier);
        QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(0, 0), QPoint(0, 0));
        QCoreApplication::sendEvent(ViewOf(grid), &key);
        grid.SendMessage(WM_CONTEXTMENU, 0, -1);
        EXPECT_EQ(grid.m_menuRows, (Rows{grid.GetRow(2), grid.GetRow(2), grid.GetRow(2)}));
        const QRect cell = PlaceOf(grid, grid.GetRow(2), 1);
        const QPoint place = ViewOf(grid)->viewport()->mapFromGlobal(QPoint(grid.m_menuPoint.x, grid.m_menuPoint.y));
        EXPECT_TRUE(cell.contains(place));
    });
}

TEST(QcUiGridCommands, AMenusChoiceComesAsACommand) {
    GridDialog dialog;
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        grid.m_onMenu = [&grid](QcUiGridRow*, POINT screen) {
            CMenu menu;
            menu.CreatePopupMenu();
            menu.AppendMenu(MF_STRING, 1, L"插入城市(Ins)");
            menu.AppendMenu(MF_STRING, 101, L"own");
            menu.TrackPopupMenu(TPM_LEFTALIGN, screen.x, screen.y, &grid);
        };
        int choice = 1;
        const ModalDriver driver([&choice](const ModalWindow&) { return choice; });
        RightClick(grid, PlaceOf(grid, grid.GetRow(1), 1).center());
        EXPECT_EQ(Written(grid), L"北京(东城 _ 西城) 河北(石家庄 唐山 保定)");
        choice = 101;
        RightClick(grid, PlaceOf(grid, grid.GetRow(1), 1).center());
        EXPECT_EQ(grid.m_ownCommands, 1) << "the grid's own message map";
    });
}

TEST(QcUiGridCommands, SelectingRowsByProgram) {
    GridDialog dialog;
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        grid.SetCurRow(grid.GetRow(1));
        grid.SelectRow(grid.GetRow(2));
        EXPECT_EQ(grid.GetSelRowCount(), 2);
        grid.SelectRow(grid.GetRow(1), false);
        EXPECT_FALSE(grid.IsRowSelected(grid.GetRow(1)));
        EXPECT_EQ(grid.GetCurRow(), grid.GetRow(1)) << "the current row stays";
        grid.SetOption(QCGRID_MULTI_SELECT, false);
        grid.SelectRow(grid.GetRow(4));
        EXPECT_EQ(grid.GetSelRowCount(), 1);
        EXPECT_TRUE(grid.IsRowSelected(grid.GetRow(4)));
        ClickCell(grid, grid.GetRow(1), 1);
        ClickCell(grid, grid.GetRow(2), 1, Qt::ControlModifier);
        EXPECT_EQ(grid.GetSelRowCount(), 1);
        grid.SetCurRow(nullptr);
        EXPECT_EQ(grid.GetCurRow(), nullptr);
        EXPECT_EQ(grid.GetSelRowCount(), 0);
    });
}

TEST(QcUiGridCommands, WhatIsClosedIsNeitherSelectedNorCurrent) {
    GridDialog dialog;
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        grid.SetCurCell(grid.GetRow(1), 0);
        grid.SelectRow(grid.GetRow(2));
        Press(Qt::Key_Left);
        EXPECT_EQ(grid.GetCurRow(), grid.GetRow(0)) << "Left leaves for the parent row first";
        Press(Qt::Key_Left);
        EXPECT_FALSE(grid.GetRow(0)->IsExpanded());
        EXPECT_EQ(grid.GetSelRowCount(), 1);
        grid.GetRow(3)->Expand();
        grid.SetCurRow(grid.GetRow(5));
        grid.SelectRow(grid.GetRow(4));
        grid.GetRow(3)->Expand(false);
        EXPECT_EQ(grid.GetCurRow(), grid.GetRow(3));
        EXPECT_EQ(grid.GetSelRowCount(), 1);
        Press(Qt::Key_Home);
        Press(Qt::Key_Right);
        EXPECT_TRUE(grid.GetRow(0)->IsExpanded());
    });
}

TEST(QcUiGridCommands, InSingleLevelModeAllRowsAreAlike) {
    GridDialog dialog;
    dialog.RunInGrid([&] {
        NotingGrid& grid = dialog.m_grid;
        grid.SetCurRow(grid.GetRow(0));
        EXPECT_EQ(grid.GetCurTreeRow(), grid.GetRow(0));
        grid.SetOption(QCGRID_SINGLE_LEVEL);
        EXPECT_EQ(grid.GetCurTreeRow(), nullptr);
        EXPECT_EQ(grid.GetCurRow(), grid.GetRow(0));
        Press(Qt::Key_Insert);
        EXPECT_EQ(Written(grid), L"北京(东城 西城) _ 河北(石家庄 唐山 保定)");
        grid.OnMenuCommand(QCGRID_CMD_INSERT_PARENT);
        EXPECT_EQ(Written(grid), L"北京(东城 西城) _ _ 河北(石家庄 唐山 保定)");
        EXPECT_EQ(ViewOf(grid)->indentation(), 0);
    });
}

}  // namespace
