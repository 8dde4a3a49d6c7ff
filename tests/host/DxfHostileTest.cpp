// Files that are no sound drawings: a message with the file and the line, and the drawing before stays.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <random>

#include "DrawingText.h"
#include "support/OrdinaryUser.h"

using namespace std::string_literals;

namespace {

namespace fs = std::filesystem;

// Tries texts on one database that holds a drawing.
class Victim {
public:
    Victim()
        : m_drawing(SmallDrawing()), m_id(m_drawing.database.GetEntityId(3)), m_path(m_drawing.files.File("bad.dxf")) {}

    // The status; when it is a refusal, the drawing before must still be there.
    Acad::ErrorStatus Try(std::string_view text) {
        m_drawing.files.Write("bad.dxf", text);
        return TryFile(m_path);
    }
    Acad::ErrorStatus TryFile(const CString& path) {
        AcDbDatabase& database = m_drawing.database;
        const Acad::ErrorStatus status = database.dxfIn(path, &m_message);
        EXPECT_EQ(status == Acad::eOk, m_message.IsEmpty());
        if (status == Acad::eOk) {
            Walk();
            EXPECT_EQ(database.dxfIn(m_drawing.files.File("drawing.dxf")), Acad::eOk);
            m_id = database.GetEntityId(3);
        } else {
            EXPECT_EQ(database.GetHandle(m_id), 0x1AFU);
        }
        return status;
    }
    std::string Message() const { return ToUtf8(m_message.View()); }
    std::string Path() const { return ToUtf8(m_path.View()); }
    FileTree& Files() { return m_drawing.files; }

    // The message of an unsound file in UTF-8.
    std::string Expected(int line, const std::string& cause) const {
        return "图形文件“" + Path() + "”第 " + std::to_string(line) + " 行有错：" + cause + "。";
    }
    int Line() const {
        const std::string text = Message();
        const std::size_t at = text.find("”第 ");
        return at == std::string::npos ? 0 : std::atoi(text.c_str() + at + std::string("”第 ").size());
    }

private:
    // Everything that can be asked of a drawing.
    void Walk() {
        AcDbDatabase& database = m_drawing.database;
        for (std::size_t i = 0; i < database.GetEntityCount(); ++i) {
            const AcDbObjectId id = database.GetEntityId(i);
            std::vector<DxfGroup> groups;
            ASSERT_TRUE(database.GetGroups(id, groups));
            ASSERT_FALSE(groups.empty());
            if (const std::uint64_t handle = database.GetHandle(id))
                ASSERT_FALSE(database.FindHandle(handle).isNull());
            for (const DxfGroup& group : groups)
                database.Decode(group.value);
        }
        ASSERT_EQ(database.dxfOut(m_drawing.files.File("back.dxf")), Acad::eOk);
        ASSERT_EQ(m_drawing.files.Read("back.dxf"), m_drawing.files.Read("bad.dxf"));
    }

    OpenDrawing m_drawing;
    AcDbObjectId m_id;
    CString m_path;
    CString m_message;
};

// A drawing with some thousand objects.
std::string LargerDrawing() {
    std::string entities;
    for (int i = 0; i < 1500; ++i)
        entities += "  0\r\nLINE\r\n  5\r\n" + std::to_string(1000 + i) + "\r\n  8\r\nWALL\r\n 10\r\n" +
                    std::to_string(i) + ".5\r\n 20\r\n-1.0\r\n";
    return SmallDrawing().substr(0, SmallDrawing().size() - std::string("  0\nEOF\n").size()) +
           Section("ENTITIES", entities) + "  0\nEOF\n";
}

}  // namespace

