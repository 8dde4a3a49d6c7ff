// Writing AVI files: counts and refusals of the interface, gaps, growing into further parts, and failing disks.
#include "platform/media/AviFile.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <numeric>

#include "platform/base/Message.h"
#include "platform/media/AviWriter.h"
#include "platform/media/Dib.h"
#include "support/AviReader.h"
#include "support/FileTree.h"
#include "support/FullDisk.h"
#include "support/Recorder.h"

namespace {

constexpr UINT kCreate = OF_WRITE | OF_CREATE;
constexpr LONG kSample = 24;  // a picture of 4 x 2 pixels in 24 bits

AVISTREAMINFOW Info(DWORD rate = 10) {
    AVISTREAMINFOW info{};
    info.fccType = streamtypeVIDEO;
    info.dwScale = 1;
    info.dwRate = rate;
    info.dwSuggestedBufferSize = kSample;
    info.rcFrame = {0, 0, 4, 2};
    return info;
}

BITMAPINFOHEADER Format() {
    return {40, 4, 2, 1, 24, 0, kSample, 0, 0, 0, 0};
}

std::string Sample(int seed) {
    std::string bytes(kSample, '\0');
    std::iota(bytes.begin(), bytes.end(), static_cast<char>(seed));
    return bytes;
}

class AviFileTest : public testing::Test {
protected:
    AviFileTest() { AVIFileInit(); }
    ~AviFileTest() override { AVIFileExit(); }

    // A file that is ready for samples.
    void Open(DWORD rate = 10) {
        AVISTREAMINFOW info = Info(rate);
        BITMAPINFOHEADER format = Format();
        ASSERT_EQ(AVIFileOpenW(&m_file, m_tree.File("a.avi"), kCreate, nullptr), AVIERR_OK);
        ASSERT_EQ(AVIFileCreateStreamW(m_file, &m_stream, &info), AVIERR_OK);
        ASSERT_EQ(AVIStreamSetFormat(m_stream, 0, &format, sizeof format), AVIERR_OK);
    }
    HRESULT Write(LONG position, std::string bytes, DWORD flags = AVIIF_KEYFRAME) {
        return AVIStreamWrite(m_stream, position, 1, bytes.data(), static_cast<LONG>(bytes.size()), flags, nullptr,
                              nullptr);
    }
    AviReader Close() {
        EXPECT_EQ(AVIStreamRelease(m_stream), 0U);
        EXPECT_EQ(AVIFileRelease(m_file), 0U);
        return Read();
    }
    AviReader Read() const { return AviReader(m_tree / "a.avi"); }

