// Importing another file of places into the editor.
#include "zone/EditorStage.h"

namespace {

class ZoneImport : public EditorStage {
protected:
    // Imports a document into the editor of these places and gives the rows it shows then, when it succeeded.
    Texts Merged(const std::string& places, const std::string& imported) {
        Load(places);
        Texts lines;
        Edit([&](const OpenEditor& editor) {
            EXPECT_EQ(Import(editor, Document(imported)), (Texts{"导入成功!"}));
            lines = editor.Lines();
        });
        return lines;
    }
    // Imports what has to be refused with one message and changes nothing. A change of before, not saved, stays.
    void ExpectRefused(const std::string& message, const std::function<Texts(const OpenEditor&)>& import) {
        Load(kTwoProvinces);
        const std::string before = m_folder.Read("zone.xml");
        bool ran = false;
        Edit([&](const OpenEditor& editor) {
            editor.SetCell(1, 1, L"changed");
            const Texts lines = editor.Lines();
            EXPECT_EQ(import(editor), message.empty() ? Texts() : Texts{message});
            EXPECT_EQ(editor.Lines(), lines) << "the grid stays as it was";
            EXPECT_TRUE(editor.tree.isVisible()) << "the dialog stays open";
            ran = true;
        });
        EXPECT_TRUE(ran);
        EXPECT_EQ(g_dictSunZone.GetCount(), 2);
        EXPECT_NE(g_dictSunZone.FindDict(L"甲")->FindItem(L"A"), nullptr);
        if (std::filesystem::exists(m_folder / "zone.xml"))
            EXPECT_EQ(m_folder.Read("zone.xml"), before);
    }
};

const char* const kNoXml = "打开XML文档失败！请安装MSXML4.0SP2组件!";
const char* const kNoPlaces = "请导入正确地理位置数据!";
const char* const kNoZoneFile = "\n加载选项配置文件失败！未找到配置文件zone.xml。";

}  // namespace

TEST_F(ZoneImport, EndsSilentlyWhenNoFileIsChosen) {
    ExpectRefused("", [](const OpenEditor& editor) { return ImportFile(editor, nullptr); });
}

TEST_F(ZoneImport, RefusesFilesThatCannotBeRead) {
    ExpectRefused(kNoXml, [this](const OpenEditor& editor) { return ImportFile(editor, m_folder.File("none.xml")); });
    for (const std::string& document :
         {std::string(), std::string("no xml"), std::string("<ORVO_ZONEDATA><甲></ORVO_ZONEDATA>"),
          std::string("<!DOCTYPE x [<!ENTITY y 'z'>]><ORVO_ZONEDATA/>"),
          std::string("<ORVO_ZONEDATA>\0</ORVO_ZONEDATA>", 32)})
        ExpectRefused(kNoXml, [&](const OpenEditor& editor) { return Import(editor, document); });
    ExpectRefused(kNoXml, [this](const OpenEditor& editor) { return ImportFile(editor, m_folder.File("")); });
}

TEST_F(ZoneImport, RefusesFilesOfOtherData) {
    for (const char* document : {"<SUNSET/>", "<orvo_zonedata/>", "<ORVO_ZoneData><甲/></ORVO_ZoneData>",
                                 "<ORVO_ZONEDATA2/>", "<x><ORVO_ZONEDATA/></x>"})
        ExpectRefused(kNoPlaces, [&](const OpenEditor& editor) { return Import(editor, document); });
}

TEST_F(ZoneImport, RefusesWhenTheFileOfPlacesHasGone) {
    ExpectRefused(kNoZoneFile, [this](const OpenEditor& editor) {
        std::filesystem::remove(m_folder / "zone.xml");
        return Import(editor, Document("<丙><D/></丙>"));
    });
    EXPECT_TRUE(m_lines.empty()) << "a box, and nothing on the command line";
}

// Each step comes before the next: a file that is wrong in two ways is refused for the first.
TEST_F(ZoneImport, LooksForFaultsInTheirOrder) {
    ExpectRefused(kNoXml, [this](const OpenEditor& editor) {
        std::filesystem::remove(m_folder / "zone.xml");
        return Import(editor, "no xml");
    });
    ExpectRefused(kNoPlaces, [this](const OpenEditor& editor) {
        std::filesystem::remove(m_folder / "zone.xml");
        return Import(editor, "<other/>");
    });
}