TEST(DxfHostile, EachFaultIsToldWithItsLine) {
    const struct {
        std::string text;
        int line;
        const char* cause;
    } cases[] = {
        {"", 1, "文件不完整，缺少 EOF"},
        {"\n", 1, "此处应为组码（整数）"},
        {"hello\nworld\n", 1, "此处应为组码（整数）"},
        {"0\nSECTION\n2\nENTITIES\n1x\nv\n", 5, "此处应为组码（整数）"},
        {"0\nSECTION\n2\nENTITIES\n\n0\n", 5, "此处应为组码（整数）"},
        {"0\nSECTION\n2\nENTITIES\n- 1\nv\n", 5, "此处应为组码（整数）"},
        {"0\nSECTION\n2\nENTITIES\n--1\nv\n", 5, "此处应为组码（整数）"},
        {"0\nSECTION\n2\nENTITIES\n1.0\nv\n", 5, "此处应为组码（整数）"},
        {"0\nSECTION\n2\nENTITIES\n0x1\nv\n", 5, "此处应为组码（整数）"},
        {"0\nSECTION\n2\nENTITIES\n1 2\nv\n", 5, "此处应为组码（整数）"},
        {"0\rSECTION\r2\rENTITIES\r0\rENDSEC\r0\rEOF\r", 1, "此处应为组码（整数）"},
        {"0\nSECTION\n2\nENTITIES\n1072\nv\n", 5, "组码超出范围（-5 到 1071）"},
        {"0\nSECTION\n2\nENTITIES\n-6\nv\n", 5, "组码超出范围（-5 到 1071）"},
        {"0\r\nSECTION\r\n2\r\nENTITIES\r\n99999999999999999999999\r\nv\r\n", 5, "组码超出范围（-5 到 1071）"},
        {"0\nSECTION\n2\nENTITIES\n-4294967296\nv\n", 5, "组码超出范围（-5 到 1071）"},
        {"0", 1, "组码后面没有值"},
        {"0\n", 1, "组码后面没有值"},
        {"0\nSECTION\n2\n", 3, "组码后面没有值"},
        {"999\nx\n1\nv\n0\nEOF\n", 3, "此处应为 SECTION 或 EOF"},
        {"0\nLINE\n", 1, "此处应为 SECTION 或 EOF"},
        {"0\nSECTION\n2\nX\n0\nENDSEC\n0\nENDSEC\n", 7, "此处应为 SECTION 或 EOF"},
        {"0\nSECTION\n2\nX\n0\nENDSEC\n8\n0\n", 7, "此处应为 SECTION 或 EOF"},
        {"0\nSECTION\n0\nENDSEC\n0\nEOF\n", 3, "SECTION 后面应为段名（组码 2）"},
        {"0\nSECTION\n999\nx\n9\n$A\n", 5, "SECTION 后面应为段名（组码 2）"},
        {"0\nSECTION\n2\nX\n0\nSECTION\n2\nY\n", 5, "上一段没有以 ENDSEC 结束"},
        {"0\nSECTION\n2\nX\n0\nEOF\n", 5, "上一段没有以 ENDSEC 结束"},
        {"0\nSECTION\n2\nTABLES\n0\nLAYER\n", 5, "此处应为 TABLE 或 ENDSEC"},
        {"0\nSECTION\n2\nTABLES\n0\nENDTAB\n", 5, "此处应为 TABLE 或 ENDSEC"},
        {"0\nSECTION\n2\nTABLES\n0\nTABLE\n0\nTABLE\n", 7, "上一个表没有以 ENDTAB 结束"},
        {"0\nSECTION\n2\nTABLES\n0\nTABLE\n0\nENDSEC\n", 7, "上一个表没有以 ENDTAB 结束"},
        {"0\nSECTION\n2\nTABLES\n0\nTABLE\n0\nEOF\n", 7, "上一段没有以 ENDSEC 结束"},
        {"0\nSECTION\n2\nBLOCKS\n0\nLINE\n", 5, "此处应为 BLOCK 或 ENDSEC"},
        {"0\nSECTION\n2\nBLOCKS\n0\nENDBLK\n", 5, "此处应为 BLOCK 或 ENDSEC"},
        {"0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n0\nBLOCK\n", 7, "上一个块没有以 ENDBLK 结束"},
        {"0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n0\nLINE\n0\nENDSEC\n", 9, "上一个块没有以 ENDBLK 结束"},
        {"0\nSECTION\n2\nX\n0\nENDSEC\n", 6, "文件不完整，缺少 EOF"},
        {"0\nSECTION\n2\nENTITIES\n0\nLINE", 6, "文件不完整，缺少 EOF"},
        {"0\nSECTION\n2\nENTITIES\n1\na\0b\n0\nENDSEC\n0\nEOF\n"s, 6, "含有零字节，不是文本文件"},
        {"0\nEOF\n\0"s, 3, "含有零字节，不是文本文件"},
    };
    Victim victim;
    for (const auto& each : cases) {
        EXPECT_EQ(victim.Try(each.text), Acad::eBadDxfFile) << each.text;
        EXPECT_EQ(victim.Message(), victim.Expected(each.line, each.cause)) << each.text;
    }
}

