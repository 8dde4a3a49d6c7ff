// A recorder whose disk or folder fails it: it says so, stops, touches nothing else, and Init brings it back.
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <map>

#include "Recording.h"
#include "platform/media/AviFile.h"
#include "platform/media/DeviceContext.h"
#include "platform/window/MessageBox.h"
#include "support/FullDisk.h"
#include "support/OrdinaryUser.h"

namespace {

namespace fs = std::filesystem;

class RecordingFailure : public testing::Test {
protected:
    RecordingFailure() {
        m_tree.Write("other.avi", "another recording");
        MakePicture(m_picture);
    }
    // Every file below the folder with its bytes.
    std::map<std::string, std::string> Files() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(m_tree.Path()))
            if (entry.is_regular_file())
                files[entry.path().lexically_relative(m_tree.Path()).string()] = FileBytes(entry.path());
        return files;
    }
    // Whether the object fails, and goes on failing, without anything left behind.
    void ExpectFailure(OrvoAVIFile& recorder) {
        const std::size_t blocks = LiveGlobalBlocks();
        const std::size_t contexts = LiveDeviceContexts();
        EXPECT_EQ(recorder.AddFrame(m_picture), 0);
        EXPECT_EQ(recorder.IsOK(), 0);
        EXPECT_EQ(recorder.AddFrame(m_picture), 0);
        EXPECT_EQ(LiveGlobalBlocks(), blocks);
        EXPECT_EQ(LiveDeviceContexts(), contexts);
    }
    void ExpectBack(OrvoAVIFile& recorder) {
        recorder.Init(m_tree.File("back.avi"), -1, -1, 1);
        EXPECT_EQ(recorder.IsOK(), 1);
        EXPECT_EQ(recorder.AddFrame(m_picture), 1);
        EXPECT_EQ(AviReader(m_tree / "back.avi").Samples().size(), 1U);
    }

    FileTree m_tree;
    CBitmap m_picture;
};

TEST_F(RecordingFailure, AFullDiskKeepsTheFramesBefore) {
    OrvoAVIFile recorder(m_tree.File("a.avi"), -1, -1, 2);
    ASSERT_EQ(recorder.AddFrame(m_picture), 1);
    ASSERT_EQ(recorder.AddFrame(m_picture), 1);
    const auto before = Files();
    {
        const FullDisk full(before.at("a.avi").size());
        ExpectFailure(recorder);
    }
    EXPECT_EQ(recorder.AddFrame(m_picture), 0) << "nor when there is room again";
    EXPECT_TRUE(Files() == before);
    EXPECT_EQ(AviReader(m_tree / "a.avi").Samples().size(), 3U);
    ExpectBack(recorder);
}

TEST_F(RecordingFailure, ADiskThatIsFullFromTheBeginningTakesNoFrame) {
    for (const std::uintmax_t room : {0U, 1U, 100U, 1000U, 4000U}) {
        OrvoAVIFile recorder(m_tree.File("a.avi"), -1, -1, 1);
        CBitmap large;
        MakePicture(large, 100, 100);
        {
            const FullDisk full(room);
            EXPECT_EQ(recorder.AddFrame(large), 0) << room;
            EXPECT_EQ(recorder.IsOK(), 0) << room;
        }
        EXPECT_EQ(m_tree.Read("other.avi"), "another recording");
        ExpectBack(recorder);
        fs::remove(m_tree / "a.avi");
        fs::remove(m_tree / "back.avi");
    }
}

// The toolkit does not start for a program that has changed its user.
void StartToolkit() {
    const ModalDriver driver([](const ModalWindow&) { return IDOK; });
    MessageBox(nullptr, L"text", L"caption", MB_OK);
}

TEST_F(RecordingFailure, AFolderThatMayNotBeWrittenStaysAsItIs) {
    fs::create_directory(m_tree / "closed");
    m_tree.Write("closed/there.avi", "what was there");
    ASSERT_EQ(chmod((m_tree / "closed/there.avi").c_str(), 0444), 0);
    ASSERT_EQ(chmod((m_tree / "closed").c_str(), 0555), 0);
    const auto before = Files();
    StartToolkit();
    const OrdinaryUser user(m_tree.Path());
    {
        OrvoAVIFile recorder(m_tree.File("closed/new.avi"), -1, -1, 1);
        ExpectFailure(recorder);
        EXPECT_TRUE(Files() == before);
        ExpectBack(recorder);
    }
    fs::remove(m_tree / "back.avi");
    const ModalDriver yes([](const ModalWindow&) { return 6; });
    OrvoAVIFile recorder(m_tree.File("closed/there.avi"), -1, -1, 1);
    ExpectFailure(recorder);
    EXPECT_EQ(yes.GetCount(), 1);
    EXPECT_TRUE(Files() == before);
    ExpectBack(recorder);
}

TEST_F(RecordingFailure, AFolderThatVanishedBeforeTheFirstFrameIsNotMadeAgain) {
    fs::create_directory(m_tree / "gone");
    OrvoAVIFile recorder(m_tree.File("gone/a.avi"), -1, -1, 1);
    fs::remove(m_tree / "gone");
    ExpectFailure(recorder);
    EXPECT_FALSE(fs::exists(m_tree / "gone"));
    ExpectBack(recorder);
}

TEST_F(RecordingFailure, AFolderThatVanishesDuringTheRecordingIsNotMadeAgain) {
    fs::create_directory(m_tree / "gone");
    {
        OrvoAVIFile recorder(m_tree.File("gone/a.avi"), -1, -1, 1);
        ASSERT_EQ(recorder.AddFrame(m_picture), 1);
        fs::remove_all(m_tree / "gone");
        recorder.AddFrame(m_picture);
        ExpectBack(recorder);
    }
    EXPECT_FALSE(fs::exists(m_tree / "gone"));
}

// Init sets the mark, but an interface that is too old is no better for it.
TEST_F(RecordingFailure, AnOldInterfaceWritesNothingAlsoAfterInit) {
    AVIFileInit();  // somebody else's, so that files could be made
    SetVideoForWindowsVersionForTest(0x0109FFFF);
    {
        OrvoAVIFile recorder(m_tree.File("a.avi"), -1, -1, 1);
        recorder.Init(m_tree.File("b.avi"), -1, -1, 1);
        EXPECT_EQ(recorder.IsOK(), 1);
        ExpectFailure(recorder);
    }
    SetVideoForWindowsVersionForTest(0);
    AVIFileExit();
    EXPECT_FALSE(fs::exists(m_tree / "a.avi"));
    EXPECT_FALSE(fs::exists(m_tree / "b.avi"));
}

TEST_F(RecordingFailure, AFileIsFinishedHoweverOftenAStreamWasPutBeforeIt) {
    {
        OrvoAVIFile recorder(m_tree.File("a.avi"), -1, -1, 1);
        ASSERT_EQ(recorder.AddFrame(m_picture), 1);
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(recorder.Compress(), 1);
        EXPECT_EQ(recorder.AddFrame(m_picture), 1);
    }
    const AviReader avi(m_tree / "a.avi");
    EXPECT_EQ(avi.Samples().size(), 2U);
    EXPECT_TRUE(avi.Has("idx1"));
}

}  // namespace
