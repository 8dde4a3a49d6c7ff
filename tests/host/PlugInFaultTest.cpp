// What is said of a plug-in that is not loaded: the file, what was wrong, and what to do. The libraries are those of
// tests/host/plugin.
#include <gtest/gtest.h>
#include <link.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <string>

#include "platform/base/Language.h"
#include "platform/host/CommandLine.h"
#include "platform/host/ModuleLoader.h"
#include "platform/host/PlugInFiles.h"
#include "platform/host/Subcommands.h"
#include "support/FileTree.h"
#include "support/Folders.h"
#include "support/Recorder.h"

namespace {

const std::string kPlugins = BuildFolder() + "/lib/test-plugins/";

// As the build has made it for the headers.
std::string Stamp() {
    const std::string header = FileBytes(BuildFolder() + "/made/platform/host/BuildStamp.h");
    const std::size_t end = header.rfind('"');
    return header.substr(header.rfind('"', end - 1) + 1, end - header.rfind('"', end - 1) - 1);
}

const std::string kStamp = Stamp();

class PlugInFault : public testing::Test {
protected:
    PlugInFault() { SetCommandLineSink(Recorder::Take, &m_recorder); }
    ~PlugInFault() override { SetCommandLineSink(nullptr, nullptr); }

    // Empty when it is loaded after all.
    std::string Of(const std::string& path) {
        ModuleLoader loader;
        CString error;
        return loader.Load(FromUtf8(path), error) ? std::string() : ToUtf8(error.View());
    }
    // The fault of a copy in whose file one text was replaced by another as long.
    std::string Changed(const std::string& before, const std::string& after) {
        EXPECT_EQ(before.size(), after.size());
        std::string library = FileBytes(kPlugins + "plugin-good.so");
        std::size_t count = 0;
        for (std::size_t at = 0; (at = library.find(before, at)) != std::string::npos; at += after.size(), ++count)
            library.replace(at, before.size(), after);
        EXPECT_GT(count, 0U);
        return Of(m_folder.Write("changed.so", library).string());
    }
    bool Says(const std::string& fault, const std::string& words) { return fault.find(words) != std::string::npos; }