TEST(DxfHostile, CodesMayBePaddedAndSigned) {
    Victim victim;
    EXPECT_EQ(victim.Try("\t 0 \t\r\nSECTION\n+2\n ENTITIES \n -5\nv\n0001071\nv\n0\n ENDSEC\n0\nEOF \n"), Acad::eOk);
    EXPECT_EQ(victim.Try("  0\nEOF"), Acad::eOk);
}

TEST(DxfHostile, LinesMayBeAsLongAsAMebibyte) {
    const std::string head = "0\nSECTION\n2\nENTITIES\n0\nX\n1\n";
    const std::string tail = "\r\n0\nENDSEC\n0\nEOF\n";
    Victim victim;
    EXPECT_EQ(victim.Try(head + std::string(1 << 20, 'x') + tail), Acad::eOk);
    EXPECT_EQ(victim.Try(head + std::string((1 << 20) + 1, 'x') + tail), Acad::eBadDxfFile);
    EXPECT_EQ(victim.Message(), victim.Expected(8, "这一行太长（超过 1 MiB）"));
    EXPECT_EQ(victim.Try(head + "v\n" + std::string(1 << 20, ' ') + "1\nv" + tail), Acad::eBadDxfFile);
    EXPECT_EQ(victim.Message(), victim.Expected(9, "这一行太长（超过 1 MiB）"));
    EXPECT_EQ(victim.Try(head + std::string(std::size_t{30} << 20, 'x')), Acad::eBadDxfFile);
    EXPECT_EQ(victim.Line(), 8);
    EXPECT_EQ(victim.Try(std::string(std::size_t{30} << 20, '1')), Acad::eBadDxfFile);
    EXPECT_EQ(victim.Line(), 1);
}

TEST(DxfHostile, OtherFilesOfDrawingsAreNamedAsWhatTheyAre) {
    Victim victim;
    EXPECT_EQ(victim.Try("AutoCAD Binary DXF\r\n\x1A\0\0\0SECTION"s), Acad::eBadDxfFile);
    EXPECT_EQ(victim.Message(),
              "图形文件“" + victim.Path() + "”是二进制 DXF，请在绘图软件中另存为文本 DXF（ASCII）后再打开。");
    EXPECT_EQ(victim.Try("AC1027\0\0\0\0"s), Acad::eBadDxfFile);
    EXPECT_EQ(victim.Message(), "图形文件“" + victim.Path() + "”是 DWG 文件，请在绘图软件中另存为 DXF 后再打开。");
}

TEST(DxfHostile, WhatCannotBeReadIsToldWithTheCause) {
    Victim victim;
    EXPECT_EQ(victim.TryFile(victim.Files().File("none.dxf")), Acad::eCantOpenFile);
    EXPECT_EQ(victim.Message(),
              "无法读取图形文件“" + (victim.Files() / "none.dxf").string() + "”：No such file or directory。");
    fs::create_directory(victim.Files() / "folder.dxf");
    EXPECT_EQ(victim.TryFile(victim.Files().File("folder.dxf")), Acad::eCantOpenFile);
    EXPECT_EQ(victim.Message(), "无法读取图形文件“" + (victim.Files() / "folder.dxf").string() + "”：不是普通文件。");
    ASSERT_EQ(mkfifo((victim.Files() / "pipe.dxf").c_str(), 0600), 0);
    EXPECT_EQ(victim.TryFile(victim.Files().File("pipe.dxf")), Acad::eCantOpenFile);
    EXPECT_EQ(victim.TryFile(CString()), Acad::eInvalidInput);
    victim.Files().Write("closed.dxf", SmallDrawing());
    fs::permissions(victim.Files() / "closed.dxf", fs::perms(0));
    const OrdinaryUser user(victim.Files().Path());
    EXPECT_EQ(victim.TryFile(victim.Files().File("closed.dxf")), Acad::eCantOpenFile);
    EXPECT_EQ(victim.Message(),
              "无法读取图形文件“" + (victim.Files() / "closed.dxf").string() + "”：Permission denied。");
}

TEST(DxfHostile, FilesBeyondTwoGibibytesAreRefused) {
    Victim victim;
    victim.Files().Write("large.dxf", "0\n");
    ASSERT_EQ(truncate((victim.Files() / "large.dxf").c_str(), (off_t{1} << 31) + 1), 0);
    EXPECT_EQ(victim.TryFile(victim.Files().File("large.dxf")), Acad::eCantOpenFile);
    EXPECT_EQ(victim.Message(), "无法读取图形文件“" + (victim.Files() / "large.dxf").string() + "”：文件超过 2 GiB。");
}

