// The editor of the places from opening to OK or Cancel.
#include "window/DialogForTests.h"
#include "zone/EditorStage.h"

namespace {

class ZoneEditor : public EditorStage {
protected:
    static QModelIndex IndexOf(const QTreeView& tree, int row, int column) {
        QModelIndex index = tree.model()->index(0, 0);
        while (row-- > 0)
            index = tree.indexBelow(index);
        return index.siblingAtColumn(column);
    }
    static Texts TitlesOf(const QTreeView& tree) {
        Texts titles;
        for (int column = 0; column < tree.model()->columnCount(); ++column)
            titles.push_back(tree.model()->headerData(column, Qt::Horizontal).toString().toStdString());
        return titles;
    }
    static std::string Shown(const QTreeView& tree, int row, int column) {
        return IndexOf(tree, row, column).data().toString().toStdString();
    }
    static UINT TemplateOf(const OpenEditor& editor) {
        const QString name = static_cast<QWidget*>(editor.window.widget)->objectName();
        return name.mid(4).toUInt();
    }
};

}  // namespace

TEST_F(ZoneEditor, ShowsThePlacesInARealGrid) {
    Load(kTwoProvinces);
    Edit([](const OpenEditor& editor) {
        EXPECT_EQ(editor.window.caption, L"地理位置");
        EXPECT_EQ(TitlesOf(editor.tree), (Texts{"省份", "城市", "经度", "纬度", "附注"}));
        EXPECT_EQ(Shown(editor.tree, 0, 0), "甲");
        EXPECT_EQ(Shown(editor.tree, 1, 0), "甲");
        EXPECT_EQ(Shown(editor.tree, 1, 1), "A");
        EXPECT_EQ(Shown(editor.tree, 1, 2), "116度28分00秒");
        EXPECT_EQ(Shown(editor.tree, 1, 3), "039度54分00秒");
        EXPECT_EQ(Shown(editor.tree, 1, 4), "note A");
        EXPECT_EQ(Shown(editor.tree, 3, 0), "乙");
        EXPECT_EQ(Shown(editor.tree, 4, 1), "C");
    });
}

TEST_F(ZoneEditor, MakesTheGridWhereItsPlaceholderIs) {
    Load(kTwoProvinces);
    Edit([](const OpenEditor& editor) {
        EXPECT_EQ(editor.grid.GetStyle() | WS_VISIBLE, 0x56810000U);
        EXPECT_EQ(editor.grid.GetDlgCtrlID(), 2001);
        EXPECT_TRUE(editor.tree.isVisible());
        EXPECT_GT(editor.tree.width(), 400);
        EXPECT_GT(editor.tree.height(), 200);
        EXPECT_TRUE(editor.tree.header()->stretchLastSection()) << "the last column takes the room that is left";
        for (int column = 0; column < 4; ++column)
            EXPECT_EQ(editor.grid.GetColumnWidth(column), editor.grid.GetColumnWidth(0)) << column;
        EXPECT_TRUE(editor.tree.hasFocus()) << "where the work is";
        EXPECT_EQ(ControlOf<QAbstractButton>(editor.window, 1)->text().toStdString(), "确定");
        EXPECT_EQ(ControlOf<QAbstractButton>(editor.window, 2)->text().toStdString(), "取消");
        EXPECT_EQ(ControlOf<QAbstractButton>(editor.window, 2002)->text().toStdString(), "导入数据");
    });
}

TEST_F(ZoneEditor, ShowsPositionsWhole) {
    Load(kTwoProvinces);
    Edit([](const OpenEditor& editor) {
        constexpr int kEdges = 6;  // what a cell keeps free beside its text, and the line between the columns
        const QString position = QString::fromUtf8("116度28分00秒");
        const int needed = QFontMetrics(editor.tree.font()).horizontalAdvance(position) + kEdges;
        EXPECT_GE(editor.tree.columnWidth(2), needed);
        EXPECT_GE(editor.tree.columnWidth(3), needed);
        EXPECT_EQ(editor.tree.header()->length(), editor.tree.viewport()->width()) << "and nothing has to be scrolled";
    });
}

