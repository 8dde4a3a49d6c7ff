// The recorder: defaults, frames and their places, sizes, failures, and what it gives back.
#include "avi/OrvoAVIFile.h"

#include <sys/stat.h>

#include <QAbstractButton>
#include <type_traits>

#include "FileReferences.h"
#include "Recording.h"
#include "platform/base/Abandon.h"
#include "platform/media/DeviceContext.h"
#include "window/BoxOf.h"

namespace {

class Recording : public testing::Test {
protected:
    AviReader Read() const { return AviReader(m_tree / "a.avi"); }
    bool IsThere() const { return std::filesystem::exists(m_tree / "a.avi"); }

    FileTree m_tree;
    const CString m_name = m_tree.File("a.avi");
};

TEST(OrvoAVIFile, BeginsEmptyWithEightBits) {
    OrvoAVIFile recorder;
    EXPECT_TRUE(recorder.GetFName().IsEmpty());
    EXPECT_EQ(recorder.GetColorNum(), 8U);
    EXPECT_EQ(recorder.HasSaveOptionsDialog(), 1);
    EXPECT_EQ(recorder.GetSaveOptionsParentWnd(), nullptr);
}

TEST(OrvoAVIFile, TakesItsNameAndIsReady) {
    OrvoAVIFile recorder(L"x.avi", 4, 3, 10);
    EXPECT_TRUE(recorder.GetFName() == L"x.avi");
    EXPECT_EQ(recorder.GetColorNum(), 8U);
    EXPECT_EQ(recorder.IsOK(), 1);
    EXPECT_EQ(recorder.HasSaveOptionsDialog(), 1);
    recorder.Init(L"y.avi", 1, 1, 1);
    EXPECT_TRUE(recorder.GetFName() == L"y.avi");
}

TEST(OrvoAVIFile, KeepsWhatIsSet) {
    OrvoAVIFile recorder;
    recorder.SetColorNum(24);
    recorder.SetHasSaveOptionsDialog(0);
    const auto window = reinterpret_cast<HWND>(&recorder);
    recorder.SetSaveOptionsParentWnd(window);
    EXPECT_EQ(recorder.GetColorNum(), 24U);
    EXPECT_EQ(recorder.HasSaveOptionsDialog(), 0);
    EXPECT_EQ(recorder.GetSaveOptionsParentWnd(), window);
}

TEST(OrvoAVIFile, IsAnObject) {
    static_assert(std::is_base_of_v<CObject, OrvoAVIFile>);
    static_assert(std::has_virtual_destructor_v<OrvoAVIFile>);
    const OrvoAVIFile recorder;
    EXPECT_TRUE(recorder.IsKindOf(&CObject::classCObject));
}

TEST(OrvoAVIFile, ItsRecordingFileIsOnDriveC) {
    EXPECT_TRUE(g_sRecordFile == L"c:\\sun.avi");
}

TEST(OrvoAVIFile, MatchesInitWithExit) {
    const int before = AviFileInitCount();
    {
        const OrvoAVIFile first;
        const OrvoAVIFile second(L"x.avi", 1, 1, 1);
        EXPECT_EQ(AviFileInitCount(), before + 2);
    }
    EXPECT_EQ(AviFileInitCount(), before);
}

TEST_F(Recording, NeverWritesWithAnOldInterface) {
    AVIFileInit();  // would be matched by a recorder that does not look at the version
    SetVideoForWindowsVersionForTest(0x0109FFFF);
    {
        OrvoAVIFile recorder(m_name, 4, 3, 10);
        EXPECT_EQ(recorder.IsOK(), 0);
        EXPECT_EQ(AviFileInitCount(), 1);
        CBitmap picture;
        MakePicture(picture);
        EXPECT_EQ(recorder.AddFrame(picture), 0);
        const OrvoAVIFile empty;
        EXPECT_EQ(empty.IsOK(), 0);
    }
    EXPECT_EQ(AviFileInitCount(), 1);
    SetVideoForWindowsVersionForTest(0x010A0000);
    EXPECT_EQ(OrvoAVIFile(m_name, 4, 3, 10).IsOK(), 1) << "266 is enough";
    SetVideoForWindowsVersionForTest(0);
    AVIFileExit();
    EXPECT_FALSE(IsThere());
}

TEST_F(Recording, MakesTheFileWithTheFirstFrame) {
    OrvoAVIFile recorder(m_name, -1, -1, 10);
    EXPECT_FALSE(IsThere());
    CBitmap picture;
    MakePicture(picture);
    EXPECT_EQ(recorder.AddFrame(picture), 1);
    EXPECT_TRUE(IsThere());
    EXPECT_EQ(recorder.IsOK(), 1);
}

TEST_F(Recording, PlacesEachFrameARateBehindTheOneBefore) {
    {
        OrvoAVIFile recorder(m_name, 4, 3, 10);
        recorder.SetColorNum(24);
        for (int i = 0; i < 3; ++i) {
            CBitmap picture;
            MakePicture(picture, 4, 3, i);
            EXPECT_EQ(recorder.AddFrame(picture), 1);
        }
    }
    const std::vector<std::string> samples = Read().Samples();
    ASSERT_EQ(samples.size(), 21U);
    for (std::size_t i = 0; i < samples.size(); ++i)
        EXPECT_EQ(samples[i].empty(), i % 10 != 0) << i;
    EXPECT_NE(samples[0], samples[10]);
    const std::string index = Read().Bytes("idx1");
    for (const std::size_t i : {0U, 10U, 20U})
        EXPECT_EQ(index[16 * i + 4], 0x10) << "every frame is a key";
}

TEST_F(Recording, FillsTheStreamsHeader) {
    {
        OrvoAVIFile recorder(m_name, 5, 3, 25);
        CBitmap picture;
        MakePicture(picture, 5, 3);
        EXPECT_EQ(recorder.AddFrame(picture), 1);
    }
    const AviReader avi = Read();
    EXPECT_EQ(avi.Stream(0), streamtypeVIDEO);
    EXPECT_EQ(avi.Stream(4), 0U);
    EXPECT_EQ(avi.Stream(20), 1U);
    EXPECT_EQ(avi.Stream(24), 25U);
    EXPECT_EQ(avi.Stream(36), 24U) << "8 bits: three rows of 8 bytes";
    EXPECT_EQ(avi.Stream16(48), 0);
    EXPECT_EQ(avi.Stream16(50), 0);
    EXPECT_EQ(avi.Stream16(52), 5);
    EXPECT_EQ(avi.Stream16(54), 3);
}

// Header and colour table of each depth, and rows of whole words.
TEST_F(Recording, WritesEveryDepth) {
    for (const UINT bits : {1U, 4U, 8U, 16U, 24U, 32U}) {
        {
            OrvoAVIFile recorder(m_name, -1, -1, 1);
            recorder.SetColorNum(bits);
            CBitmap picture;
            MakePicture(picture, 5, 3);
            ASSERT_EQ(recorder.AddFrame(picture), 1) << bits;
        }
        const AviReader avi = Read();
        const std::size_t entries = bits <= 8 ? std::size_t{1} << bits : 0;
        const std::size_t row = (5 * bits + 31) / 32 * 4;
        ASSERT_EQ(avi.Format().size(), 40 + 4 * entries) << bits;
        BITMAPINFOHEADER header;
        std::memcpy(&header, avi.Format().data(), sizeof header);
        EXPECT_EQ(header.biSize, 40U);
        EXPECT_EQ(header.biWidth, 5);
        EXPECT_EQ(header.biHeight, 3);
        EXPECT_EQ(header.biPlanes, 1);
        EXPECT_EQ(header.biBitCount, bits);
        EXPECT_EQ(header.biCompression, 0U);
        EXPECT_EQ(header.biSizeImage, row * 3);
        EXPECT_EQ(header.biClrUsed, entries);
        EXPECT_EQ(header.biClrImportant, 0U);
        ASSERT_EQ(avi.Samples().size(), 1U);
        EXPECT_EQ(avi.Samples()[0].size(), row * 3);
        std::filesystem::remove(m_tree / "a.avi");
    }
}

TEST_F(Recording, Stores24BitRowsFromTheBottomUp) {
    {
        OrvoAVIFile recorder(m_name, -1, -1, 1);
        recorder.SetColorNum(24);
        const DWORD pixels[] = {0x010203, 0x040506, 0x070809, 0x0A0B0C};  // two rows of two
        CBitmap picture;
        ASSERT_TRUE(picture.CreateBitmap(2, 2, 1, 32, pixels));
        ASSERT_EQ(recorder.AddFrame(picture), 1);
    }
    EXPECT_EQ(Read().Samples()[0], std::string("\x09\x08\x07\x0C\x0B\x0A\0\0\x03\x02\x01\x06\x05\x04\0\0", 16));
}

TEST_F(Recording, AFrameOfAnotherSizeIsPassedOverAndTheRecordingGoesOn) {
    {
        OrvoAVIFile recorder(m_name, 4, 3, 2);
        CBitmap right;
        CBitmap wide;
        CBitmap high;
        MakePicture(right);
        MakePicture(wide, 5, 3);
        MakePicture(high, 4, 4);
        EXPECT_EQ(recorder.AddFrame(wide), 0) << "the size was given";
        EXPECT_FALSE(IsThere());
        EXPECT_EQ(recorder.AddFrame(right), 1);
        EXPECT_EQ(recorder.AddFrame(wide), 0);
        EXPECT_EQ(recorder.AddFrame(high), 0);
        EXPECT_EQ(recorder.IsOK(), 1);
        EXPECT_EQ(recorder.AddFrame(right), 1);
    }
    EXPECT_EQ(Read().Samples().size(), 3U);
}

TEST_F(Recording, TheFirstFrameDecidesASizeThatIsFree) {
    OrvoAVIFile recorder(m_name, -1, -5, 2);
    CBitmap first;
    CBitmap other;
    MakePicture(first, 7, 2);
    MakePicture(other, 7, 3);
    EXPECT_EQ(recorder.AddFrame(first), 1);
    EXPECT_EQ(recorder.AddFrame(other), 0);
    EXPECT_EQ(recorder.AddFrame(first), 1);
}

TEST_F(Recording, OneSideMayBeFree) {
    OrvoAVIFile recorder(m_name, 7, -1, 2);
    CBitmap wrong;
    CBitmap right;
    MakePicture(wrong, 6, 2);
    MakePicture(right, 7, 9);
    EXPECT_EQ(recorder.AddFrame(wrong), 0);
    EXPECT_EQ(recorder.AddFrame(right), 1);
}

TEST_F(Recording, ASideOfNothingFitsNoPicture) {
    CBitmap picture;
    MakePicture(picture, 7, 2);
    OrvoAVIFile flat(m_name, 7, 0, 2);
    EXPECT_EQ(flat.AddFrame(picture), 0) << "only a negative height is free";
    OrvoAVIFile narrow(m_name, 0, 2, 2);
    EXPECT_EQ(narrow.AddFrame(picture), 0) << "only a negative width is free";
    EXPECT_EQ(flat.IsOK() + narrow.IsOK(), 2);
    EXPECT_FALSE(IsThere());
}

// Whoever plays the file while it grows, or after the program has died, finds what was recorded up to then.
TEST_F(Recording, TheHeaderFitsAfterEachFrame) {
    OrvoAVIFile recorder(m_name, 4, 3, 10);
    CBitmap picture;
    MakePicture(picture);
    for (std::uint32_t frame = 0; frame < 3; ++frame) {
        ASSERT_EQ(recorder.AddFrame(picture), 1);
        const AviReader avi = Read();
        const std::uint32_t length = 10 * frame + 1;  // ten positions from frame to frame
        EXPECT_EQ(avi.Samples().size(), length);
        EXPECT_EQ(avi.Main(16), length) << "frames in the file";
        EXPECT_EQ(avi.Stream(32), length) << "the stream's length";
    }
}

TEST_F(Recording, ABitmapThatIsNoneIsNoFailureOfTheFile) {
    OrvoAVIFile recorder(m_name, -1, -1, 2);
    CBitmap none;
    EXPECT_EQ(recorder.AddFrame(none), 0);
    EXPECT_EQ(recorder.IsOK(), 1);
    EXPECT_FALSE(IsThere());
}

TEST_F(Recording, AFileThatCannotBeMadeEndsItUntilInit) {
    const CString nowhere = m_tree.File("nowhere/a.avi");
    CBitmap picture;
    MakePicture(picture);
    OrvoAVIFile recorder(nowhere, -1, -1, 2);
    EXPECT_EQ(recorder.AddFrame(picture), 0);
    EXPECT_EQ(recorder.IsOK(), 0);
    std::filesystem::create_directory(m_tree / "nowhere");
    EXPECT_EQ(recorder.AddFrame(picture), 0) << "not even when it could be made now";
    EXPECT_FALSE(std::filesystem::exists(m_tree / "nowhere/a.avi"));
    recorder.Init(nowhere, -1, -1, 2);
    EXPECT_EQ(recorder.IsOK(), 1);
    EXPECT_EQ(recorder.AddFrame(picture), 1);
    EXPECT_TRUE(std::filesystem::exists(m_tree / "nowhere/a.avi"));
}

TEST_F(Recording, ARateThatIsNoneFails) {
    for (const int rate : {0, -1, -2147483647 - 1}) {
        OrvoAVIFile recorder(m_name, -1, -1, rate);
        CBitmap picture;
        MakePicture(picture);
        EXPECT_EQ(recorder.AddFrame(picture), 0) << rate;
        EXPECT_EQ(recorder.IsOK(), 0);
        std::filesystem::remove(m_tree / "a.avi");
    }
}

TEST_F(Recording, AGapThatNoFileHoldsFails) {
    OrvoAVIFile recorder(m_name, -1, -1, 2147483647);
    CBitmap picture;
    MakePicture(picture);
    EXPECT_EQ(recorder.AddFrame(picture), 1);
    EXPECT_EQ(recorder.AddFrame(picture), 0);
    EXPECT_EQ(recorder.IsOK(), 0);
    EXPECT_EQ(Read().Samples().size(), 1U) << "the first one stays";
}

TEST_F(Recording, InitFinishesTheRecordingBeforeWithTheNextFile) {
    CBitmap picture;
    MakePicture(picture);
    OrvoAVIFile recorder(m_name, -1, -1, 1);
    EXPECT_EQ(recorder.AddFrame(picture), 1);
    EXPECT_EQ(recorder.AddFrame(picture), 1);
    recorder.Init(m_tree.File("b.avi"), -1, -1, 1);
    EXPECT_EQ(recorder.AddFrame(picture), 1);
    EXPECT_TRUE(Read().Has("idx1"));
    EXPECT_EQ(Read().Samples().size(), 2U);
    EXPECT_EQ(AviReader(m_tree / "b.avi").Samples().size(), 1U);
}

TEST_F(Recording, CompressGivesUpOneReferenceAndGoesOn) {
    {
        OrvoAVIFile recorder(m_name, -1, -1, 1);
        int before = AviFileReleases();
        EXPECT_EQ(recorder.Compress(), 0) << "there is no stream yet";
        EXPECT_EQ(AviFileReleases(), before) << "nor anything to give up";
        CBitmap picture;
        MakePicture(picture);
        EXPECT_EQ(recorder.AddFrame(picture), 1);
        before = AviFileReleases();
        EXPECT_EQ(recorder.Compress(), 1);
        EXPECT_EQ(AviFileReleases(), before + 1);
        EXPECT_EQ(ReferencesLeft(), 0U) << "the file was opened once";
        EXPECT_EQ(recorder.AddFrame(picture), 1);
        EXPECT_EQ(AviFileReleases(), before + 1);
    }
    EXPECT_EQ(Read().Samples().size(), 2U);
    EXPECT_TRUE(Read().Has("idx1")) << "released once more by the destructor, it was finished all the same";
}

TEST_F(Recording, LeavesNoBlockBitmapOrContextBehind) {
    const std::size_t blocks = LiveGlobalBlocks();
    const std::size_t bitmaps = LiveBitmaps();
    const std::size_t contexts = LiveDeviceContexts();
    m_tree.Write("good.bmp", SmallBmp());
    m_tree.Write("bad.bmp", "BM and nothing else");
    {
        OrvoAVIFile recorder(m_name, -1, -1, 1);
        CBitmap picture;
        CBitmap other;
        MakePicture(picture);
        MakePicture(other, 9, 9);
        recorder.AddFrame(picture);
        recorder.AddFrame(other);
        recorder.AddFrame(m_tree.File("good.bmp"));
        recorder.AddFrame(m_tree.File("bad.bmp"));
        OrvoAVIFile failing(m_tree.File("nowhere/a.avi"), -1, -1, 1);
        failing.AddFrame(picture);
    }
    EXPECT_EQ(LiveGlobalBlocks(), blocks);
    EXPECT_EQ(LiveBitmaps(), bitmaps);
    EXPECT_EQ(LiveDeviceContexts(), contexts);
}

// ---- Files as frames. ----

TEST_F(Recording, AddsABmpFile) {
    m_tree.Write("1.bmp", SmallBmp());
    {
        OrvoAVIFile recorder(m_name, -1, -1, 1);
        recorder.SetColorNum(24);
        EXPECT_EQ(recorder.AddFrame(m_tree.File("1.bmp")), 1);
    }
    EXPECT_EQ(Read().Samples(), std::vector<std::string>{SmallBmp().substr(54)});
}

TEST_F(Recording, APathWithoutAFileGivesNothing) {
    OrvoAVIFile recorder(m_name, -1, -1, 1);
    EXPECT_EQ(recorder.AddFrame(m_tree.File("nowhere.bmp")), 0);
    EXPECT_EQ(recorder.AddFrame(QcStringW()), 0);
    EXPECT_EQ(recorder.IsOK(), 1);
}

TEST_F(Recording, AFileThatIsNoPictureGivesOneAndWritesNothing) {
    m_tree.Write("text.bmp", "just a text");
    OrvoAVIFile recorder(m_name, -1, -1, 1);
    EXPECT_EQ(recorder.AddFrame(m_tree.File("text.bmp")), 1);
    EXPECT_EQ(recorder.AddFrame(m_tree.File("")), 1) << "a folder exists too";
    EXPECT_FALSE(IsThere());
}

TEST_F(Recording, AFileGivesOneAlsoWhenNothingCanBeAdded) {
    m_tree.Write("1.bmp", SmallBmp());
    OrvoAVIFile sized(m_name, 9, 9, 1);
    EXPECT_EQ(sized.AddFrame(m_tree.File("1.bmp")), 1) << "another size";
    OrvoAVIFile failing(m_tree.File("nowhere/a.avi"), -1, -1, 1);
    EXPECT_EQ(failing.AddFrame(m_tree.File("1.bmp")), 1);
    EXPECT_EQ(failing.IsOK(), 0);
    EXPECT_EQ(failing.AddFrame(m_tree.File("1.bmp")), 1) << "and once it has failed";
}

TEST_F(Recording, ADerivedRecorderMayWriteFramesItself) {
    class Counting : public OrvoAVIFile {
    public:
        using OrvoAVIFile::AddFrame;
        BOOL AddFrame(CBitmap& bitmap) override {
            BITMAP information{};
            bitmap.GetBitmap(&information);
            widths.push_back(information.bmWidth);
            return 0;
        }
        std::vector<LONG> widths;
    };
    m_tree.Write("1.bmp", SmallBmp(6, 2));
    Counting recorder;
    OrvoAVIFile& base = recorder;
    EXPECT_EQ(base.AddFrame(m_tree.File("1.bmp")), 1);
    EXPECT_EQ(recorder.widths, std::vector<LONG>{6});
}

// A path by units of either width: pairs of surrogates are one character, and a half of one is U+FFFD.
TEST_F(Recording, FindsFilesWhateverCharactersTheirNamesHold) {
    const wchar_t pair[] = {static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00), 0};
    const wchar_t low[] = {static_cast<wchar_t>(0xDE00), 0};
    const wchar_t high[] = {static_cast<wchar_t>(0xD83D), L'x', 0};
    const std::pair<CString, std::string> names[] = {
        {L"日照 ä", "日照 ä"},   {L"\U0001F600", "\xF0\x9F\x98\x80"}, {pair, "\xF0\x9F\x98\x80"}, {low, "\xEF\xBF\xBD"},
        {high, "\xEF\xBF\xBDx"},
    };
    CBitmap picture;
    MakePicture(picture);
    for (const auto& [text, bytes] : names) {
        m_tree.Write(bytes, "what was there");
        int asked = 0;
        const ModalDriver driver([&asked](const ModalWindow&) {
            ++asked;
            return 7;  // No
        });
        OrvoAVIFile recorder(m_tree.File("") + text, -1, -1, 1);
        EXPECT_EQ(recorder.AddFrame(picture), 0) << bytes;
        EXPECT_EQ(asked, 1) << bytes;
        EXPECT_EQ(m_tree.Read(bytes), "what was there") << bytes;
        EXPECT_EQ(recorder.AddFrame(m_tree.File("") + text), 1) << bytes;
        std::filesystem::remove(m_tree / bytes);
        EXPECT_EQ(recorder.AddFrame(m_tree.File("") + text), 0) << bytes << " is gone";
    }
}

