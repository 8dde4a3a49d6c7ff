// The right button's menu in the grid of places.
#include <dlfcn.h>

#include <utility>

#include "platform/window/CMenu.h"
#include "zone/EditorStage.h"

namespace {

// What the next menu answers, whether it has such an entry or not; 0: what is chosen in it.
int g_nextAnswer = 0;

}  // namespace

// Stands before the platform's own.
int CMenu::TrackPopupMenu(UINT flags, int x, int y, CWnd* owner) {
    using Original = int (*)(CMenu*, UINT, int, int, CWnd*);
    static const auto original = reinterpret_cast<Original>(dlsym(RTLD_NEXT, "_ZN5CMenu14TrackPopupMenuEjiiP4CWnd"));
    return g_nextAnswer != 0 ? std::exchange(g_nextAnswer, 0) : original(this, flags, x, y, owner);
}

namespace {

class ZoneGridMenu : public EditorStage {
protected:
    // The entries of the menu that a click on a row brings, one a line, answered with a command.
    static Texts Menu(const OpenEditor& editor, int row, int command = 0) {
        const Answers answers(command == 0 ? -1 : command);
        editor.grid.OnRightMenu(&editor.Row(row), POINT{10, 10});
        return answers.texts;
    }
    // The same with the mouse.
    static Texts Click(const OpenEditor& editor, int row, int command) {
        QTreeView& tree = editor.tree;
        QModelIndex index = tree.model()->index(0, 0);
        while (row-- > 0)
            index = tree.indexBelow(index);
        const QPoint place = tree.visualRect(index).center();
        const Answers answers(command);
        QTest::mouseClick(tree.viewport(), Qt::RightButton, Qt::NoModifier, place);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, tree.viewport()->mapToGlobal(place));
        QApplication::sendEvent(tree.viewport(), &event);
        return answers.texts;
    }
};

}  // namespace

TEST_F(ZoneGridMenu, OffersACityAndDeletingForACity) {
    EditTwo([](const OpenEditor& editor) {
        EXPECT_EQ(Menu(editor, 1), (Texts{"插入城市(Ins)\n删除行(Del)\n"}));
        EXPECT_EQ(editor.grid.GetSelRowCount(), 1);
        EXPECT_TRUE(editor.grid.IsRowSelected(&editor.Row(1)));
    });
}

TEST_F(ZoneGridMenu, OffersAProvinceAndDeletingForAProvince) {
    EditTwo([](const OpenEditor& editor) {
        EXPECT_EQ(Menu(editor, 3), (Texts{"插入省份\n删除行(Del)\n"}));
        EXPECT_TRUE(editor.grid.IsRowSelected(&editor.Row(3)));
    });
}

TEST_F(ZoneGridMenu, OffersDeletingAloneForSeveralRows) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(1));
        editor.grid.SelectRow(&editor.Row(3));
        EXPECT_EQ(Menu(editor, 3), (Texts{"删除(Del)\n"}));
        EXPECT_EQ(editor.grid.GetSelRowCount(), 2) << "the selection stays";
    });
}

TEST_F(ZoneGridMenu, SelectsTheRowThatIsNotAmongTheSelectedOnes) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(1));
        editor.grid.SelectRow(&editor.Row(2));
        EXPECT_EQ(Menu(editor, 4), (Texts{"插入城市(Ins)\n删除行(Del)\n"}));
        EXPECT_EQ(editor.grid.GetSelRowCount(), 1);
        EXPECT_TRUE(editor.grid.IsRowSelected(&editor.Row(4)));
    });
}

TEST_F(ZoneGridMenu, TreatsOneSelectedRowAsNone) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(1));
        EXPECT_EQ(Menu(editor, 1), (Texts{"插入城市(Ins)\n删除行(Del)\n"}));
    });
}

