// The grid's own commands, the user's keys and what is put into rows that are inserted.
#include "zone/EditorStage.h"

namespace {

class ZoneGridCommands : public EditorStage {
protected:
    static void Command(const OpenEditor& editor, int command) {
        editor.grid.SendMessage(WM_COMMAND, static_cast<WPARAM>(command), 0);
    }
    static void Key(const OpenEditor& editor, Qt::Key key) {
        editor.tree.setFocus();
        QTest::keyClick(&editor.tree, key);
    }
};

const char* const kEmptyCity = "||   度  分  秒|   度  分  秒|";

}  // namespace

TEST_F(ZoneGridCommands, InsertAProvinceWithACityUnderTheCurrentRow) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(3));
        Command(editor, 101);
        ASSERT_EQ(editor.grid.GetRowCount(), 7);
        EXPECT_EQ(editor.Row(5).GetParent(), &editor.Row(3)) << "behind the cities that there are";
        EXPECT_EQ(editor.Line(5), "||||") << "a province has no position";
        EXPECT_TRUE(editor.Row(5).IsParentRow());
        EXPECT_EQ(editor.Row(6).GetParent(), &editor.Row(5));
        EXPECT_EQ(editor.Line(6), kEmptyCity);
    });
}

TEST_F(ZoneGridCommands, InsertAProvinceUnderACityToo) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(1));
        Command(editor, 101);
        ASSERT_EQ(editor.grid.GetRowCount(), 7);
        EXPECT_EQ(editor.Row(2).GetParent(), &editor.Row(1));
        EXPECT_EQ(editor.Row(3).GetParent(), &editor.Row(2));
        EXPECT_EQ(editor.Line(3), kEmptyCity);
    });
}

TEST_F(ZoneGridCommands, InsertAProvinceAtTheTopWithoutACurrentRow) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(nullptr);
        Command(editor, 101);
        ASSERT_EQ(editor.grid.GetRowCount(), 6);
        EXPECT_FALSE(editor.Row(5).IsChildRow());
        EXPECT_EQ(editor.Line(5), "||||");
    });
}

TEST_F(ZoneGridCommands, InsertARowUnderTheCurrentOne) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(0));
        Command(editor, 102);
        ASSERT_EQ(editor.grid.GetRowCount(), 6);
        EXPECT_EQ(editor.Row(3).GetParent(), &editor.Row(0));
        EXPECT_EQ(editor.Row(3).GetChildNum(), 0);
    });
}

TEST_F(ZoneGridCommands, InsertARowAtTheTopWithoutACurrentRow) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(nullptr);
        Command(editor, 102);
        ASSERT_EQ(editor.grid.GetRowCount(), 6);
        EXPECT_FALSE(editor.Row(5).IsChildRow());
    });
}

TEST_F(ZoneGridCommands, InsertNothingAtTheTopOfASingleLevel) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(0));
        editor.grid.SetOption(QCGRID_SINGLE_LEVEL);
        Command(editor, 101);
        Command(editor, 102);
        EXPECT_EQ(editor.grid.GetRowCount(), 5) << "in a single level no tree row is current";
    });
}

TEST_F(ZoneGridCommands, DeleteTheCurrentRow) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(1));
        Command(editor, 103);
        ASSERT_EQ(editor.grid.GetRowCount(), 4);
        EXPECT_EQ(editor.Cell(1, 1), "B");
        editor.grid.SetCurRow(&editor.Row(0));
        Command(editor, 103);
        ASSERT_EQ(editor.grid.GetRowCount(), 2) << "a province goes with its cities";
        EXPECT_EQ(editor.Cell(0, 0), "乙");
        editor.grid.SetCurRow(nullptr);
        Command(editor, 103);
        EXPECT_EQ(editor.grid.GetRowCount(), 2) << "there is no current row";
    });
}

TEST_F(ZoneGridCommands, DeleteOnlyTheCurrentRowOfThoseThatAreSelected) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(1));
        editor.grid.SelectRow(&editor.Row(2));
        Command(editor, 103);
        EXPECT_EQ(editor.grid.GetRowCount(), 4);
        EXPECT_EQ(editor.Cell(1, 1), "B");
    });
}

TEST_F(ZoneGridCommands, LeaveAProvinceAProvinceWhenItsLastCityGoes) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(4));
        Command(editor, 103);
        ASSERT_EQ(editor.grid.GetRowCount(), 5);
        EXPECT_TRUE(editor.Row(3).IsParentRow());
        EXPECT_EQ(editor.Line(4), kEmptyCity);
        editor.Ok();
    });
    EXPECT_NE(Saved()->FindDict(L"乙"), nullptr) << "it has not become a city";
}