TEST_F(ZoneEditor, TakesTheTemplateOfTheLanguage) {
    Load(kTwoProvinces);
    Edit([](const OpenEditor& editor) { EXPECT_EQ(TemplateOf(editor), 2000U); });
    for (const wchar_t* language : {L"Enu", L"chs", L"", L"Cht"}) {
        g_strCurLanguage = language;
        Edit([](const OpenEditor& editor) { EXPECT_EQ(TemplateOf(editor), 2001U); });
    }
}

TEST_F(ZoneEditor, OpensOnAnEmptyTree) {
    Load("");
    EXPECT_EQ(Edit([](const OpenEditor& editor) {
                  EXPECT_EQ(editor.grid.GetRowCount(), 0);
                  editor.Ok();
              }),
              IDOK);
}

TEST_F(ZoneEditor, WritesTheGridIntoTheTreeAndTheFile) {
    Load(kTwoProvinces);
    EXPECT_EQ(Edit([](const OpenEditor& editor) {
                  editor.SetCell(1, 1, L"新");
                  editor.SetCell(1, 2, L"12度30分00秒");
                  editor.SetCell(1, 4, L"new note");
                  editor.Ok();
              }),
              IDOK);
    EXPECT_EQ(g_dictSunZone.GetCount(), 2);
    const std::unique_ptr<QcDtDictionary> saved = Saved();
    EXPECT_EQ(saved->GetTag(), L"ORVO_ZONEDATA");
    for (const QcDtDictionary* zones : std::initializer_list<const QcDtDictionary*>{&g_dictSunZone, saved.get()}) {
        const QcDtDictItem* city = zones->FindDict(L"甲")->FindItem(L"新");
        ASSERT_NE(city, nullptr);
        EXPECT_EQ(city->GetAttributeValue(L"longitude"), L" 12.5000000000");
        EXPECT_EQ(city->GetAttributeValue(L"latitude"), L" 39.9000000000");
        EXPECT_EQ(city->GetAttributeValue(L"comment"), L"new note");
        EXPECT_EQ(zones->FindDict(L"甲")->FindItem(L"A"), nullptr);
        EXPECT_NE(zones->FindDict(L"乙")->FindItem(L"C"), nullptr);
    }
    EXPECT_TRUE(m_lines.empty());
}

TEST_F(ZoneEditor, DropsAttributesAndValuesThatAreNotItsOwn) {
    Load(
        "<甲 type=\"PROVINCE\" more=\"1\"><A type=\"x\" latitude=\"1\" longitude=\"2\" comment=\"\" "
        "more=\"1\">value</A>"
        "</甲>");
    Edit([](const OpenEditor& editor) { editor.Ok(); });
    const std::unique_ptr<QcDtDictionary> saved = Saved();
    const QcDtDictItem* city = saved->FindDict(L"甲")->FindItem(L"A");
    EXPECT_EQ(city->GetStringValue(), L"");
    EXPECT_EQ(city->GetAttributeCount(), 4);
    EXPECT_EQ(city->GetAttributeValue(L"type"), L"CITY");
    EXPECT_FALSE(saved->FindDict(L"甲")->HasAttribute(L"more"));
}

TEST_F(ZoneEditor, ShowsAndSavesProvincesNestedDeeply) {
    constexpr int kDepth = 200;
    std::string places = "<city longitude=\"1\" latitude=\"1\"/>";
    for (int level = 0; level < kDepth; ++level)
        places = "<p>" + places + "</p>";
    Load(places);
    Edit([](const OpenEditor& editor) {
        EXPECT_EQ(editor.grid.GetRowCount(), kDepth + 1);
        editor.Ok();
    });
    const std::unique_ptr<QcDtDictionary> saved = Saved();
    const QcDtDictionary* level = saved.get();
    int depth = 0;
    while (const QcDtDictionary* inner = level->FindDict(L"p")) {
        level = inner;
        ++depth;
    }
    EXPECT_EQ(depth, kDepth);
    EXPECT_NE(level->FindItem(L"city"), nullptr);
}