// ---- The question. ----

class ExistingFile : public Recording {
protected:
    ExistingFile() {
        m_tree.Write("a.avi", "what was there");
        MakePicture(m_picture);
    }
    CBitmap m_picture;
};

TEST_F(ExistingFile, IsAskedForInTheseWords) {
    OrvoAVIFile recorder(m_name, -1, -1, 1);
    int windowOwner = 0;
    recorder.SetSaveOptionsParentWnd(reinterpret_cast<HWND>(&windowOwner));
    ModalWindow asked;
    QStringList buttons;
    const ModalDriver driver([&](const ModalWindow& window) {
        asked = window;
        for (const QAbstractButton* button : BoxOf(window)->buttons())
            buttons << button->objectName();
        return 7;
    });
    recorder.AddFrame(m_picture);
    EXPECT_TRUE(asked.text == m_name + L" 文件已经存在，是否录像并替换此文件?") << ToUtf8(asked.text.View());
    EXPECT_TRUE(asked.caption == L"自动录像");
    buttons.sort();
    EXPECT_EQ(buttons, (QStringList{"ID_6", "ID_7"})) << "Yes and No";
    EXPECT_EQ(asked.owner, reinterpret_cast<HWND>(&windowOwner));
}

TEST_F(ExistingFile, StaysWithAnyAnswerButYes) {
    OrvoAVIFile recorder(m_name, -1, -1, 1);
    for (const int answer : {7, 2, 1, 77}) {
        const ModalDriver driver([&](const ModalWindow&) { return answer; });
        EXPECT_EQ(recorder.AddFrame(m_picture), 0);
        EXPECT_EQ(driver.GetCount(), 1) << "the next frame asks again";
        EXPECT_EQ(recorder.IsOK(), 1);
        EXPECT_EQ(m_tree.Read("a.avi"), "what was there");
    }
    const ModalDriver yes([](const ModalWindow&) { return 6; });
    EXPECT_EQ(recorder.AddFrame(m_picture), 1);
    EXPECT_EQ(recorder.AddFrame(m_picture), 1);
    EXPECT_EQ(yes.GetCount(), 1) << "asked for the first frame only";
}

