// Saving: the bytes come back, in one step, with the version before kept.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "DrawingText.h"
#include "platform/base/Message.h"
#include "platform/base/Support.h"
#include "support/FullDisk.h"
#include "support/OrdinaryUser.h"
#include "support/Recorder.h"

namespace fs = std::filesystem;

namespace {

void Mark(OpenDrawing& drawing) {
    std::vector<DxfGroup> groups = drawing.Groups(drawing.database.GetEntityId(0));
    groups.push_back({1000, "mark"});
    ASSERT_TRUE(drawing.database.SetGroups(drawing.database.GetEntityId(0), groups));
}

}  // namespace

TEST(DxfSave, GivesBackEveryByte) {
    const std::string small = SmallDrawing();
    std::string dos;
    for (const char c : small)
        dos += c == '\n' ? std::string("\r\n") : std::string(1, c);
    const std::string texts[] = {small,
                                 dos,
                                 small + "trailing\n\x01\x02garbage",
                                 small.substr(0, small.size() - 1),
                                 "\xEF\xBB\xBF" + small,
                                 "999\n  a comment\n" + dos,
                                 "0\nEOF",
                                 Section("ENTITIES", "\t 0 \nX\n +8\r\n\xFF\xFE\n") + "999\n\n" + DrawingOf("")};
    for (const std::string& text : texts)
        EXPECT_EQ(OpenDrawing(text).Saved(), text);
}

TEST(DxfSave, TellsWhatIsModified) {
    OpenDrawing drawing(SmallDrawing());
    EXPECT_FALSE(drawing.database.IsModified());
    Mark(drawing);
    EXPECT_TRUE(drawing.database.IsModified());
    const std::string saved = drawing.Saved();
    EXPECT_FALSE(drawing.database.IsModified());
    EXPECT_NE(saved, SmallDrawing());
    EXPECT_EQ(drawing.Saved(), saved) << "the change is still there";
    Mark(drawing);
    ASSERT_EQ(drawing.database.dxfIn(drawing.files.File("drawing.dxf")), Acad::eOk);
    EXPECT_FALSE(drawing.database.IsModified());
    EXPECT_EQ(drawing.Saved(), SmallDrawing());
}

TEST(DxfSave, KeepsTheVersionBeforeWithItsPermissionsAndLinks) {
    OpenDrawing drawing(SmallDrawing());
    fs::permissions(drawing.files / "drawing.dxf", fs::perms(0640));
    fs::create_symlink("drawing.dxf", drawing.files / "link.dxf");
    Mark(drawing);
    ASSERT_EQ(drawing.database.dxfOut(drawing.files.File("link.dxf")), Acad::eOk);
    EXPECT_EQ(drawing.files.Read("drawing.dxf.bak"), SmallDrawing());
    EXPECT_EQ(drawing.files.Read("drawing.dxf"), drawing.Saved());
    EXPECT_TRUE(fs::is_symlink(drawing.files / "link.dxf"));
    EXPECT_EQ(fs::status(drawing.files / "drawing.dxf").permissions(), fs::perms(0640));
}

TEST(DxfSave, LeavesAFileAloneThatHoldsTheSameBytes) {
    OpenDrawing drawing(SmallDrawing());
    struct stat before = {};
    struct stat after = {};
    ASSERT_EQ(stat((drawing.files / "drawing.dxf").c_str(), &before), 0);
    ASSERT_EQ(drawing.database.dxfOut(drawing.files.File("drawing.dxf")), Acad::eOk);
    ASSERT_EQ(stat((drawing.files / "drawing.dxf").c_str(), &after), 0);
    EXPECT_EQ(before.st_ino, after.st_ino);
    EXPECT_FALSE(fs::exists(drawing.files / "drawing.dxf.bak"));
}

TEST(DxfSave, KeepsTheOldFileWhenTheDiskIsFull) {
    OpenDrawing drawing(SmallDrawing());
    Mark(drawing);
    CString message;
    {
        const FullDisk full(100);
        EXPECT_EQ(drawing.database.dxfOut(drawing.files.File("drawing.dxf"), &message), Acad::eFileAccessErr);
    }
    EXPECT_EQ(ToUtf8(message.View()),
              "文件“" + (drawing.files / "drawing.dxf").string() + "”没有保存：磁盘空间不足，请清理磁盘再保存。");
    EXPECT_EQ(drawing.files.Read("drawing.dxf"), SmallDrawing());
    EXPECT_TRUE(drawing.database.IsModified());
    EXPECT_EQ(drawing.database.dxfOut(drawing.files.File("drawing.dxf"), &message), Acad::eOk);
    EXPECT_TRUE(message.IsEmpty());
}

TEST(DxfSave, FailsWhereThereIsNothingToWriteTo) {
    OpenDrawing drawing(SmallDrawing());
    fs::create_directory(drawing.files / "folder");
    CString message;
    EXPECT_EQ(drawing.database.dxfOut(drawing.files.File("folder"), &message), Acad::eFileAccessErr);
    EXPECT_EQ(drawing.database.dxfOut(drawing.files.File("none/x.dxf"), &message), Acad::eFileAccessErr);
    EXPECT_EQ(drawing.database.dxfOut(L"", &message), Acad::eInvalidInput);
    EXPECT_EQ(ToUtf8(message.View()), "没有给出图形文件名。");
    EXPECT_EQ(drawing.database.dxfOut(nullptr, &message), Acad::eInvalidInput);
    drawing.files.Write("closed/x.dxf", "old");
    fs::permissions(drawing.files / "closed", fs::perms(0500));
    const OrdinaryUser user(drawing.files.Path());
    EXPECT_EQ(drawing.database.dxfOut(drawing.files.File("closed/x.dxf"), &message), Acad::eFileAccessErr);
    EXPECT_EQ(drawing.files.Read("closed/x.dxf"), "old");
}

TEST(DxfSave, RefusesTheInstalledDataFolder) {
    OpenDrawing drawing(SmallDrawing());
    CString message;
    const CString path = InstalledDataFolder() + L"/drawing.dxf";
    EXPECT_EQ(drawing.database.dxfOut(path, &message), Acad::eFileAccessErr);
    EXPECT_EQ(message, CString(L"安装文件夹中的文件不能改写：") + path);
    EXPECT_FALSE(fs::exists(ToUtf8(path.View())));
}

TEST(DxfSave, HasNothingToSaveWithoutADrawing) {
    const FileTree files;
    AcDbDatabase database;
    CString message;
    EXPECT_EQ(database.dxfOut(files.File("x.dxf"), &message), Acad::eInvalidInput);
    EXPECT_EQ(ToUtf8(message.View()), "没有可以保存的图形。");
    EXPECT_FALSE(fs::exists(files / "x.dxf"));
}

TEST(DxfSave, ReportsItsMessageWhenNobodyTakesIt) {
    const FileTree files;
    AcDbDatabase database;
    Recorder recorder;
    SetMessageSink(&Recorder::Take, &recorder);
    CString message;
    database.dxfOut(files.File("x.dxf"), &message);
    EXPECT_TRUE(recorder.texts.empty());
    database.dxfOut(files.File("x.dxf"));
    database.dxfIn(files.File("x.dxf"));
    SetMessageSink(nullptr, nullptr);
    ASSERT_EQ(recorder.texts.size(), 2U);
    EXPECT_EQ(recorder.texts[0], "没有可以保存的图形。");
    EXPECT_EQ(recorder.texts[1], "无法读取图形文件“" + (files / "x.dxf").string() + "”：No such file or directory。");
}
