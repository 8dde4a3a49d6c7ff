// Whatever a person can type into the editor of places, and at whatever moment keys and commands come.
#include <QClipboard>

#include "zone/PlaceStage.h"

namespace {

class ZoneEditorHostile : public PlaceStage {
protected:
    // The editor with rows 0 甲, 1 A, 2 B, 3 乙, 4 C.
    INT_PTR EditTwo(const std::function<void(const OpenEditor&)>& body) {
        Load(kTwoProvinces);
        return Edit([&](const OpenEditor& editor) {
            ASSERT_EQ(editor.grid.GetRowCount(), 5);
            body(editor);
        });
    }
    // Opens a cell's edit, empties it and pastes.
    static void Paste(const OpenEditor& editor, int row, int column, const QString& text) {
        QApplication::clipboard()->setText(text);
        QApplication::setActiveWindow(editor.tree.window());  // off-screen nobody else does
        ASSERT_TRUE(editor.grid.EditCell(&editor.Row(row), column));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_V, Qt::ControlModifier);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_FALSE(editor.grid.IsEditing());
    }
    static void Command(const OpenEditor& editor, int command) {
        editor.grid.SendMessage(WM_COMMAND, static_cast<WPARAM>(command), 0);
    }
    // What a saved tree shows when the editor opens again.
    Texts LinesOfTheSavedFile() {
        EXPECT_TRUE(LoadSunData());
        Texts lines;
        Edit([&lines](const OpenEditor& editor) { lines = editor.Lines(); });
        return lines;
    }
};

// Texts that people have on their clipboards.
QStringList ClipboardTexts() {
    QString every;
    for (char16_t character = 1; character < 0x20; ++character)
        every += QChar(character);
    return {QString(),
            QString::fromUtf8("两行\n和\t制表符\r\n的文字"),
            every,
            QString::fromUtf8("\x7f\xc2\x85\xe2\x80\xa8\xe2\x80\xa9\xef\xbf\xbe\xef\xbf\xbf"),
            QString::fromUtf8("\xe2\x80\xae\xe2\x80\x8b\xef\xbb\xbf零宽"),
            QString(QChar(0xD800)) + "x" + QString(QChar(0xDC00)),
            QString::fromUtf8("👨‍👩‍👧‍👦🇨🇳é"),
            QString::fromUtf8("</甲><!--]]>&amp;&#0;%s%n\\"),
            QString(10000, QChar(0x957F)),
            QString::fromUtf8("  前后有空格  ")};
}

}  // namespace

TEST_F(ZoneEditorHostile, SavesWhatIsPastedAsItIsShown) {
    for (const QString& text : ClipboardTexts()) {
        SCOPED_TRACE(text.left(40).toStdString());
        Texts shown;
        EXPECT_EQ(EditTwo([&](const OpenEditor& editor) {
                      Paste(editor, 0, 0, "x" + text);  // a province without a name would go
                      for (const int column : {1, 4})
                          Paste(editor, 1, column, text);
                      shown = editor.Lines();
                      editor.Ok();
                  }),
                  IDOK);
        ASSERT_EQ(shown.size(), 5U);
        for (std::size_t row = 1; row < 3; ++row)  // cities show their province's name when the editor opens
            shown[row].replace(0, shown[row].find('|'), shown[0].substr(0, shown[0].find("||||")));
        EXPECT_EQ(LinesOfTheSavedFile(), shown);
    }
}

TEST_F(ZoneEditorHostile, KeepsAPastedTextOnOneLine) {
    EditTwo([](const OpenEditor& editor) {
        Paste(editor, 1, 4, QString::fromUtf8("两行\n和\t制表符\r\n的文字"));
        EXPECT_EQ(editor.Cell(1, 4), "两行 和 制表符 的文字");
    });
}