    FileTree m_folder;
    Recorder m_recorder;
};

TEST_F(PlugInFault, IsAnotherStamp) {
    const std::string other = kStamp.substr(0, kStamp.size() - 1) + (kStamp.back() == '0' ? "1" : "0");
    const std::string fault = Changed(kStamp, other);
    EXPECT_TRUE(Says(fault, "changed.so")) << fault;
    EXPECT_TRUE(Says(fault, other + " 的头文件")) << fault;
    EXPECT_TRUE(Says(fault, "本程序是 " + kStamp + "：请用本程序的头文件重新编译")) << fault;
    EXPECT_EQ(m_recorder.All(), "") << "none of its code ran";
}

TEST_F(PlugInFault, IsAStampThatIsMissing) {
    const std::string fault = Changed("OrvoABI", "OtherIA");
    EXPECT_TRUE(Says(fault, "platform/host/HostMessages.h")) << fault;
    EXPECT_TRUE(Says(fault, kStamp)) << fault;
    EXPECT_EQ(m_recorder.All(), "");
}

TEST_F(PlugInFault, IsNoneWithTheOwnStamp) {
    EXPECT_EQ(Changed(kStamp, kStamp), "");
}

TEST_F(PlugInFault, IsTheDebugModeOfTheLibrary) {
    const std::string fault = Of(kPlugins + "plugin-debug.so");
    EXPECT_TRUE(Says(fault, kStamp + "-debug")) << fault;
}

TEST_F(PlugInFault, NamesWhatIsMissingAsSourcesDo) {
    const std::string path = std::filesystem::canonical(kPlugins + "plugin-undefined.so").string();
    const std::string fault = Of(path);
    EXPECT_TRUE(Says(fault, "“Nowhere::Defined(int)”")) << fault;
    EXPECT_TRUE(Says(fault, "ldd -r '" + path + "'")) << fault;
    EXPECT_FALSE(Says(fault, path + ": ")) << "the linker's own text begins so: " << fault;
}

TEST_F(PlugInFault, IsAFolderOrASource) {
    const std::string folder = Of(m_folder.Path().string());
    EXPECT_TRUE(Says(folder, "文件夹")) << folder;
    EXPECT_TRUE(Says(folder, "编译好的文件")) << folder;
    for (const char* content : {"", "x", "// a source\nint Nothing();\n"}) {
        const std::string source = Of(m_folder.Write("source.cpp", content).string());
        EXPECT_TRUE(Says(source, "不是程序库：请给出编译好的文件")) << source;
    }
}

TEST_F(PlugInFault, NamesTheFileThatMayHaveBeenMeant) {
    m_folder.Write("noons.so", "");
    const std::string path = (m_folder.Path() / "noons").string();
    const std::string fault = Of(path);
    EXPECT_TRUE(Says(fault, "文件不存在。有“" + path + ".so”这个文件。")) << fault;
    const std::string other = Of((m_folder.Path() / "others").string());
    EXPECT_TRUE(other.ends_with("文件不存在。")) << other;
}

TEST_F(PlugInFault, IsWhatThePlugInAnsweredOrThrew) {
    const std::string refusal = Of(kPlugins + "plugin-failing.so");
    EXPECT_TRUE(Says(refusal, "kRetError")) << refusal;
    EXPECT_FALSE(Says(refusal, "3")) << refusal;
    const std::string thrown = Of(kPlugins + "plugin-throwing.so");
    EXPECT_TRUE(Says(thrown, "启动时抛出错误：thrown at the host")) << thrown;
}

TEST_F(PlugInFault, LeadsFromATakenNameToWhoTookIt) {
    ModuleLoader loader;
    CString text;
    ASSERT_TRUE(loader.Load(FromUtf8(kPlugins + "plugin-rows.so"), text)) << ToUtf8(text.View());
    EXPECT_TRUE(ToUtf8(FileOfPlugIn(loader.ApplicationHandle()).View()).ends_with("/plugin-rows.so"));
    EXPECT_TRUE(FileOfPlugIn(&loader).IsEmpty());
    Subcommand row;
    row.name = L"Left-Behind";
    row.run = [](SubcommandCall&) { return 0; };
    EXPECT_FALSE(HostSubcommands().Add(row, this, text));
    EXPECT_TRUE(Says(ToUtf8(text.View()), "plugin-rows.so")) << ToUtf8(text.View());
}

TEST_F(PlugInFault, IsKeptOfEachFileOnce) {
    const std::string path = kPlugins + "no-such-thing.so";
    const std::size_t before = FilesNotLoaded().size();
    Of(path);
    Of(path);
    ASSERT_EQ(FilesNotLoaded().size(), before + 1);
    EXPECT_EQ(FilesNotLoaded().back(), FromUtf8(path));
}

TEST_F(PlugInFault, IsForgottenOfAFileThatIsLoadedAfterAll) {
    const std::string path = m_folder.Write("late.so", "not yet").string();
    const std::size_t before = FilesNotLoaded().size();
    ASSERT_NE(Of(path), "");
    ASSERT_EQ(FilesNotLoaded().size(), before + 1);
    m_folder.Write("late.so", FileBytes(kPlugins + "plugin-good.so"));
    EXPECT_EQ(Of(path), "");
    EXPECT_EQ(FilesNotLoaded().size(), before);
}

TEST_F(PlugInFault, OfASecondStartTakesNothingFromTheFirst) {
    const std::string path = kPlugins + "plugin-rows.so";
    ModuleLoader first;
    CString error;
    ASSERT_TRUE(first.Load(FromUtf8(path), error)) << ToUtf8(error.View());
    EXPECT_NE(Of(path), "") << "its subcommand has its name already";
    EXPECT_EQ(FileOfPlugIn(first.ApplicationHandle()), FromUtf8(path));
    EXPECT_NE(HostSubcommands().Find(L"left-behind"), nullptr);
}

// A part of notes that is not in the file says nothing, and does not hide the one behind it, which stands here where
// tables for exceptions are announced.
TEST_F(PlugInFault, IsNoneWhereNotesOfOthersAreDamaged) {
    std::string library = FileBytes(kPlugins + "plugin-good.so");
    ElfW(Ehdr) head;
    std::memcpy(&head, library.data(), sizeof(head));
    const auto find = [&](unsigned type) {
        ElfW(Phdr) part = {};
        for (std::size_t at = head.e_phoff; at < head.e_phoff + head.e_phnum * sizeof(part); at += sizeof(part)) {
            std::memcpy(&part, library.data() + at, sizeof(part));
            if (part.p_type == type)
                return at;
        }
        return std::size_t(0);
    };
    const std::size_t notes = find(PT_NOTE);
    const std::size_t tables = find(PT_GNU_EH_FRAME);
    ASSERT_GT(notes, 0U);
    ASSERT_GT(tables, notes);
    ElfW(Phdr) part;
    std::memcpy(&part, library.data() + notes, sizeof(part));
    std::memcpy(library.data() + tables, &part, sizeof(part));
    for (const std::uint64_t offset : {library.size(), library.size() - 4, std::size_t(-8)}) {
        part.p_offset = offset;
        std::memcpy(library.data() + notes, &part, sizeof(part));
        EXPECT_EQ(Of(m_folder.Write("damaged.so", library).string()), "") << offset;
    }
}

}  // namespace