TEST_F(ZoneEditor, LosesAProvinceWhoseNameIsCleared) {
    Load(kTwoProvinces);
    Edit([](const OpenEditor& editor) {
        editor.SetCell(0, 0, L"");
        editor.Ok();
    });
    ASSERT_EQ(g_dictSunZone.GetCount(), 1);
    EXPECT_EQ(g_dictSunZone.GetItem(0)->GetName(), L"乙");
    EXPECT_EQ(m_folder.Read("zone.xml").find("note A"), std::string::npos);
}

TEST_F(ZoneEditor, ChangesNothingWhenItIsCancelled) {
    Load(kTwoProvinces);
    const std::string before = m_folder.Read("zone.xml");
    for (const bool escape : {true, false})
        EXPECT_EQ(Edit([escape](const OpenEditor& editor) {
                      editor.SetCell(1, 1, L"X");
                      editor.grid.DeleteRow(&editor.Row(3));
                      if (escape)
                          QTest::keyClick(&editor.tree, Qt::Key_Escape);
                      else
                          Press(editor.window, IDCANCEL);
                  }),
                  IDCANCEL);
    EXPECT_EQ(m_folder.Read("zone.xml"), before);
    EXPECT_NE(g_dictSunZone.FindDict(L"甲")->FindItem(L"A"), nullptr);
    EXPECT_EQ(g_dictSunZone.GetCount(), 2);
}

TEST_F(ZoneEditor, TakesNoStrayKeyBeforeACellIsChosen) {
    Load(kTwoProvinces);
    const auto key = [](const OpenEditor& editor, Qt::Key each) { QTest::keyClick(&editor.tree, each); };
    Edit([](const OpenEditor& editor) {
        ASSERT_TRUE(editor.tree.hasFocus());
        QTest::keyClicks(&editor.tree, "x ");
        QTest::keyClick(&editor.tree, Qt::Key_Delete);
        QInputMethodEvent composed;
        composed.setCommitString("海");
        QCoreApplication::sendEvent(&editor.tree, &composed);
        EXPECT_FALSE(editor.grid.IsEditing());
        EXPECT_EQ(editor.Cell(0, 0), "甲");
    });
    Edit([&key](const OpenEditor& editor) {
        key(editor, Qt::Key_Home);  // the same cell, but now somebody wants it
        QTest::keyClicks(&editor.tree, "x");
        EXPECT_TRUE(editor.grid.IsEditing());
    });
    Edit([&key](const OpenEditor& editor) {
        key(editor, Qt::Key_F2);
        EXPECT_TRUE(editor.grid.IsEditing());
    });
    Edit([](const OpenEditor& editor) {
        QTest::mouseClick(editor.tree.viewport(), Qt::LeftButton, {},
                          editor.tree.visualRect(editor.tree.currentIndex()).center());
        QTest::keyClicks(&editor.tree, "x");
        EXPECT_TRUE(editor.grid.IsEditing());
    });
}

TEST_F(ZoneEditor, OpensFreshAfterBeingCancelled) {
    Load(kTwoProvinces);
    Edit([](const OpenEditor& editor) { editor.SetCell(1, 1, L"X"); });
    Edit([](const OpenEditor& editor) { EXPECT_EQ(editor.Cell(1, 1), "A"); });
}