TEST_F(ZoneImport, ShowsItsMessagesOverTheDialog) {
    Load(kTwoProvinces);
    Edit([this](const OpenEditor& editor) {
        m_folder.Write("import.xml", "<other/>");
        CFileDialog::SetNextFileForTest(m_folder.File("import.xml"));
        const Answers answers;
        Press(editor.window, 2002);
        ASSERT_EQ(answers.owners.size(), 1U);
        EXPECT_EQ(answers.owners[0], reinterpret_cast<HWND>(editor.window.widget));
        EXPECT_EQ(answers.captions[0], "地理位置");
    });
}

TEST_F(ZoneImport, AsksForAFileOfItsKind) {
    Load(kTwoProvinces);
    Edit([](const OpenEditor& editor) {
        CFileDialog::ShowDialogsAgainForTest();
        QStringList filters;
        const ModalDriver driver([&filters](const ModalWindow& window) {
            if (const auto* dialog = dynamic_cast<QFileDialog*>(static_cast<QWidget*>(window.widget)))
                filters = dialog->nameFilters();
            return IDCANCEL;
        });
        Press(editor.window, 2002);
        EXPECT_EQ(filters, QStringList{QString::fromUtf8("地理位置数据 (*.xml)")});
        EXPECT_EQ(driver.GetCount(), 1);
    });
}

TEST_F(ZoneImport, AddsProvincesAndCitiesThatAreNew) {
    EXPECT_EQ(Merged(kTwoProvinces,
                     "<丙 type=\"PROVINCE\"><D longitude=\"1\" latitude=\"2\" comment=\"note D\"/></丙>"
                     "<甲><E longitude=\"3\" latitude=\"4\" comment=\"note E\"/></甲>"),
              (Texts{"甲||||", "甲|A|116度28分00秒|039度54分00秒|note A", "甲|B|121度30分00秒|031度15分00秒|note B",
                     "甲|E|003度00分00秒|004度00分00秒|note E", "乙||||", "乙|C|113度15分00秒|023度07分30秒|note C",
                     "丙||||", "丙|D|001度00分00秒|002度00分00秒|note D"}));
}

TEST_F(ZoneImport, GivesCitiesTheirNewPositionAndKeepsTheirComment) {
    EXPECT_EQ(Merged(kTwoProvinces, "<甲><A longitude=\"1.5\" latitude=\"2.5\" comment=\"other\"/></甲>"),
              (Texts{"甲||||", "甲|A|001度30分00秒|002度30分00秒|note A", "甲|B|121度30分00秒|031度15分00秒|note B",
                     "乙||||", "乙|C|113度15分00秒|023度07分30秒|note C"}));
}

TEST_F(ZoneImport, KeepsAPositionThatTheOtherFileDoesNotHave) {
    EXPECT_EQ(Merged("<甲><A longitude=\"1\" latitude=\"2\" comment=\"\"/></甲>", "<甲><A latitude=\"3\"/></甲>"),
              (Texts{"甲||||", "甲|A|001度00分00秒|003度00分00秒|"}));
}

TEST_F(ZoneImport, DistinguishesNamesByTheirCase) {
    EXPECT_EQ(Merged("<P><a longitude=\"1\" latitude=\"1\"/></P>", "<P><A longitude=\"2\" latitude=\"2\"/></P><p/>"),
              (Texts{"P||||", "P|a|001度00分00秒|001度00分00秒|", "P|A|002度00分00秒|002度00分00秒|",
                     "|p|000度00分00秒|000度00分00秒|"}))
        << "an element without elements is a city";
}

TEST_F(ZoneImport, LeavesItemsOfAnotherKindAlone) {
    EXPECT_EQ(
        Merged("<甲 longitude=\"1\" latitude=\"1\" comment=\"a city\"/><乙><C longitude=\"1\" latitude=\"1\"/></乙>",
               "<甲><D longitude=\"2\" latitude=\"2\"/></甲><乙 longitude=\"3\" latitude=\"3\"/>"),
        (Texts{"|甲|001度00分00秒|001度00分00秒|a city", "乙||||", "乙|C|001度00分00秒|001度00分00秒|"}));
}

TEST_F(ZoneImport, MergesNestedProvinces) {
    EXPECT_EQ(Merged("<外><内><a longitude=\"1\" latitude=\"1\"/></内></外>",
                     "<外><内><a longitude=\"2\" latitude=\"2\"/><b longitude=\"3\" latitude=\"3\"/></内></外>"),
              (Texts{"外||||", "内||||", "内|a|002度00分00秒|002度00分00秒|", "内|b|003度00分00秒|003度00分00秒|"}));
}

