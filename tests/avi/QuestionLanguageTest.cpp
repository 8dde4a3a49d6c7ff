// The recorder's question in another language.
#include "Recording.h"
#include "support/TableSwitch.h"

namespace {

TEST(RecordingQuestion, IsTranslatedWithItsCaption) {
    const TableSwitch english(
        {{L"%s 文件已经存在，是否录像并替换此文件?", L"Replace %s?"}, {L"自动录像", L"Recording"}});
    const FileTree tree;
    tree.Write("a.avi", "what was there");
    CBitmap picture;
    MakePicture(picture);
    OrvoAVIFile recorder(tree.File("a.avi"), -1, -1, 1);
    ModalWindow asked;
    const ModalDriver driver([&](const ModalWindow& window) {
        asked = window;
        return 7;
    });
    recorder.AddFrame(picture);
    EXPECT_TRUE(asked.text == L"Replace " + tree.File("a.avi") + L"?");
    EXPECT_TRUE(asked.caption == L"Recording");
}

TEST(RecordingQuestion, ATranslationThatAsksForOtherValuesIsPassedOver) {
    const TableSwitch broken({{L"%s 文件已经存在，是否录像并替换此文件?", L"Replace %d %s?"}});
    const FileTree tree;
    tree.Write("a.avi", "what was there");
    CBitmap picture;
    MakePicture(picture);
    OrvoAVIFile recorder(tree.File("a.avi"), -1, -1, 1);
    CString text;
    const ModalDriver driver([&](const ModalWindow& window) {
        text = window.text;
        return 7;
    });
    recorder.AddFrame(picture);
    EXPECT_TRUE(text == tree.File("a.avi") + L" 文件已经存在，是否录像并替换此文件?");
}

}  // namespace