TEST_F(ZoneGridCommands, InsertACityBehindTheCurrentOneByKey) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(1));
        Key(editor, Qt::Key_Insert);
        ASSERT_EQ(editor.grid.GetRowCount(), 6);
        EXPECT_EQ(editor.Line(2), kEmptyCity);
        EXPECT_EQ(editor.Row(2).GetParent(), &editor.Row(0));
        EXPECT_EQ(editor.Cell(3, 1), "B");
        EXPECT_EQ(editor.grid.GetCurRow(), &editor.Row(2)) << "ready to be filled in";
    });
}

TEST_F(ZoneGridCommands, InsertACityIntoTheCurrentProvinceByKey) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(0));
        Key(editor, Qt::Key_Insert);
        ASSERT_EQ(editor.grid.GetRowCount(), 6);
        EXPECT_EQ(editor.Line(3), kEmptyCity);
        EXPECT_EQ(editor.Row(3).GetParent(), &editor.Row(0));
    });
}

TEST_F(ZoneGridCommands, GiveAnInsertedRowAtTheTopNoPosition) {
    Load("<X type=\"CITY\" longitude=\"1\" latitude=\"2\" comment=\"\"/>");
    Edit([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(0));
        Key(editor, Qt::Key_Insert);
        ASSERT_EQ(editor.grid.GetRowCount(), 2);
        EXPECT_EQ(editor.Line(1), "||||") << "only a row under another is a city's";
    });
}

TEST_F(ZoneGridCommands, InsertAProvinceIntoAnEmptyGridByKey) {
    Load("");
    Edit([](const OpenEditor& editor) {
        ASSERT_EQ(editor.grid.GetRowCount(), 0);
        Key(editor, Qt::Key_Insert);
        EXPECT_EQ(editor.Lines(), (Texts{"||||", kEmptyCity}));
        EXPECT_TRUE(editor.Row(0).IsParentRow());
    });
}

TEST_F(ZoneGridCommands, InsertAProvinceByTheMenusCommand) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(1));
        Command(editor, 13);
        ASSERT_EQ(editor.grid.GetRowCount(), 7);
        EXPECT_EQ(editor.Line(3), "||||") << "behind the province of the current row";
        EXPECT_FALSE(editor.Row(3).IsChildRow());
        EXPECT_EQ(editor.Line(4), kEmptyCity);
        EXPECT_EQ(editor.Row(4).GetParent(), &editor.Row(3));
    });
}

TEST_F(ZoneGridCommands, DeleteTheSelectedRowsByKey) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(1));
        editor.grid.SelectRow(&editor.Row(3));
        Key(editor, Qt::Key_Delete);
        ASSERT_EQ(editor.grid.GetRowCount(), 2);
        EXPECT_EQ(editor.Cell(1, 1), "B");
    });
}

TEST_F(ZoneGridCommands, LeaveAnEmptyCityWhenTheLastOnesAreDeletedByKey) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(1));
        editor.grid.SelectRow(&editor.Row(2));
        Key(editor, Qt::Key_Delete);
        ASSERT_EQ(editor.grid.GetRowCount(), 4);
        EXPECT_EQ(editor.Line(1), kEmptyCity);
        EXPECT_TRUE(editor.Row(0).IsParentRow());
    });
}

TEST_F(ZoneGridCommands, DeleteEverything) {
    EditTwo([](const OpenEditor& editor) {
        editor.tree.setFocus();
        editor.tree.selectAll();
        Key(editor, Qt::Key_Delete);
        EXPECT_EQ(editor.grid.GetRowCount(), 0);
        Key(editor, Qt::Key_Delete);
        EXPECT_EQ(editor.grid.GetRowCount(), 0);
        editor.Ok();
    });
    EXPECT_EQ(Saved()->GetCount(), 0);
    EXPECT_EQ(Saved()->GetTag(), L"ORVO_ZONEDATA") << "the file can be imported again";
}

TEST_F(ZoneGridCommands, ChangeNothingByKeyInReadOnlyModes) {
    for (const DWORD mode : {0x1U, 0x2U, 0x8000U})
        EditTwo([mode](const OpenEditor& editor) {
            editor.grid.SetCurRow(&editor.Row(1));
            editor.grid.SetOption(mode);
            Key(editor, Qt::Key_Insert);
            Key(editor, Qt::Key_Delete);
            EXPECT_EQ(editor.grid.GetRowCount(), 5) << mode;
        });
}

// The editor of a position has the number of a command and tells the grid of its changes.
TEST_F(ZoneGridCommands, AreNotGivenByAPositionThatIsTyped) {
    EditTwo([](const OpenEditor& editor) {
        ASSERT_TRUE(editor.grid.EditCell(&editor.Row(1), 2));
        ASSERT_EQ(editor.grid.GetEditCtrl()->GetWnd()->GetDlgCtrlID(), 101);
        QTest::keyClicks(QApplication::focusWidget(), "1203000");
        editor.grid.EndEditCell();
        EXPECT_EQ(editor.grid.GetRowCount(), 5);
        EXPECT_EQ(editor.Cell(1, 2), "120度30分00秒");
    });
}
