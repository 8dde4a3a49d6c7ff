// The place dialog once the editor that it opened has been closed.
#include "zone/PlaceStage.h"

namespace {

using PlaceAfterEditor = PlaceStage;

}  // namespace

TEST_F(PlaceAfterEditor, ShowsWhatWasEdited) {
    Load(kTwoProvinces);
    Show([](const OpenPlaces& places) {
        places.cities.setCurrentRow(1);
        EditFrom(places, [](const OpenEditor& editor) {
            editor.SetCell(0, 0, L"新");
            editor.SetCell(2, 1, L"B2");
            editor.SetCell(2, 2, L"12度30分00秒");
            editor.Ok();
        });
        EXPECT_EQ(EntriesOf(places.provinces), (Texts{"新", "乙"}));
        EXPECT_EQ(EntriesOf(places.cities), (Texts{"A", "B2"}));
        EXPECT_EQ(places.cities.currentRow(), 1) << "the current place is the one at its index";
        EXPECT_EQ(places.Fields(), (Texts{"B2", " 12度30分", " 31度15分", ""}));
        EXPECT_EQ(places.dialog.GetCurZone().m_strProvince, L"新");
    });
}

TEST_F(PlaceAfterEditor, ShowsCommentsFromTheValuesUntilItIsOpenedAgain) {
    Load("<甲><A longitude=\"1\" latitude=\"1\" comment=\"attribute\">value</A></甲>");
    Show([](const OpenPlaces& places) {
        EXPECT_EQ(places.Fields()[3], "attribute");
        EditFrom(places, [](const OpenEditor&) {});
        EXPECT_EQ(places.Fields()[3], "value") << "also when nothing was edited";
        EditFrom(places, [](const OpenEditor& editor) { editor.Ok(); });
        EXPECT_EQ(places.Fields()[3], "") << "the editor writes no value";
        EXPECT_EQ(places.dialog.GetCurZone().m_strComment, L"");
    });
    Show([](const OpenPlaces& places) { EXPECT_EQ(places.Fields()[3], "attribute"); });
}

TEST_F(PlaceAfterEditor, KeepsTheIndexWhateverIsThereNow) {
    Load(kTwoProvinces);
    Show([](const OpenPlaces& places) {
        places.provinces.setCurrentRow(1);
        EXPECT_EQ(places.Fields()[0], "C");
        EditFrom(places, [](const OpenEditor& editor) {
            editor.grid.SetCurRow(&editor.Row(1));
            QTest::keyClick(&editor.tree, Qt::Key_Insert);
            editor.SetCell(2, 1, L"inserted");
            editor.Ok();
        });
        EXPECT_EQ(places.Fields()[0], "B") << "the third place is another one now";
        EXPECT_EQ(places.provinces.currentRow(), 0);
        EXPECT_EQ(EntriesOf(places.cities), (Texts{"A", "inserted", "B"}));
        EXPECT_EQ(places.cities.currentRow(), 2);
    });
}

TEST_F(PlaceAfterEditor, StaysUsableWhenThereAreFewerPlacesThanTheIndex) {
    Load(kTwoProvinces);
    OrvoZoneRecord chosen;
    EXPECT_EQ(Show(
                  [](const OpenPlaces& places) {
                      places.provinces.setCurrentRow(1);
                      EditFrom(places, [](const OpenEditor& editor) {
                          editor.grid.DeleteRow(&editor.Row(0));
                          editor.Ok();
                      });
                      EXPECT_EQ(EntriesOf(places.provinces), (Texts{"乙"}));
                      EXPECT_EQ(places.provinces.currentRow(), 0);
                      EXPECT_EQ(EntriesOf(places.cities), (Texts{"C"})) << "the first province's cities are offered";
                      EXPECT_EQ(places.cities.currentRow(), 0);
                      EXPECT_EQ(places.Fields()[0], "C");
                      Press(places.window, IDOK);
                  },
                  nullptr, [&chosen](OrvoPlaceDlg& dialog) { chosen = dialog.GetCurZone(); }),
              IDOK);
    EXPECT_EQ(chosen.m_strCity, L"C");
}

TEST_F(PlaceAfterEditor, StaysUsableWhenNoPlaceIsLeft) {
    Load(kTwoProvinces);
    Show([](const OpenPlaces& places) {
        EditFrom(places, [](const OpenEditor& editor) {
            editor.grid.Reset();
            editor.Ok();
        });
        EXPECT_EQ(EntriesOf(places.provinces), Texts());
        EXPECT_EQ(EntriesOf(places.cities), Texts());
        EXPECT_FALSE(places.dialog.IsZoneDBReady());
        EXPECT_EQ(places.dialog.GetCurZone().m_strCity, L"未定义");
        EditFrom(places, [](const OpenEditor& editor) {
            editor.tree.setFocus();
            QTest::keyClick(&editor.tree, Qt::Key_Insert);
            editor.SetCell(0, 0, L"丙");
            editor.SetCell(1, 1, L"D");
            editor.Ok();
        });
        EXPECT_EQ(EntriesOf(places.provinces), (Texts{"丙"}));
        EXPECT_EQ(EntriesOf(places.cities), (Texts{"D"}));
        EXPECT_EQ(places.Fields(), (Texts{"D", "  0度 0分", "  0度 0分", ""}));
    });
}

TEST_F(PlaceAfterEditor, LoadsThePlacesAnewAlsoWhenTheEditorWasCancelled) {
    Load(kTwoProvinces);
    Show([](const OpenPlaces& places) {
        g_dictSunZone.RemoveItem(g_dictSunZone.GetItem(0));
        EXPECT_EQ(EntriesOf(places.provinces).size(), 2U);
        EditFrom(places, [](const OpenEditor& editor) { editor.SetCell(1, 1, L"X"); });
        EXPECT_EQ(EntriesOf(places.provinces), (Texts{"乙"}));
        EXPECT_EQ(EntriesOf(places.cities), (Texts{"C"}));
    });
}

TEST_F(PlaceAfterEditor, ListsANewPlaceWithoutOfferingThoseOfNestedProvinces) {
    Load(kTwoProvinces);
    Show([](const OpenPlaces& places) {
        EditFrom(places, [](const OpenEditor& editor) {
            editor.grid.SetCurRow(&editor.Row(0));
            editor.grid.SendMessage(WM_COMMAND, 101, 0);
            editor.SetCell(3, 0, L"内");
            editor.SetCell(4, 1, L"deep");
            editor.Ok();
        });
        EXPECT_EQ(EntriesOf(places.cities), (Texts{"A", "B", "内"}));
    });
    EXPECT_NE(Saved()->FindDict(L"甲")->FindDict(L"内")->FindItem(L"deep"), nullptr) << "it is saved all the same";
}
