// The dialogs of places in English: every text is translated, and the data does not notice.
#include "zone/PlaceStage.h"

namespace {

class ZoneDialogsEnglish : public PlaceStage {
protected:
    static std::string TextOfItem(const CWnd& dialog, int id) {
        CString text;
        dialog.GetDlgItemText(id, text);
        return ToUtf8(text.View());
    }

    // A day's work in the editor: new rows by key, positions and texts typed, an import; gives the file's bytes.
    std::string Work() {
        Load(kTwoProvinces);
        EXPECT_EQ(Edit([this](const OpenEditor& editor) {
                      Import(editor, Document("<丙><D longitude=\"1\" latitude=\"2\" comment=\"note\"/></丙>"));
                      QApplication::setActiveWindow(editor.tree.window());  // off-screen nobody else does
                      editor.grid.SetCurCell(&editor.Row(1), 2);
                      editor.tree.setFocus();
                      QTest::keyClicks(&editor.tree, "1203000");
                      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
                      editor.grid.SetCurCell(&editor.Row(4), 1);
                      QTest::keyClick(&editor.tree, Qt::Key_Insert);
                      QTest::keyClicks(&editor.tree, "E");
                      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
                      editor.grid.SendMessage(WM_COMMAND, 101, 0);
                      editor.grid.SendMessage(WM_COMMAND, 13, 0);
                      editor.SetCell(editor.grid.GetRowCount() - 2, 0, L"丁");
                      editor.Ok();
                  }),
                  IDOK);
        return m_folder.Read("zone.xml");
    }
};

}  // namespace

TEST_F(ZoneDialogsEnglish, SaveTheSameBytesAsInChinese) {
    const std::string chinese = Work();
    ASSERT_NE(chinese.find("120.5000000000"), std::string::npos);
    ASSERT_NE(chinese.find("度  分  秒"), std::string::npos) << "a city that nobody filled in";
    std::filesystem::remove(m_folder / "zone.xml");
    const EnglishInterface english;
    ASSERT_EQ(TranslateText(L"附注"), L"Note") << "English is not in force, so the test would prove nothing";
    EXPECT_EQ(Work(), chinese);
}

TEST_F(ZoneDialogsEnglish, ShowTheEditorInEnglish) {
    Load(kTwoProvinces);
    const EnglishInterface english;
    Edit([this](const OpenEditor& editor) {
        EXPECT_EQ(editor.window.caption, L"Geographic Locations");
        Texts titles;
        for (int column = 0; column < 5; ++column)
            titles.push_back(ToUtf8(editor.grid.GetColumnTitle(column).View()));
        EXPECT_EQ(titles, (Texts{"Province", "City", "Longitude", "Latitude", "Note"}));
        const CWnd& dialog = *CWnd::FromHandle(reinterpret_cast<HWND>(editor.window.widget));
        EXPECT_EQ(TextOfItem(dialog, 1), "OK");
        EXPECT_EQ(TextOfItem(dialog, 2), "Cancel");
        EXPECT_EQ(TextOfItem(dialog, 2002), "Import Data...");
        EXPECT_EQ(editor.Line(1), "甲|A|116度28分00秒|039度54分00秒|note A") << "positions are read back";
        const auto menu = [&editor](int row) {
            const Answers answers(-1);
            editor.grid.OnRightMenu(&editor.Row(row), POINT{0, 0});
            return answers.texts;
        };
        EXPECT_EQ(menu(1), (Texts{"Insert City (Ins)\nDelete Row (Del)\n"}));
        EXPECT_EQ(menu(0), (Texts{"Insert Province\nDelete Row (Del)\n"}));
        editor.grid.SelectRow(&editor.Row(1));
        EXPECT_EQ(menu(1), (Texts{"Delete (Del)\n"}));
        EXPECT_EQ(Import(editor, "x"), (Texts{"Cannot open the XML document. Please install MSXML 4.0 SP2."}));
        EXPECT_EQ(Import(editor, "<x/>"), (Texts{"This is no location data. Please import a location file."}));
        EXPECT_EQ(Import(editor, Document("")), (Texts{"The data was imported."}));
        std::filesystem::remove(m_folder / "zone.xml");
        EXPECT_EQ(Import(editor, Document("")), (Texts{"\nCannot load the configuration: zone.xml was not found."}));
    });
}

TEST_F(ZoneDialogsEnglish, ShowThePlacesInEnglish) {
    Load(kTwoProvinces);
    const EnglishInterface english;
    Show([](const OpenPlaces& places) {
        EXPECT_EQ(places.window.caption, L"Place");
        Texts texts;
        for (const int id : {1, 2, 2015, 2016, 2017, 2018, 2019, 2020, 2021})
            texts.push_back(TextOfItem(places.dialog, id));
        EXPECT_EQ(texts, (Texts{"OK", "Cancel", "Place:", "Longitude:", "Note:", "Latitude:", "Province",
                                "Places and cities", "Edit Data File..."}));
        EXPECT_EQ(places.Fields(), (Texts{"A", "116°28'", " 39°54'", "note A"}));
        EXPECT_EQ(places.dialog.GetTemplateId(), 2014U);
    });
}

TEST_F(ZoneDialogsEnglish, TakeTheLanguageThatIsInForceWhenTheyAreMade) {
    Load(kTwoProvinces);
    {
        const EnglishInterface english;
        Edit([](const OpenEditor& editor) { EXPECT_EQ(editor.window.caption, L"Geographic Locations"); });
    }
    Edit([](const OpenEditor& editor) { EXPECT_EQ(editor.window.caption, L"地理位置"); });
}