    FileTree m_tree;
    PAVIFILE m_file = nullptr;
    PAVISTREAM m_stream = nullptr;
};

TEST(AviVersion, IsNewEnoughAndCanBeReplacedForTests) {
    EXPECT_GE(VideoForWindowsVersion() >> 16, 266U);
    SetVideoForWindowsVersionForTest(0x01090000);
    EXPECT_EQ(VideoForWindowsVersion(), 0x01090000U);
    SetVideoForWindowsVersionForTest(0);
    EXPECT_GE(VideoForWindowsVersion() >> 16, 266U);
}

TEST(AviVersion, FilesAreOpenedOnlyBetweenInitAndExit) {
    const FileTree tree;
    PAVIFILE file = nullptr;
    ASSERT_EQ(AviFileInitCount(), 0);
    EXPECT_LT(AVIFileOpenW(&file, tree.File("a.avi"), kCreate, nullptr), 0);
    EXPECT_FALSE(std::filesystem::exists(tree / "a.avi"));
    AVIFileInit();
    AVIFileInit();
    AVIFileExit();
    EXPECT_EQ(AviFileInitCount(), 1);
    EXPECT_EQ(AVIFileOpenW(&file, tree.File("a.avi"), kCreate, nullptr), AVIERR_OK);
    AVIFileExit();
    AVIFileExit();
    EXPECT_EQ(AviFileInitCount(), 0) << "one exit too many changes nothing";
    EXPECT_EQ(AVIFileRelease(file), 0U);
}

TEST_F(AviFileTest, HoldsItsSamplesInOrder) {
    Open();
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(Write(i, Sample(i)), AVIERR_OK);
    const AviReader avi = Close();
    EXPECT_TRUE(avi.IsAvi());
    ASSERT_EQ(avi.Samples().size(), 5U);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(avi.Samples()[static_cast<std::size_t>(i)], Sample(i));
}

TEST_F(AviFileTest, TellsWhatItWasTold) {
    Open(25);
    Write(0, Sample(1));
    const AviReader avi = Close();
    EXPECT_EQ(avi.Main(0), 40000U) << "microseconds";
    EXPECT_EQ(avi.Main(12), 0x10U) << "has an index";
    EXPECT_EQ(avi.Main(16), 1U) << "frames";
    EXPECT_EQ(avi.Main(24), 1U) << "streams";
    EXPECT_EQ(avi.Main(28), static_cast<std::uint32_t>(kSample)) << "buffer";
    EXPECT_EQ(avi.Main(32), 4U);
    EXPECT_EQ(avi.Main(36), 2U);
    EXPECT_EQ(avi.Stream(0), streamtypeVIDEO);
    EXPECT_EQ(avi.Stream(4), 0U) << "handler";
    EXPECT_EQ(avi.Stream(20), 1U) << "scale";
    EXPECT_EQ(avi.Stream(24), 25U) << "rate";
    EXPECT_EQ(avi.Stream(32), 1U) << "length";
    EXPECT_EQ(avi.Stream(36), static_cast<std::uint32_t>(kSample));
    EXPECT_EQ(avi.Stream16(52), 4U) << "right";
    EXPECT_EQ(avi.Stream16(54), 2U) << "bottom";
    BITMAPINFOHEADER format = Format();
    EXPECT_EQ(avi.Format(), std::string(reinterpret_cast<const char*>(&format), sizeof format));
}

TEST_F(AviFileTest, FillsSkippedPositionsWithEmptyChunks) {
    Open();
    EXPECT_EQ(Write(0, Sample(0)), AVIERR_OK);
    EXPECT_EQ(Write(10, Sample(1)), AVIERR_OK);
    EXPECT_EQ(Write(12, Sample(2)), AVIERR_OK);
    const AviReader avi = Close();
    const std::vector<std::string> samples = avi.Samples();
    ASSERT_EQ(samples.size(), 13U);
    for (std::size_t i = 0; i < samples.size(); ++i)
        EXPECT_EQ(samples[i], i == 0 ? Sample(0) : i == 10 ? Sample(1) : i == 12 ? Sample(2) : std::string()) << i;
    EXPECT_EQ(avi.Stream(32), 13U);
    EXPECT_EQ(avi.Main(16), 13U);
    EXPECT_EQ(avi.TotalLength(), 13U);
    EXPECT_EQ(avi.Bytes("idx1").size(), 13U * 16U);
}

TEST_F(AviFileTest, MayBeginWithAGap) {
    Open();
    EXPECT_EQ(Write(3, Sample(0)), AVIERR_OK);
    EXPECT_EQ(Close().Samples().size(), 4U);
}

TEST_F(AviFileTest, MinusOneIsTheEnd) {
    Open();
    EXPECT_EQ(Write(-1, Sample(0)), AVIERR_OK);
    EXPECT_EQ(Write(5, Sample(1)), AVIERR_OK);
    EXPECT_EQ(Write(-1, Sample(2)), AVIERR_OK);
    EXPECT_EQ(Close().Samples().size(), 7U);
}

TEST_F(AviFileTest, PadsSamplesOfOddLength) {
    Open();
    EXPECT_EQ(Write(0, "abc"), AVIERR_OK);
    EXPECT_EQ(Write(1, ""), AVIERR_OK);
    EXPECT_EQ(Write(2, "defgh"), AVIERR_OK);
    const AviReader avi = Close();
    EXPECT_EQ(avi.Samples(), (std::vector<std::string>{"abc", "", "defgh"}));
}

TEST_F(AviFileTest, SuggestsABufferForTheLargestSample) {
    Open();
    Write(0, std::string(1000, 'x'));
    Write(1, Sample(0));
    const AviReader avi = Close();
    EXPECT_EQ(avi.Stream(36), 1000U);
    EXPECT_EQ(avi.Main(28), 1000U);
}

TEST_F(AviFileTest, MarksKeysInTheIndex) {
    Open();
    Write(0, Sample(0), AVIIF_KEYFRAME);
    Write(1, Sample(1), 0);
    const std::string index = Close().Bytes("idx1");
    ASSERT_EQ(index.size(), 32U);
    EXPECT_EQ(index.substr(0, 4), "00db");
    EXPECT_EQ(index[4], 0x10);
    EXPECT_EQ(index[20], 0);
}

TEST_F(AviFileTest, SaysHowMuchWasWritten) {
    Open();
    LONG samples = -1;
    LONG bytes = -1;
    char sample[] = "ab";
    EXPECT_EQ(AVIStreamWrite(m_stream, 0, 1, sample, 2, 0, &samples, &bytes), AVIERR_OK);
    EXPECT_EQ(samples, 1);
    EXPECT_EQ(bytes, 2);
    EXPECT_LT(AVIStreamWrite(m_stream, 0, 1, sample, 2, 0, &samples, &bytes), 0);
    EXPECT_EQ(samples, 0);
    EXPECT_EQ(bytes, 0);
    Close();
}

TEST_F(AviFileTest, RefusesWhatCannotBeAppended) {
    Open();
    EXPECT_EQ(Write(0, Sample(0)), AVIERR_OK);
    EXPECT_EQ(Write(4, Sample(1)), AVIERR_OK);
    EXPECT_EQ(Write(4, Sample(2)), AVIERR_UNSUPPORTED) << "it is there already";
    EXPECT_EQ(Write(2, Sample(2)), AVIERR_UNSUPPORTED) << "a gap cannot be filled later";
    EXPECT_EQ(Write(-2, Sample(2)), AVIERR_BADPARAM);
    char sample[] = "ab";
    EXPECT_EQ(AVIStreamWrite(m_stream, 5, 2, sample, 2, 0, nullptr, nullptr), AVIERR_BADPARAM);
    EXPECT_EQ(AVIStreamWrite(m_stream, 5, 0, sample, 2, 0, nullptr, nullptr), AVIERR_BADPARAM);
    EXPECT_EQ(AVIStreamWrite(m_stream, 5, 1, sample, -1, 0, nullptr, nullptr), AVIERR_BADPARAM);
    EXPECT_EQ(AVIStreamWrite(m_stream, 5, 1, nullptr, 2, 0, nullptr, nullptr), AVIERR_BADPARAM);
    EXPECT_EQ(Write(5, Sample(3)), AVIERR_OK) << "nothing of that did any harm";
    EXPECT_EQ(Close().Samples().size(), 6U);
}

TEST_F(AviFileTest, RefusesGapsThatNoFileHolds) {
    Open();
    EXPECT_EQ(Write(0, Sample(0)), AVIERR_OK);
    const std::size_t size = Read().Size();
    EXPECT_LT(Write(0x7FFFFFFF, Sample(1)), 0);
    EXPECT_EQ(Read().Size(), size) << "nothing was written";
    EXPECT_EQ(Write(1, Sample(1)), AVIERR_OK);
    EXPECT_EQ(Close().Samples().size(), 2U);
}

TEST_F(AviFileTest, StreamsNeedAScaleAndARate) {
    ASSERT_EQ(AVIFileOpenW(&m_file, m_tree.File("a.avi"), kCreate, nullptr), AVIERR_OK);
    for (const DWORD bad : {0U, 0x80000000U, 0xFFFFFFFFU}) {
        AVISTREAMINFOW info = Info(bad);
        EXPECT_EQ(AVIFileCreateStreamW(m_file, &m_stream, &info), AVIERR_BADPARAM);
        info = Info();
        info.dwScale = bad;
        EXPECT_EQ(AVIFileCreateStreamW(m_file, &m_stream, &info), AVIERR_BADPARAM);
        EXPECT_EQ(m_stream, nullptr);
    }
    AVISTREAMINFOW sound = Info();
    sound.fccType = mmioFOURCC('a', 'u', 'd', 's');
    EXPECT_EQ(AVIFileCreateStreamW(m_file, &m_stream, &sound), AVIERR_UNSUPPORTED);
    EXPECT_EQ(AVIFileCreateStreamW(m_file, &m_stream, nullptr), AVIERR_BADPARAM);
    AVISTREAMINFOW info = Info();
    EXPECT_EQ(AVIFileCreateStreamW(m_file, &m_stream, &info), AVIERR_OK);
    PAVISTREAM second = nullptr;
    EXPECT_EQ(AVIFileCreateStreamW(m_file, &second, &info), AVIERR_UNSUPPORTED);
    EXPECT_EQ(second, nullptr);
    AVIStreamRelease(m_stream);
    AVIFileRelease(m_file);
}

TEST_F(AviFileTest, TheFormatComesBeforeTheFirstSample) {
    AVISTREAMINFOW info = Info();
    BITMAPINFOHEADER format = Format();
    ASSERT_EQ(AVIFileOpenW(&m_file, m_tree.File("a.avi"), kCreate, nullptr), AVIERR_OK);
    ASSERT_EQ(AVIFileCreateStreamW(m_file, &m_stream, &info), AVIERR_OK);
    EXPECT_EQ(Write(0, Sample(0)), AVIERR_BADFORMAT);
    EXPECT_EQ(AVIStreamSetFormat(m_stream, 1, &format, sizeof format), AVIERR_UNSUPPORTED);
    EXPECT_EQ(AVIStreamSetFormat(m_stream, 0, &format, 0), AVIERR_BADPARAM);
    EXPECT_EQ(AVIStreamSetFormat(m_stream, 0, &format, -5), AVIERR_BADPARAM);
    EXPECT_EQ(AVIStreamSetFormat(m_stream, 0, nullptr, 40), AVIERR_BADPARAM);
    EXPECT_EQ(AVIStreamSetFormat(m_stream, 0, &format, 0x10001), AVIERR_BADPARAM);
    EXPECT_EQ(AVIStreamSetFormat(m_stream, 0, &format, sizeof format), AVIERR_OK);
    EXPECT_EQ(Write(0, Sample(0)), AVIERR_OK);
    EXPECT_EQ(AVIStreamSetFormat(m_stream, 0, &format, sizeof format), AVIERR_UNSUPPORTED);
    EXPECT_EQ(Close().Samples().size(), 1U);
}

TEST_F(AviFileTest, OpensNewFilesOnly) {
    EXPECT_EQ(AVIFileOpenW(&m_file, m_tree.File("a.avi"), OF_WRITE, nullptr), AVIERR_UNSUPPORTED);
    EXPECT_EQ(AVIFileOpenW(&m_file, m_tree.File("a.avi"), 0, nullptr), AVIERR_UNSUPPORTED);
    EXPECT_EQ(AVIFileOpenW(&m_file, nullptr, kCreate, nullptr), AVIERR_BADPARAM);
    EXPECT_EQ(AVIFileOpenW(nullptr, m_tree.File("a.avi"), kCreate, nullptr), AVIERR_BADPARAM);
    EXPECT_EQ(AVIFileOpenW(&m_file, m_tree.File("nowhere/a.avi"), kCreate, nullptr), AVIERR_FILEOPEN);
    EXPECT_EQ(AVIFileOpenW(&m_file, m_tree.File("."), kCreate, nullptr), AVIERR_FILEOPEN);
    EXPECT_EQ(AVIFileOpenW(&m_file, L"", kCreate, nullptr), AVIERR_FILEOPEN);
    ASSERT_EQ(mkfifo((m_tree / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(AVIFileOpenW(&m_file, m_tree.File("pipe"), kCreate, nullptr), AVIERR_FILEOPEN) << "and does not wait";
    EXPECT_EQ(m_file, nullptr);
    EXPECT_FALSE(std::filesystem::exists(m_tree / "a.avi"));
}

TEST_F(AviFileTest, ReplacesAFileOfItsName) {
    m_tree.Write("a.avi", std::string(100000, 'x'));
    Open();
    Write(0, Sample(0));
    const AviReader avi = Close();
    EXPECT_LT(avi.Size(), 20000U);
    EXPECT_EQ(avi.Samples().size(), 1U);
}

TEST_F(AviFileTest, AFileWithoutSamplesIsAFile) {
    Open();
    const AviReader avi = Close();
    EXPECT_TRUE(avi.IsAvi());
    EXPECT_EQ(avi.Stream(32), 0U);
    EXPECT_TRUE(avi.Has("idx1"));
}

TEST_F(AviFileTest, AStreamKeepsItsFileOpen) {
    Open();
    EXPECT_EQ(AVIFileRelease(m_file), 0U);
    EXPECT_EQ(AVIFileRelease(m_file), 0U) << "once too often does nothing";
    EXPECT_EQ(Write(0, Sample(0)), AVIERR_OK);
    EXPECT_FALSE(Read().Has("idx1"));
    EXPECT_EQ(AVIStreamRelease(m_stream), 0U);
    EXPECT_EQ(AVIStreamRelease(m_stream), 0U);
    EXPECT_TRUE(Read().Has("idx1"));
    EXPECT_EQ(Write(1, Sample(0)), AVIERR_BADHANDLE);
}

TEST_F(AviFileTest, HandlesThatNameNothingAreRefused) {
    AVISTREAMINFOW info = Info();
    BITMAPINFOHEADER format = Format();
    AVICOMPRESSOPTIONS options{};
    EXPECT_EQ(AVIFileCreateStreamW(nullptr, &m_stream, &info), AVIERR_BADHANDLE);
    EXPECT_EQ(AVIStreamSetFormat(nullptr, 0, &format, 40), AVIERR_BADHANDLE);
    EXPECT_EQ(Write(0, Sample(0)), AVIERR_BADHANDLE);
    EXPECT_EQ(AVIMakeCompressedStream(&m_stream, nullptr, &options, nullptr), AVIERR_BADHANDLE);
    EXPECT_EQ(AVIStreamRelease(nullptr), 0U);
    EXPECT_EQ(AVIFileRelease(nullptr), 0U);
}

TEST_F(AviFileTest, ACompressedStreamPassesSamplesOnAndKeepsItsSource) {
    Open();
    PAVISTREAM compressed = nullptr;
    AVICOMPRESSOPTIONS options{};
    ASSERT_EQ(AVIMakeCompressedStream(&compressed, m_stream, &options, nullptr), AVIERR_OK);
    EXPECT_EQ(AVIFileRelease(m_file), 0U);
    EXPECT_EQ(AVIStreamRelease(m_stream), 0U);
    m_stream = compressed;
    EXPECT_EQ(Write(0, Sample(7)), AVIERR_OK);
    EXPECT_FALSE(Read().Has("idx1")) << "still open";
    EXPECT_EQ(AVIStreamRelease(compressed), 0U);
    EXPECT_EQ(Read().Samples(), std::vector<std::string>{Sample(7)});
    EXPECT_TRUE(Read().Has("idx1"));
}

TEST_F(AviFileTest, ThereAreNoCodecs) {
    Open();
    PAVISTREAM compressed = nullptr;
    AVICOMPRESSOPTIONS options{};
    options.fccHandler = mmioFOURCC('m', 'j', 'p', 'g');
    EXPECT_EQ(AVIMakeCompressedStream(&compressed, m_stream, &options, nullptr), AVIERR_NOCOMPRESSOR);
    EXPECT_EQ(compressed, nullptr);
    options.fccHandler = mmioFOURCC('D', 'I', 'B', ' ');
    EXPECT_EQ(AVIMakeCompressedStream(&compressed, m_stream, &options, nullptr), AVIERR_OK);
    EXPECT_EQ(AVIMakeCompressedStream(&compressed, m_stream, nullptr, nullptr), AVIERR_BADPARAM);
    EXPECT_EQ(AVIMakeCompressedStream(nullptr, m_stream, &options, nullptr), AVIERR_BADPARAM);
    Close();
}

// What another program finds when this one dies: after each sample everything so far, but for the index.
TEST_F(AviFileTest, IsReadableAfterEachSample) {
    Open();
    for (int i = 0; i < 4; ++i) {
        ASSERT_EQ(Write(3 * i, Sample(i)), AVIERR_OK);
        const AviReader avi = Read();
        ASSERT_EQ(avi.Samples().size(), static_cast<std::size_t>(3 * i + 1));
        EXPECT_EQ(avi.Samples().back(), Sample(i));
        EXPECT_EQ(avi.Stream(32), static_cast<std::uint32_t>(3 * i + 1));
        EXPECT_EQ(avi.Main(12), 0U) << "no index yet";
    }
    Close();
}

TEST_F(AviFileTest, AFullDiskLeavesTheSamplesBefore) {
    Open();
    ASSERT_EQ(Write(0, Sample(0)), AVIERR_OK);
    ASSERT_EQ(Write(2, Sample(1)), AVIERR_OK);
    const std::string before = m_tree.Read("a.avi");
    for (const std::size_t room : {std::size_t{0}, std::size_t{1}, std::size_t{8}, std::size_t{20}, std::size_t{39}}) {
        const FullDisk full(before.size() + room);
        EXPECT_EQ(Write(5, Sample(2)), AVIERR_FILEWRITE) << room;
        EXPECT_TRUE(m_tree.Read("a.avi") == before) << room;
    }
    EXPECT_EQ(Write(5, Sample(2)), AVIERR_OK) << "and goes on when there is room again";
    EXPECT_EQ(Close().Samples().size(), 6U);
}

TEST_F(AviFileTest, AFullDiskAtTheEndKeepsTheSamplesAndSaysSo) {
    Open();
    ASSERT_EQ(Write(0, Sample(0)), AVIERR_OK);
    const std::string before = m_tree.Read("a.avi");
    Recorder recorder;
    SetMessageSink(Recorder::Take, &recorder);
    {
        const FullDisk full(before.size());
        Close();
    }
    SetMessageSink(nullptr, nullptr);
    EXPECT_TRUE(m_tree.Read("a.avi") == before);
    ASSERT_EQ(recorder.texts.size(), 1U);
    EXPECT_NE(recorder.texts[0].find("a.avi"), std::string::npos);
}

// ---- Parts: the same with a part size that tests can fill. ----

class AviParts : public testing::Test {
protected:
    void Open(std::uint64_t partSize) {
        BITMAPINFOHEADER format = Format();
        ASSERT_TRUE(m_writer.Create(m_tree / "a.avi"));
        m_writer.SetInfo(Info());
        m_writer.SetPartSize(partSize);
        ASSERT_TRUE(m_writer.SetFormat(&format, sizeof format));
    }
    AviWriter::Result Write(std::uint64_t position, const std::string& bytes) {
        return m_writer.Append(position, bytes.data(), static_cast<std::uint32_t>(bytes.size()), true);
    }
    AviReader Read() const { return AviReader(m_tree / "a.avi"); }

    FileTree m_tree;
    AviWriter m_writer;
};

TEST_F(AviParts, GoOnWhenOneIsFull) {
    Open(6000);
    for (int i = 0; i < 100; ++i)
        ASSERT_EQ(Write(static_cast<std::uint64_t>(i) * 3, Sample(i)), AviWriter::Result::Done);
    ASSERT_TRUE(m_writer.Finish());
    const AviReader avi = Read();
    EXPECT_GT(avi.Parts(), 2U);
    EXPECT_TRUE(avi.Has("indx"));
    ASSERT_EQ(avi.Samples().size(), 298U);
    for (std::size_t i = 0; i < 298; ++i)
        EXPECT_EQ(avi.Samples()[i], i % 3 == 0 ? Sample(static_cast<int>(i / 3)) : std::string());
    EXPECT_EQ(avi.Stream(32), 298U);
    EXPECT_EQ(avi.TotalLength(), 298U);
    EXPECT_LT(avi.Main(16), 298U) << "the main header counts the first part";
    EXPECT_EQ(avi.Bytes("idx1").size(), 16U * avi.Main(16));
}

TEST_F(AviParts, AGapMayFillSeveral) {
    Open(6000);
    ASSERT_EQ(Write(0, Sample(0)), AviWriter::Result::Done);
    ASSERT_EQ(Write(2000, Sample(1)), AviWriter::Result::Done);
    ASSERT_TRUE(m_writer.Finish());
    const AviReader avi = Read();
    EXPECT_GT(avi.Parts(), 3U);
    ASSERT_EQ(avi.Samples().size(), 2001U);
    EXPECT_EQ(avi.Samples()[2000], Sample(1));
}

TEST_F(AviParts, ASampleLargerThanAPartHasOneOfItsOwn) {
    Open(6000);
    const std::string large(20000, 'x');
    for (std::uint64_t i = 0; i < 3; ++i)
        ASSERT_EQ(Write(i, large), AviWriter::Result::Done);
    ASSERT_TRUE(m_writer.Finish());
    EXPECT_EQ(Read().Parts(), 3U);
    EXPECT_EQ(Read().Samples(), (std::vector<std::string>{large, large, large}));
}

TEST_F(AviParts, MoreThanTheSuperIndexHoldsAreRefused) {
    Open(6000);
    EXPECT_EQ(Write(1 << 20, Sample(0)), AviWriter::Result::TooLong);
    const std::string large(7000, 'x');
    std::uint64_t position = 0;
    while (Write(position, large) == AviWriter::Result::Done)
        ++position;
    EXPECT_EQ(position, AviHeader::kMaxParts);
    ASSERT_TRUE(m_writer.Finish());
    EXPECT_EQ(Read().Samples().size(), position) << "what was written is complete";
}

TEST_F(AviParts, AFullDiskBetweenThemLeavesTheSamplesBefore) {
    Open(6000);
    std::uint64_t position = 0;
    std::string before;
    for (; Read().Parts() < 2; ++position) {
        before = m_tree.Read("a.avi");
        ASSERT_EQ(Write(position, Sample(0)), AviWriter::Result::Done);
    }
    // Once more, with every size of disk between the two states.
    const std::size_t after = m_tree.Read("a.avi").size();
    for (std::size_t size = before.size(); size < after; size += 7) {
        AviWriter writer;
        BITMAPINFOHEADER format = Format();
        ASSERT_TRUE(writer.Create(m_tree / "b.avi"));
        writer.SetInfo(Info());
        writer.SetPartSize(6000);
        ASSERT_TRUE(writer.SetFormat(&format, sizeof format));
        for (std::uint64_t i = 0; i + 1 < position; ++i)
            writer.Append(i, Sample(0).data(), kSample, true);
        {
            const FullDisk full(size);
            ASSERT_EQ(writer.Append(position - 1, Sample(0).data(), kSample, true), AviWriter::Result::Failed) << size;
        }
        ASSERT_TRUE(m_tree.Read("b.avi") == before) << size;
        ASSERT_EQ(writer.Append(position - 1, Sample(0).data(), kSample, true), AviWriter::Result::Done);
    }
}

}  // namespace