// The button takes the focus only where the mouse presses it; by the keyboard it may be pressed during an edit.
TEST_F(ZoneEditor, TakesAnEditThatIsOpenWhenItIsConfirmed) {
    Load(kTwoProvinces);
    Edit([](const OpenEditor& editor) {
        ASSERT_TRUE(editor.grid.EditCell(&editor.Row(1), 1));
        QTest::keyClicks(QApplication::focusWidget(), "Typed");
        CWnd::FromHandle(reinterpret_cast<HWND>(editor.window.widget))
            ->SendMessage(WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
    });
    EXPECT_NE(g_dictSunZone.FindDict(L"甲")->FindItem(L"Typed"), nullptr);
}

TEST_F(ZoneEditor, LeavesOutAnEditThatIsOpenWhenItIsCancelled) {
    Load(kTwoProvinces);
    Edit([](const OpenEditor& editor) {
        ASSERT_TRUE(editor.grid.EditCell(&editor.Row(1), 1));
        QTest::keyClicks(QApplication::focusWidget(), "Typed");
    });
    EXPECT_EQ(g_dictSunZone.FindDict(L"甲")->FindItem(L"Typed"), nullptr);
}

TEST_F(ZoneEditor, KeepsPlacesInMemoryWhenTheFileHasGone) {
    Load(kTwoProvinces);
    EXPECT_EQ(Edit([this](const OpenEditor& editor) {
                  editor.SetCell(1, 1, L"新");
                  std::filesystem::remove(m_folder / "zone.xml");
                  const Answers answers;
                  editor.Ok();
                  EXPECT_EQ(answers.texts, Texts()) << "a failed save is not reported by the dialog";
              }),
              IDOK);
    ASSERT_EQ(m_lines.size(), 1U);
    EXPECT_EQ(m_lines[0], L"\n加载选项配置文件失败！未找到配置文件zone.xml。") << "on the command line, once";
    EXPECT_FALSE(std::filesystem::exists(m_folder / "zone.xml")) << "and the file is not made anew";
    EXPECT_NE(g_dictSunZone.FindDict(L"甲")->FindItem(L"新"), nullptr);
}

TEST_F(ZoneEditor, KeepsTwoProvincesOfOneName) {
    Load(kTwoProvinces);
    Edit([](const OpenEditor& editor) {
        editor.SetCell(3, 0, L"甲");
        editor.Ok();
    });
    const std::unique_ptr<QcDtDictionary> saved = Saved();
    ASSERT_EQ(saved->GetCount(), 2);
    EXPECT_EQ(saved->GetItem(0)->GetName(), L"甲");
    EXPECT_EQ(saved->GetItem(1)->GetName(), L"甲");
    Edit([](const OpenEditor& editor) {
        EXPECT_EQ(editor.grid.GetRowCount(), 5);
        EXPECT_EQ(editor.Cell(4, 1), "C");
    });
}

TEST_F(ZoneEditor, SavesAndShowsAgainWhateverIsTypedIntoACell) {
    const std::wstring longText(10000, L'长');
    const wchar_t* const texts[] = {longText.c_str(), L"😀🇨🇳", L"]]> & < > \" '", L" ", L"a\nb\tc"};
    for (const wchar_t* text : texts) {
        Load(kTwoProvinces);
        Edit([text](const OpenEditor& editor) {
            editor.SetCell(0, 0, text);
            for (int column = 0; column < 5; ++column)
                editor.SetCell(1, column, text);
            editor.Ok();
        });
        ASSERT_TRUE(LoadSunData());
        const CString trimmed = CString(text).Trim();
        ASSERT_EQ(g_dictSunZone.GetItem(0)->GetName(), text);
        const QcDtDictItem* city = static_cast<QcDtDictionary*>(g_dictSunZone.GetItem(0))->GetItem(0);
        EXPECT_EQ(city->GetName(), text);
        EXPECT_EQ(city->GetAttributeValue(L"longitude"), trimmed);
        EXPECT_EQ(city->GetAttributeValue(L"latitude"), trimmed);
        EXPECT_EQ(city->GetAttributeValue(L"comment"), text);
        Edit([text](const OpenEditor& editor) {
            EXPECT_EQ(editor.Row(1).GetItemText(1), text);
            EXPECT_EQ(editor.Row(1).GetItemText(4), text);
        });
    }
}

TEST_F(ZoneEditor, TakesTenThousandCharactersFromTheKeyboard) {
    Load(kTwoProvinces);
    const QString longText(10000, QChar(u'长'));
    Edit([&](const OpenEditor& editor) {
        for (const int column : {0, 1, 4}) {
            ASSERT_TRUE(editor.grid.EditCell(&editor.Row(1), column));
            auto* edit = dynamic_cast<QLineEdit*>(QApplication::focusWidget());
            ASSERT_NE(edit, nullptr);
            edit->selectAll();
            edit->insert(longText + QString::fromUtf8("😀"));
            editor.grid.EndEditCell();
            EXPECT_EQ(editor.Cell(1, column), (longText + QString::fromUtf8("😀")).toStdString());
        }
        editor.Ok();
    });
    EXPECT_EQ(ToUtf8(Saved()->FindDict(L"甲")->GetItem(0)->GetName().View()),
              (longText + QString::fromUtf8("😀")).toStdString());
}

TEST_F(ZoneEditor, IsUsedByTheKeyboardAlone) {
    Load(kTwoProvinces);
    EXPECT_EQ(Edit([](const OpenEditor& editor) {
                  QTest::keyClick(&editor.tree, Qt::Key_Home);
                  editor.grid.SetCurCell(&editor.Row(4), 1);
                  QTest::keyClick(&editor.tree, Qt::Key_Insert);
                  EXPECT_EQ(editor.grid.GetCurColumn(), 1);
                  QTest::keyClicks(&editor.tree, "D");
                  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                  QTest::keyClick(&editor.tree, Qt::Key_Return);
                  QTest::keyClicks(QApplication::focusWidget(), "1203000");
                  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                  QTest::keyClicks(&editor.tree, "0301500");
                  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                  QTest::keyClicks(&editor.tree, "typed");
                  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
                  EXPECT_EQ(editor.Line(5), "|D|120度30分00秒|030度15分00秒|typed");
                  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                  EXPECT_EQ(QApplication::focusWidget(), ControlOf(editor.window, 2002));
                  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                  EXPECT_EQ(QApplication::focusWidget(), ControlOf(editor.window, 1));
                  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
              }),
              IDOK);
    const QcDtDictItem* city = g_dictSunZone.FindDict(L"乙")->FindItem(L"D");
    ASSERT_NE(city, nullptr);
    EXPECT_EQ(city->GetAttributeValue(L"longitude"), L"120.5000000000");
    EXPECT_EQ(city->GetAttributeValue(L"latitude"), L" 30.2500000000");
    EXPECT_EQ(city->GetAttributeValue(L"comment"), L"typed");
}

TEST_F(ZoneEditor, RunsFromTheExportedFunctionWithTheModulesResources) {
    Load(kTwoProvinces);
    const HINSTANCE before = AfxGetResourceHandle();
    EXPECT_EQ(Run([] { return SunZoneDbDoModal(nullptr); },
                  [](const ModalWindow& window) {
                      EXPECT_EQ(AfxGetResourceHandle(), GetModuleResourceHandle());
                      In(window, [](const OpenEditor& editor) {
                          EXPECT_EQ(editor.grid.GetRowCount(), 5);
                          editor.SetCell(1, 1, L"新");
                          editor.Ok();
                      });
                  }),
              IDOK);
    EXPECT_EQ(AfxGetResourceHandle(), before);
    EXPECT_NE(Saved()->FindDict(L"甲")->FindItem(L"新"), nullptr);
    EXPECT_EQ(Run([] { return SunZoneDbDoModal(nullptr); }, [](const ModalWindow&) {}), IDCANCEL);
}

TEST_F(ZoneEditor, RunsOverTheHostsWindowWhateverParentIsGiven) {
    Load(kTwoProvinces);
    DialogForTests host("PUSHBUTTON \"x\", 7, 1, 1, 40, 14\n");
    host.Run([&host](const ModalWindow&) {
        DialogForTests other("PUSHBUTTON \"x\", 7, 1, 1, 40, 14\n");
        other.Run([&](const ModalWindow&) {
            acedSetAcadFrame(&host);
            Run([&other] { return SunZoneDbDoModal(&other); },
                [&host](const ModalWindow& window) { EXPECT_EQ(window.owner, host.GetSafeHwnd()); });
            acedSetAcadFrame(nullptr);
        });
    });
}

TEST_F(ZoneEditor, RunsTwiceInARowByTheCommand) {
    Load(kTwoProvinces);
    const auto* commands = dynamic_cast<AcEdCommandStack*>(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS"));
    const AcEdCommand* command = commands->lookupCmd(L"QcCityData");
    ASSERT_NE(command, nullptr);
    for (const char* found : {"A", "1"})
        Run(
            [command] {
                command->function();
                return IDOK;
            },
            [found](const ModalWindow& window) {
                In(window, [found](const OpenEditor& editor) {
                    EXPECT_EQ(editor.Cell(1, 1), found) << "what the run before saved";
                    editor.SetCell(1, 1, L"1");
                    editor.Ok();
                });
            });
}