TEST_F(ZoneGridMenu, IsNotShownInReadOnlyModes) {
    for (const DWORD mode : {0x8000U, 0x1U, 0x2U})
        EditTwo([mode](const OpenEditor& editor) {
            editor.grid.SetCurRow(&editor.Row(1));
            editor.grid.SetOption(mode);
            EXPECT_EQ(Menu(editor, 4), Texts()) << mode;
            EXPECT_TRUE(editor.grid.IsRowSelected(&editor.Row(1))) << "nothing is selected by it either";
        });
}

TEST_F(ZoneGridMenu, NeedsARow) {
    EditTwo([](const OpenEditor& editor) {
        const Answers answers;
        editor.grid.OnRightMenu(nullptr, POINT{0, 0});
        EXPECT_EQ(answers.texts, Texts());
    });
}

TEST_F(ZoneGridMenu, InsertsACityBehindTheOneThatWasClicked) {
    EditTwo([](const OpenEditor& editor) {
        Click(editor, 1, 1);
        ASSERT_EQ(editor.grid.GetRowCount(), 6);
        EXPECT_EQ(editor.Line(2), "||   度  分  秒|   度  分  秒|");
        EXPECT_EQ(editor.Cell(3, 1), "B");
    });
}

TEST_F(ZoneGridMenu, InsertsAProvinceBehindTheOneThatWasClicked) {
    EditTwo([](const OpenEditor& editor) {
        EXPECT_EQ(Click(editor, 0, 13), (Texts{"插入省份\n删除行(Del)\n"}));
        ASSERT_EQ(editor.grid.GetRowCount(), 7);
        EXPECT_EQ(editor.Line(3), "||||");
        EXPECT_FALSE(editor.Row(3).IsChildRow());
        EXPECT_EQ(editor.Line(4), "||   度  分  秒|   度  分  秒|");
    });
}

TEST_F(ZoneGridMenu, DeletesTheRowThatWasClicked) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(4));
        Click(editor, 1, 2);
        ASSERT_EQ(editor.grid.GetRowCount(), 4);
        EXPECT_EQ(editor.Cell(1, 1), "B");
    });
}

TEST_F(ZoneGridMenu, DeletesAllRowsThatAreSelected) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(1));
        editor.grid.SelectRow(&editor.Row(3));
        Menu(editor, 3, 2);
        ASSERT_EQ(editor.grid.GetRowCount(), 2);
        EXPECT_EQ(editor.Cell(1, 1), "B");
    });
}

TEST_F(ZoneGridMenu, ChangesNothingWhenItIsLeft) {
    EditTwo([](const OpenEditor& editor) {
        Menu(editor, 1);
        EXPECT_EQ(editor.grid.GetRowCount(), 5);
    });
}

TEST_F(ZoneGridMenu, RunsTheProvincesCommandItself) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(3));
        g_nextAnswer = 101;
        Menu(editor, 3);
        ASSERT_EQ(editor.grid.GetRowCount(), 7);
        EXPECT_EQ(editor.Row(5).GetParent(), &editor.Row(3)) << "under the row, not behind it";
        EXPECT_EQ(editor.Line(6), "||   度  分  秒|   度  分  秒|");
    });
}

TEST_F(ZoneGridMenu, LeavesEveryOtherCommandToThePlatformsGrid) {
    for (const int command : {102, 103, 99})
        EditTwo([command](const OpenEditor& editor) {
            editor.grid.SetCurRow(&editor.Row(3));
            g_nextAnswer = command;
            Menu(editor, 3);
            EXPECT_EQ(editor.grid.GetRowCount(), 5) << command << ": none that it knows";
        });
}

TEST_F(ZoneGridMenu, IsBroughtByTheKeyboard) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(0));
        editor.tree.setFocus();
        const Answers answers(-1);
        QTest::keyClick(&editor.tree, Qt::Key_F10, Qt::ShiftModifier);
        EXPECT_EQ(answers.texts, (Texts{"插入省份\n删除行(Del)\n"}));
    });
}