TEST_F(ZoneImport, FindsTheFirstOfSeveralOfOneName) {
    EXPECT_EQ(Merged("<甲><A longitude=\"1\" latitude=\"1\"/></甲><甲><A longitude=\"2\" latitude=\"2\"/></甲>",
                     "<甲><A longitude=\"3\" latitude=\"3\"/></甲><甲><A longitude=\"4\" latitude=\"4\"/></甲>"),
              (Texts{"甲||||", "甲|A|004度00分00秒|004度00分00秒|", "甲||||", "甲|A|002度00分00秒|002度00分00秒|"}));
}

TEST_F(ZoneImport, MergesIntoTheFileAndNotIntoWhatIsShown) {
    Load(kTwoProvinces);
    g_dictSunZone.RemoveAll();
    Edit([this](const OpenEditor& editor) {
        EXPECT_EQ(editor.grid.GetRowCount(), 0);
        editor.grid.AppendRow();
        Import(editor, Document("<丙><D/></丙>"));
        EXPECT_EQ(editor.grid.GetRowCount(), 7) << "five of the file, two that were imported";
        EXPECT_EQ(editor.Cell(0, 0), "甲");
    });
}

TEST_F(ZoneImport, ChangesTheTreeAndTheFileOnlyWhenItIsConfirmed) {
    Load(kTwoProvinces);
    const std::string before = m_folder.Read("zone.xml");
    const auto import = [this](const OpenEditor& editor) { Import(editor, Document("<丙><D/></丙>")); };
    EXPECT_EQ(Edit(import), IDCANCEL);
    EXPECT_EQ(g_dictSunZone.GetCount(), 2);
    EXPECT_EQ(m_folder.Read("zone.xml"), before);
    EXPECT_EQ(Edit([&](const OpenEditor& editor) {
                  import(editor);
                  EXPECT_EQ(g_dictSunZone.GetCount(), 2);
                  EXPECT_EQ(m_folder.Read("zone.xml"), before);
                  editor.Ok();
              }),
              IDOK);
    EXPECT_EQ(g_dictSunZone.GetCount(), 3);
    EXPECT_NE(Saved()->FindDict(L"丙")->FindItem(L"D"), nullptr);
}

TEST_F(ZoneImport, TakesAFileOfPlacesThatCannotBeReadAsEmpty) {
    Load(kTwoProvinces);
    Edit([this](const OpenEditor& editor) {
        m_folder.Write("zone.xml", "broken");
        EXPECT_EQ(Import(editor, Document("<丙><D longitude=\"1\" latitude=\"1\"/></丙>")), (Texts{"导入成功!"}));
        EXPECT_EQ(editor.Lines(), (Texts{"丙||||", "丙|D|001度00分00秒|001度00分00秒|"}));
    });
}

TEST_F(ZoneImport, ImportsAFileWithoutPlaces) {
    EXPECT_EQ(Merged("<甲><A longitude=\"1\" latitude=\"1\"/></甲>", ""),
              (Texts{"甲||||", "甲|A|001度00分00秒|001度00分00秒|"}));
}

TEST_F(ZoneImport, ImportsTheFileOfPlacesItself) {
    Load(kTwoProvinces);
    Edit([this](const OpenEditor& editor) {
        const Texts lines = editor.Lines();
        EXPECT_EQ(ImportFile(editor, m_folder.File("zone.xml")), (Texts{"导入成功!"}));
        EXPECT_EQ(editor.Lines(), lines);
    });
}

TEST_F(ZoneImport, ImportsWhatTheEditorSaved) {
    Load(kTwoProvinces);
    Edit([](const OpenEditor& editor) {
        editor.SetCell(1, 2, L"   度  分  秒");
        editor.SetCell(2, 1, L"");
        editor.Ok();
    });
    const std::string saved = m_folder.Read("zone.xml");
    Load("");
    Edit([&](const OpenEditor& editor) {
        EXPECT_EQ(Import(editor, saved), (Texts{"导入成功!"}));
        EXPECT_EQ(editor.Lines(),
                  (Texts{"甲||||", "甲|A|000度00分00秒|039度54分00秒|note A", "甲||121度30分00秒|031度15分00秒|note B",
                         "乙||||", "乙|C|113度15分00秒|023度07分30秒|note C"}));
    });
}

TEST_F(ZoneImport, EndsAnEditThatIsOpen) {
    Load(kTwoProvinces);
    Edit([this](const OpenEditor& editor) {
        ASSERT_TRUE(editor.grid.EditCell(&editor.Row(1), 2));
        Import(editor, Document("<丙><D/></丙>"));
        EXPECT_FALSE(editor.grid.IsEditing());
        EXPECT_EQ(editor.grid.GetRowCount(), 7);
    });
}