// The template of a position takes digits, one at a time.
TEST_F(ZoneEditorHostile, PastesNothingIntoAPosition) {
    QStringList texts = ClipboardTexts();
    texts << "116.5" << QString::fromUtf8("117度30分00秒") << QString(10000, '1');
    for (const QString& text : texts) {
        SCOPED_TRACE(text.left(40).toStdString());
        EXPECT_EQ(EditTwo([&](const OpenEditor& editor) {
                      Paste(editor, 1, 2, text);
                      EXPECT_EQ(editor.Cell(1, 2), "116度28分00秒");
                      editor.Ok();
                  }),
                  IDOK);
        ASSERT_TRUE(LoadSunData());
        EXPECT_EQ(g_dictSunZone.FindDict(L"甲")->FindItem(L"A")->GetAttributeValue(L"longitude"), L"116.4666666667");
    }
}

TEST_F(ZoneEditorHostile, EndsAnEditByEachKeyAsItShould) {
    EditTwo([](const OpenEditor& editor) {
        const auto type = [&editor](int row, int column, const char* text) {
            ASSERT_TRUE(editor.grid.EditCell(&editor.Row(row), column));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(QApplication::focusWidget(), text);
        };
        const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
        type(1, 1, "entered");
        press(Qt::Key_Return);
        EXPECT_EQ(editor.Cell(1, 1), "entered");
        type(1, 1, "left");
        press(Qt::Key_Escape);
        EXPECT_EQ(editor.Cell(1, 1), "entered") << "the edit is given up";
        EXPECT_TRUE(editor.tree.isVisible()) << "and not the dialog";
        type(1, 1, "tabbed");
        press(Qt::Key_Tab);
        EXPECT_EQ(editor.Cell(1, 1), "tabbed");
        EXPECT_EQ(editor.grid.GetCurColumn(), 2);
        type(4, 1, "last");
        press(Qt::Key_Return);
        EXPECT_EQ(editor.Cell(4, 1), "last") << "in the last row, too";
    });
}

TEST_F(ZoneEditorHostile, TakesAnEditWhenOkIsClicked) {
    EXPECT_EQ(EditTwo([](const OpenEditor& editor) {
                  ASSERT_TRUE(editor.grid.EditCell(&editor.Row(1), 4));
                  QTest::keyClicks(QApplication::focusWidget(), "typed");
                  editor.Ok();
              }),
              IDOK);
    EXPECT_EQ(Saved()->FindDict(L"甲")->FindItem(L"A")->GetAttributeValue(L"comment"), L"typed");
}

TEST_F(ZoneEditorHostile, DeletesTheRowThatIsEdited) {
    for (const int command : {103, int{QCGRID_CMD_DELETE_ROWS}})
        for (const int edited : {1, 4}) {
            EditTwo([&](const OpenEditor& editor) {
                ASSERT_TRUE(editor.grid.EditCell(&editor.Row(edited), 1));
                QTest::keyClicks(QApplication::focusWidget(), "typed");
                Command(editor, command);
                EXPECT_FALSE(editor.grid.IsEditing());
                for (const std::string& line : editor.Lines())
                    EXPECT_EQ(line.find("typed"), std::string::npos) << line;
                EXPECT_TRUE(editor.Row(0).IsParentRow());
                editor.Ok();
            });
            EXPECT_EQ(Saved()->GetCount(), 2) << "both provinces are still there";
        }
}

TEST_F(ZoneEditorHostile, DeletesTheProvinceOfTheRowThatIsEdited) {
    EditTwo([](const OpenEditor& editor) {
        ASSERT_TRUE(editor.grid.EditCell(&editor.Row(1), 2));
        editor.grid.DeleteRow(&editor.Row(0));
        EXPECT_FALSE(editor.grid.IsEditing());
        EXPECT_EQ(editor.grid.GetRowCount(), 2);
        editor.Ok();
    });
    EXPECT_EQ(Saved()->GetCount(), 1);
}