// A sanitizer needs more room than any limit leaves.
#ifndef __SANITIZE_ADDRESS__
TEST(DxfHostile, FilesThatDoNotFitIntoMemoryAreRefused) {
    Victim victim;
    victim.Files().Write("large.dxf", "0\n");
    ASSERT_EQ(truncate((victim.Files() / "large.dxf").c_str(), off_t{1} << 31), 0);
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_AS, &before), 0);
    std::size_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    ASSERT_GT(pages, 0U);
    const rlim_t present = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
    const rlimit little = {present + (rlim_t{1} << 30), before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_AS, &little), 0);
    EXPECT_EQ(victim.TryFile(victim.Files().File("large.dxf")), Acad::eOutOfMemory);
    EXPECT_EQ(setrlimit(RLIMIT_AS, &before), 0);
    EXPECT_EQ(victim.Message(), "内存不足，无法打开、改动或保存图形文件。");
}
#endif

TEST(DxfHostile, AnyTruncationOfASmallDrawingIsRefused) {
    const std::string text = SmallDrawing();
    const std::size_t complete = text.size() - 1;  // the last line end may be missing
    Victim victim;
    for (std::size_t size = 0; size < complete; ++size) {
        const std::string part = text.substr(0, size);
        ASSERT_EQ(victim.Try(part), Acad::eBadDxfFile) << size;
        // The fault is where the text breaks off: on its last line, or on the code's before it.
        const int last = static_cast<int>(std::count(part.begin(), part.end(), '\n')) + 1;
        EXPECT_LE(victim.Line(), last) << size;
        EXPECT_GE(victim.Line(), std::max(1, last - 2)) << size;
    }
    EXPECT_EQ(victim.Try(text.substr(0, complete)), Acad::eOk);
    EXPECT_EQ(victim.Try(text), Acad::eOk);
}

TEST(DxfHostile, EachHundredthTruncationOfALargerDrawingIsRefused) {
    const std::string text = LargerDrawing();
    Victim victim;
    ASSERT_EQ(victim.Try(text), Acad::eOk);
    ASSERT_GT(text.size(), 80000U);
    for (std::size_t size = 0; size < text.size() - 1; size += 100) {
        ASSERT_EQ(victim.Try(std::string_view(text).substr(0, size)), Acad::eBadDxfFile) << size;
        ASSERT_GT(victim.Line(), 0);
    }
}

TEST(DxfHostile, NoiseIsRefused) {
    std::mt19937 random(7);
    Victim victim;
    for (int round = 0; round < 200; ++round) {
        std::string noise(random() % 5000, '\0');
        for (char& c : noise)
            c = static_cast<char>(random());
        EXPECT_EQ(victim.Try(noise), Acad::eBadDxfFile);
        EXPECT_GT(victim.Line(), 0);
        // Behind a sound beginning, without zeros.
        std::replace(noise.begin(), noise.end(), '\0', '\n');
        EXPECT_EQ(victim.Try("0\nSECTION\n2\nENTITIES\n0\nLINE\n" + noise), Acad::eBadDxfFile);
        EXPECT_GT(victim.Line(), 0);
    }
}

TEST(DxfHostile, MutatedDrawingsAreReadOrRefused) {
    std::mt19937 random(11);
    const std::string text = SmallDrawing();
    const std::string_view pieces[] = {"0\n",     "\n",    "\r\n", "  0\nENDSEC\n", "  0\nSECTION\n", "-1",  "999\n",
                                       "99999\n", "EOF\n", "\xFF", "TABLE",         "BLOCK",          "5\n", " "};
    int sound = 0;
    Victim victim;
    for (int round = 0; round < 3000; ++round) {
        std::string mutated = text;
        for (std::size_t i = 1 + random() % 3; i > 0; --i) {
            const std::size_t at = random() % mutated.size();
            switch (random() % 4) {
                case 0:
                    mutated[at] = static_cast<char>(random());
                    break;
                case 1:
                    mutated.erase(at, 1 + random() % 20);
                    break;
                case 2:
                    mutated.insert(at, pieces[random() % std::size(pieces)]);
                    break;
                default:
                    mutated.insert(at, mutated.substr(random() % mutated.size(), random() % 40));
            }
            mutated += '\n';  // never empty
        }
        const Acad::ErrorStatus status = victim.Try(mutated);
        ASSERT_TRUE(status == Acad::eOk || (status == Acad::eBadDxfFile && victim.Line() > 0)) << round;
        sound += status == Acad::eOk ? 1 : 0;
    }
    EXPECT_GT(sound, 300);
    EXPECT_LT(sound, 2900);
}
