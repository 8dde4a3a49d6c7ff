// What each cell of the grid of places is edited with.
#include "controls/OrvoDegreeEdit.h"
#include "zone/EditorStage.h"

namespace {

class ZoneGridEditors : public EditorStage {
protected:
    // Whether a position's edit opens in a cell; else it is an ordinary one.
    static bool IsPosition(const OpenEditor& editor, int row, int column) {
        EXPECT_TRUE(editor.grid.EditCell(&editor.Row(row), column)) << row << ", " << column;
        QcUiGridCellCtrl* edit = editor.grid.GetEditCtrl();
        EXPECT_NE(edit, nullptr);
        EXPECT_NE(dynamic_cast<CEdit*>(edit->GetWnd()), nullptr);
        return dynamic_cast<OrvoDegreeEdit*>(edit) != nullptr;
    }
};

}  // namespace

TEST_F(ZoneGridEditors, AreForPositionsInTwoColumnsOfACity) {
    EditTwo([](const OpenEditor& editor) {
        for (const int row : {1, 2, 4})
            for (int column = 0; column < 5; ++column)
                EXPECT_EQ(IsPosition(editor, row, column), column == 2 || column == 3) << row << ", " << column;
    });
}

TEST_F(ZoneGridEditors, ArePlainInEveryCellOfAProvince) {
    EditTwo([](const OpenEditor& editor) {
        for (const int row : {0, 3})
            for (int column = 0; column < 5; ++column) {
                EXPECT_FALSE(IsPosition(editor, row, column)) << row << ", " << column;
                editor.grid.CancelEditCell();
            }
        EXPECT_EQ(editor.Line(0), "甲||||") << "no position is put into a province";
    });
}

TEST_F(ZoneGridEditors, AreForPositionsInACityWithoutAProvinceAndInNestedOnes) {
    Load("<X longitude=\"1\" latitude=\"1\"/><外><内><a longitude=\"1\" latitude=\"1\"/></内></外>");
    Edit([](const OpenEditor& editor) {
        EXPECT_TRUE(IsPosition(editor, 0, 2)) << "a city at the top";
        EXPECT_FALSE(IsPosition(editor, 2, 2)) << "a nested province";
        EXPECT_TRUE(IsPosition(editor, 3, 3)) << "a city in it";
    });
}

TEST_F(ZoneGridEditors, FollowWhatARowIsAtTheTime) {
    EditTwo([](const OpenEditor& editor) {
        ASSERT_TRUE(IsPosition(editor, 1, 2));
        editor.grid.EndEditCell();
        editor.Row(1).AppendChild();
        EXPECT_FALSE(IsPosition(editor, 1, 2)) << "a city that has become a province";
    });
}

TEST_F(ZoneGridEditors, BeginAnEmptyPositionWithThePlaceholder) {
    EditTwo([](const OpenEditor& editor) {
        editor.SetCell(1, 2, L"");
        editor.SetCell(1, 3, L"");
        ASSERT_TRUE(IsPosition(editor, 1, 2));
        EXPECT_EQ(editor.Cell(1, 2), "   度  分  秒") << "in the cell itself";
        EXPECT_EQ(TextOf(QApplication::focusWidget()), "   度  分  秒");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        EXPECT_EQ(editor.Cell(1, 2), "   度  分  秒") << "where it stays";
        EXPECT_EQ(editor.Cell(1, 3), "") << "the other cell was not edited";
    });
}

TEST_F(ZoneGridEditors, LeaveAPositionThatIsThereAsItIs) {
    EditTwo([](const OpenEditor& editor) {
        editor.SetCell(1, 2, L" ");
        for (const char* text : {"181度", "-039度54分00秒", "39.9", " "}) {
            editor.SetCell(1, 2, FromUtf8(text));
            ASSERT_TRUE(IsPosition(editor, 1, 2));
            EXPECT_EQ(TextOf(QApplication::focusWidget()), text);
            editor.grid.EndEditCell();
            EXPECT_EQ(editor.Cell(1, 2), text);
        }
    });
}

TEST_F(ZoneGridEditors, PutNothingIntoEmptyCellsOfOtherColumns) {
    EditTwo([](const OpenEditor& editor) {
        for (const int column : {0, 1, 4}) {
            editor.SetCell(1, column, L"");
            EXPECT_FALSE(IsPosition(editor, 1, column));
            EXPECT_EQ(TextOf(QApplication::focusWidget()), "") << column;
        }
    });
}

TEST_F(ZoneGridEditors, TakeAPositionThatIsTypedIntoANewCity) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(4));
        QTest::keyClick(&editor.tree, Qt::Key_Insert);
        ASSERT_TRUE(editor.grid.EditCell(&editor.Row(5), 2));
        QTest::keyClicks(QApplication::focusWidget(), "1162800x!5");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_EQ(editor.Cell(5, 2), "516度28分00秒") << "the eighth digit begins again, letters do not count";
        ASSERT_TRUE(editor.grid.EditCell(&editor.Row(5), 3));
        QTest::keyClicks(QApplication::focusWidget(), "039");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        editor.Ok();
    });
    const std::unique_ptr<QcDtDictionary> saved = Saved();
    const QcDtDictItem* city = saved->FindDict(L"乙")->GetItem(1);
    EXPECT_EQ(city->GetAttributeValue(L"longitude"), L"516度28分00秒") << "beyond the limits: kept as it is";
    EXPECT_EQ(city->GetAttributeValue(L"latitude"), L" 39.0000000000") << "minutes that nobody typed are 0";
}

TEST_F(ZoneGridEditors, OpenNothingInReadOnlyModes) {
    for (const DWORD mode : {0x1U, 0x2U, 0x8000U})
        EditTwo([mode](const OpenEditor& editor) {
            editor.SetCell(1, 2, L"");
            editor.grid.SetOption(mode);
            EXPECT_FALSE(editor.grid.EditCell(&editor.Row(1), 2)) << mode;
            EXPECT_EQ(editor.Cell(1, 2), "");
        });
}

TEST_F(ZoneGridEditors, OpenWithADoubleClick) {
    EditTwo([](const OpenEditor& editor) {
        const QModelIndex city = editor.tree.indexBelow(editor.tree.model()->index(0, 0)).siblingAtColumn(2);
        const QPoint place = editor.tree.visualRect(city).center();
        QTest::mouseClick(editor.tree.viewport(), Qt::LeftButton, Qt::NoModifier, place);
        QTest::mouseDClick(editor.tree.viewport(), Qt::LeftButton, Qt::NoModifier, place);
        EXPECT_NE(dynamic_cast<OrvoDegreeEdit*>(editor.grid.GetEditCtrl()), nullptr);
    });
}
