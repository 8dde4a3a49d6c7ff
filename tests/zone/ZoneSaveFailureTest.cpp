// Places that are confirmed in the editor and cannot be saved: the platform says why, once, and nothing is lost.
#include "platform/base/Message.h"
#include "support/FullDisk.h"
#include "support/OrdinaryUser.h"
#include "support/Recorder.h"
#include "zone/EditorStage.h"

namespace {

using std::filesystem::perms;

class ZoneSaveFailure : public EditorStage {
protected:
    void SetUp() override {
        EditorStage::SetUp();
        Load(kTwoProvinces);
        m_before = m_folder.Read("zone.xml");
        Edit([](const OpenEditor&) {});  // the toolkit refuses to be started with changed rights
        SetMessageSink(&Recorder::Take, &m_messages);
    }
    void TearDown() override {
        SetMessageSink(nullptr, nullptr);
        EditorStage::TearDown();
    }

    // A change that is confirmed, and not to be saved for this cause.
    void ExpectNothingLost(const std::string& cause, const std::function<void()>& change = nullptr) {
        m_messages.texts.clear();
        EXPECT_EQ(Edit([&change](const OpenEditor& editor) {
                      editor.SetCell(1, 1, L"新");
                      if (change)
                          change();
                      const Answers answers;
                      editor.Ok();
                      EXPECT_EQ(answers.texts, Texts()) << "the dialog itself reports nothing";
                  }),
                  IDOK)
            << "it closes all the same";
        const QcDtDictionary* province = g_dictSunZone.FindDict(L"甲");
        ASSERT_NE(province, nullptr);
        EXPECT_NE(province->FindItem(L"新"), nullptr) << "what was edited stays in memory";
        EXPECT_EQ(m_messages.texts, Texts{"文件“" + (m_folder / "zone.xml").string() + "”没有保存：" + cause + "。"});
        EXPECT_TRUE(m_lines.empty());
    }
    // Once the cause is gone, the same places are saved by the next OK.
    void ExpectSavedByTheNextOk() {
        EXPECT_EQ(m_folder.Read("zone.xml"), m_before) << "the old file stands";
        m_messages.texts.clear();
        EXPECT_EQ(Edit([](const OpenEditor& editor) {
                      EXPECT_EQ(editor.Cell(1, 1), "新") << "what was edited is shown again";
                      editor.Ok();
                  }),
                  IDOK);
        EXPECT_EQ(m_messages.texts, Texts());
        EXPECT_NE(Saved()->FindDict(L"甲")->FindItem(L"新"), nullptr);
        EXPECT_EQ(m_folder.Read("zone.xml.bak"), m_before);
    }

    std::string m_before;
    Recorder m_messages;
};

}  // namespace

TEST_F(ZoneSaveFailure, OfAFileThatMayNotBeWritten) {
    const OrdinaryUser user(m_folder.Path());
    std::filesystem::permissions(m_folder / "zone.xml", perms::owner_read);
    ExpectNothingLost("没有读写权限，请修改文件和文件夹的权限再保存");
    std::filesystem::permissions(m_folder / "zone.xml", perms::owner_read | perms::owner_write);
    ExpectSavedByTheNextOk();
}

TEST_F(ZoneSaveFailure, OfAFolderThatMayNotBeWritten) {
    const OrdinaryUser user(m_folder.Path());
    std::filesystem::permissions(m_folder.Path(), perms::owner_read | perms::owner_exec);
    ExpectNothingLost("没有读写权限，请修改文件和文件夹的权限再保存");
    std::filesystem::permissions(m_folder.Path(), perms::owner_all);
    ExpectSavedByTheNextOk();
}

TEST_F(ZoneSaveFailure, OfAFullDisk) {
    {
        const FullDisk full;
        ExpectNothingLost("磁盘空间不足，请清理磁盘再保存");
    }
    ExpectSavedByTheNextOk();
}

TEST_F(ZoneSaveFailure, OfABackupThatCannotBeMade) {
    m_folder.Write("zone.xml.bak/in the way", "x");
    ExpectNothingLost("备份（.bak）的名称被文件夹占用，请移走它再保存");
    std::filesystem::remove_all(m_folder / "zone.xml.bak");
    ExpectSavedByTheNextOk();
}

// Provinces can be put under each other without an end, but not read again.
TEST_F(ZoneSaveFailure, OfProvincesThatAreNestedTooDeep) {
    constexpr int kMoreThanAFileHolds = 300;
    Edit([](const OpenEditor& editor) {
        QcUiGridTreeRow* row = &editor.Row(3);
        for (int i = 0; i < kMoreThanAFileHolds; ++i) {
            row = row->AppendChild();
            row->SetItemText(0, L"内");
        }
        editor.SetCell(1, 1, L"新");
        editor.Ok();
    });
    EXPECT_EQ(m_messages.texts,
              Texts{"文件“" + (m_folder / "zone.xml").string() + "”没有保存：内容嵌套太深或太大，请减少内容再保存。"});
    EXPECT_EQ(m_folder.Read("zone.xml"), m_before);
    EXPECT_NE(g_dictSunZone.FindDict(L"甲")->FindItem(L"新"), nullptr);
    Edit([](const OpenEditor& editor) {
        editor.grid.DeleteRow(editor.Row(3).GetChild(1));
        editor.Ok();
    });
    EXPECT_NE(Saved()->FindDict(L"甲")->FindItem(L"新"), nullptr) << "saved once they are gone";
}

// A folder of the file's name is no file of places: it counts as missing, as everywhere.
TEST_F(ZoneSaveFailure, OfAFolderInPlaceOfTheFile) {
    Edit([this](const OpenEditor& editor) {
        editor.SetCell(1, 1, L"新");
        std::filesystem::remove(m_folder / "zone.xml");
        std::filesystem::create_directory(m_folder / "zone.xml");
        editor.Ok();
    });
    EXPECT_EQ(m_messages.texts, Texts());
    ASSERT_EQ(m_lines.size(), 1U);
    EXPECT_EQ(m_lines[0], L"\n加载选项配置文件失败！未找到配置文件zone.xml。");
    EXPECT_TRUE(std::filesystem::is_empty(m_folder / "zone.xml"));
    EXPECT_NE(g_dictSunZone.FindDict(L"甲")->FindItem(L"新"), nullptr);
}

TEST_F(ZoneSaveFailure, IsToldInEnglish) {
    const EnglishInterface english;
    m_folder.Write("zone.xml.bak/in the way", "x");
    Edit([](const OpenEditor& editor) {
        editor.SetCell(1, 1, L"新");
        editor.Ok();
    });
    EXPECT_EQ(m_messages.texts,
              Texts{(m_folder / "zone.xml").string() +
                    " was not saved: a folder has the name of the backup (.bak); move it away and save again."});
}