TEST_F(ZoneEditorHostile, DeletesRowsOfAllLevelsTogether) {
    EditTwo([](const OpenEditor& editor) {
        editor.grid.SetCurRow(&editor.Row(0));
        for (const int row : {1, 4})
            editor.grid.SelectRow(&editor.Row(row));
        editor.tree.setFocus();
        QTest::keyClick(&editor.tree, Qt::Key_Delete);
        EXPECT_EQ(editor.Lines(), (Texts{"乙||||", "||   度  分  秒|   度  分  秒|"}));
        for (int i = 0; i < 3; ++i)
            QTest::keyClick(&editor.tree, Qt::Key_Delete);
        editor.Ok();
    });
}

TEST_F(ZoneEditorHostile, InsertsAfterEverythingWasDeleted) {
    EXPECT_EQ(EditTwo([](const OpenEditor& editor) {
                  editor.tree.setFocus();
                  editor.tree.selectAll();
                  QTest::keyClick(&editor.tree, Qt::Key_Delete);
                  ASSERT_EQ(editor.grid.GetRowCount(), 0);
                  for (const int command : {103, 2, 101, 102, 13, 1})
                      Command(editor, command);
                  editor.Ok();
              }),
              IDOK);
    ASSERT_EQ(Saved()->GetCount(), 2) << "the province without a name goes, the two rows at the top are cities";
    EXPECT_EQ(Saved()->GetItem(0)->GetType(), 5);
    EXPECT_EQ(Saved()->GetItem(0)->GetName(), L"");
}

TEST_F(ZoneEditorHostile, OpensWithoutAFileOfPlaces) {
    ASSERT_FALSE(std::filesystem::exists(m_folder / "zone.xml"));
    EXPECT_EQ(Edit([](const OpenEditor& editor) {
                  EXPECT_EQ(editor.grid.GetRowCount(), 0);
                  editor.tree.setFocus();
                  QTest::keyClick(&editor.tree, Qt::Key_Insert);
                  editor.SetCell(0, 0, L"丙");
                  editor.SetCell(1, 1, L"D");
                  editor.Ok();
              }),
              IDOK);
    ASSERT_EQ(m_lines.size(), 1U) << "the missing file is told";
    EXPECT_FALSE(std::filesystem::exists(m_folder / "zone.xml"));
    Show([](const OpenPlaces& places) {
        EXPECT_EQ(EntriesOf(places.provinces), (Texts{"丙"})) << "they are in memory";
        EXPECT_EQ(EntriesOf(places.cities), (Texts{"D"}));
    });
}

TEST_F(ZoneEditorHostile, ImportsItemsOfOtherKindsAndSavesWithoutHarm) {
    Load(kTwoProvinces);
    EXPECT_EQ(Edit([this](const OpenEditor& editor) {
                  EXPECT_EQ(Import(editor, Document("<甲><数 dt:kind=\"3\">5</数></甲><数 dt:kind=\"4\">1.5</数>"
                                                    "<空 dt:kind=\"0\"/><同/><同/>")),
                            (Texts{"导入成功!"}));
                  EXPECT_EQ(editor.Lines().size(), 5U + 1 + 2 + 2 + 1);
                  editor.Ok();
              }),
              IDOK);
    EXPECT_NE(Saved()->FindDict(L"甲")->FindItem(L"A"), nullptr);
    EXPECT_NE(Saved()->FindDict(L"空"), nullptr) << "a province without cities stays one";
}

TEST_F(ZoneEditorHostile, RefusesFilesThatAreCutOff) {
    Load(kTwoProvinces);
    const std::string whole = m_folder.Read("zone.xml");
    const std::size_t end = whole.find("</ORVO_ZONEDATA>") + std::string("</ORVO_ZONEDATA>").size();
    Edit([&](const OpenEditor& editor) {
        const Texts lines = editor.Lines();
        for (std::size_t length = 0; length < end; length += 7)
            EXPECT_EQ(Import(editor, whole.substr(0, length)), (Texts{"打开XML文档失败！请安装MSXML4.0SP2组件!"}))
                << length;
        EXPECT_EQ(editor.Lines(), lines);
    });
}