TEST_F(ExistingFile, StaysWhereNobodyCanAnswer) {
    OrvoAVIFile recorder(m_name, -1, -1, 1);
    EXPECT_EQ(recorder.AddFrame(m_picture), 0);
    EXPECT_EQ(m_tree.Read("a.avi"), "what was there");
}

TEST_F(ExistingFile, IsReplacedAfterYes) {
    {
        const ModalDriver yes([](const ModalWindow&) { return 6; });
        OrvoAVIFile recorder(m_name, -1, -1, 1);
        EXPECT_EQ(recorder.AddFrame(m_picture), 1);
    }
    EXPECT_EQ(Read().Samples().size(), 1U);
}

TEST_F(ExistingFile, ANoFixesTheSizeAndKeepsThePicture) {
    const ModalDriver no([](const ModalWindow&) { return 7; });
    OrvoAVIFile recorder(m_name, -1, -1, 1);
    const std::size_t blocks = LiveGlobalBlocks();
    const std::size_t abandoned = AbandonedCount();
    EXPECT_EQ(recorder.AddFrame(m_picture), 0);
    EXPECT_EQ(LiveGlobalBlocks(), blocks + 1);
    EXPECT_EQ(AbandonedCount(), abandoned + 1);
    std::filesystem::remove(m_tree / "a.avi");
    CBitmap other;
    MakePicture(other, 8, 8);
    EXPECT_EQ(recorder.AddFrame(other), 0) << "the refused frame's size holds";
    EXPECT_EQ(recorder.AddFrame(m_picture), 1);
}

TEST_F(ExistingFile, AFolderCountsAndStays) {
    std::filesystem::remove(m_tree / "a.avi");
    std::filesystem::create_directory(m_tree / "a.avi");
    int questions = 0;
    const ModalDriver yes([&](const ModalWindow&) {
        ++questions;
        return 6;
    });
    OrvoAVIFile recorder(m_name, -1, -1, 1);
    EXPECT_EQ(recorder.AddFrame(m_picture), 0);
    EXPECT_EQ(questions, 1);
    EXPECT_EQ(recorder.IsOK(), 0);
    EXPECT_TRUE(std::filesystem::is_directory(m_tree / "a.avi"));
}

// Somebody may be reading at the other end.
TEST_F(ExistingFile, APipeCountsAndStays) {
    std::filesystem::remove(m_tree / "a.avi");
    ASSERT_EQ(mkfifo((m_tree / "a.avi").c_str(), 0600), 0);
    int questions = 0;
    const ModalDriver yes([&](const ModalWindow&) {
        ++questions;
        return 6;
    });
    OrvoAVIFile recorder(m_name, -1, -1, 1);
    EXPECT_EQ(recorder.AddFrame(m_picture), 0);
    EXPECT_EQ(questions, 1);
    EXPECT_EQ(recorder.IsOK(), 0);
    EXPECT_TRUE(std::filesystem::is_fifo(m_tree / "a.avi"));
}

TEST_F(ExistingFile, ALinkThatLeadsNowhereCountsToo) {
    std::filesystem::remove(m_tree / "a.avi");
    std::filesystem::create_symlink("nowhere", m_tree / "a.avi");
    const ModalDriver no([](const ModalWindow&) { return 7; });
    OrvoAVIFile recorder(m_name, -1, -1, 1);
    EXPECT_EQ(recorder.AddFrame(m_picture), 0);
    EXPECT_EQ(no.GetCount(), 1);
}

}  // namespace