TEST_F(ZoneEditorHostile, EditsImportsAndDeletesInAnyOrder) {
    EXPECT_EQ(EditTwo([this](const OpenEditor& editor) {
                  for (int round = 0; round < 2; ++round) {
                      editor.grid.SetCurRow(&editor.Row(0));
                      Command(editor, QCGRID_CMD_DELETE_ROWS);
                      Import(editor, Document("<丙><D longitude=\"1\" latitude=\"2\"/></丙>"));
                      EXPECT_EQ(editor.grid.GetRowCount(), 7) << "of the file, where nothing was deleted";
                      EXPECT_EQ(editor.grid.GetCurRow(), nullptr);
                      Command(editor, QCGRID_CMD_DELETE_ROWS);
                      EXPECT_EQ(editor.grid.GetRowCount(), 7);
                  }
                  editor.Ok();
              }),
              IDOK);
    EXPECT_EQ(Saved()->GetCount(), 3);
}

TEST_F(ZoneEditorHostile, GoesFromThePlacesToTheEditorAndBackTwice) {
    Load(kTwoProvinces);
    EXPECT_EQ(Show([](const OpenPlaces& places) {
                  places.provinces.setCurrentRow(1);
                  EditFrom(places, [](const OpenEditor& editor) {
                      editor.grid.DeleteRow(&editor.Row(3));
                      editor.Ok();
                  });
                  EXPECT_EQ(EntriesOf(places.cities), (Texts{"A", "B"}));
                  EXPECT_EQ(places.Fields()[0], "A");
                  EditFrom(places, [](const OpenEditor& editor) {
                      editor.grid.DeleteRow(&editor.Row(1));
                      editor.Ok();
                  });
                  EXPECT_EQ(EntriesOf(places.cities), (Texts{"B"}));
                  EXPECT_EQ(places.Fields()[0], "B");
                  Press(places.window, IDOK);
              }),
              IDOK);
    EXPECT_EQ(Saved()->FindDict(L"甲")->GetCount(), 1);
}

TEST_F(ZoneEditorHostile, ShowsTheFileThatCameMeanwhileOnlyWhereItImports) {
    EditTwo([this](const OpenEditor& editor) {
        m_folder.Write("zone.xml", Document("<新 type=\"PROVINCE\"><N longitude=\"1\" latitude=\"2\"/></新>"));
        EXPECT_EQ(editor.grid.GetRowCount(), 5);
        Import(editor, Document("<丙><D longitude=\"1\" latitude=\"2\"/></丙>"));
        EXPECT_EQ(editor.Lines(), (Texts{"新||||", "新|N|001度00分00秒|002度00分00秒|", "丙||||",
                                         "丙|D|001度00分00秒|002度00分00秒|"}));
    });
    EXPECT_EQ(g_dictSunZone.GetCount(), 2) << "not confirmed";
}

TEST_F(ZoneEditorHostile, DeletesEveryCityOfThirtyProvincesAtOnce) {
    constexpr int kProvinces = 30;
    constexpr int kCities = 100;
    std::string places;
    for (int i = 0; i < kProvinces; ++i) {
        places += "<p" + std::to_string(i) + ">";
        for (int k = 0; k < kCities; ++k)
            places += "<c" + std::to_string(k) + " longitude=\"1\" latitude=\"1\"/>";
        places += "</p" + std::to_string(i) + ">";
    }
    Load(places);
    EXPECT_EQ(Edit([](const OpenEditor& editor) {
                  ASSERT_EQ(editor.grid.GetRowCount(), kProvinces * (kCities + 1));
                  editor.tree.setFocus();
                  editor.tree.selectAll();
                  for (int i = 0; i < kProvinces; ++i)
                      editor.grid.SelectRow(&editor.Row(i * (kCities + 1)), false);
                  QTest::keyClick(&editor.tree, Qt::Key_Delete);
                  ASSERT_EQ(editor.grid.GetRowCount(), kProvinces * 2);
                  for (int i = 0; i < kProvinces; ++i)
                      EXPECT_EQ(editor.Line(i * 2 + 1), "||   度  分  秒|   度  分  秒|") << i;
                  editor.Ok();
              }),
              IDOK);
    EXPECT_EQ(Saved()->GetCount(), kProvinces);
}
