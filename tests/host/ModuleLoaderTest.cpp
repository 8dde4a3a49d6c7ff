// Plug-ins being opened, spoken to and closed. The libraries are those of tests/host/plugin.
#include "platform/host/ModuleLoader.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <link.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>

#include "platform/host/CommandLine.h"
#include "platform/host/RxRegistry.h"
#include "support/FileTree.h"
#include "support/Folders.h"
#include "support/Recorder.h"

namespace {

using Unloaded = ModuleLoader::Unloaded;

const std::string kPlugins = BuildFolder() + "/lib/test-plugins/";

// How much of a library's file the system maps, by the table in its head.
std::size_t MappedSize(const std::string& library) {
    ElfW(Ehdr) head = {};
    std::memcpy(&head, library.data(), sizeof(head));
    std::size_t size = 0;
    for (std::size_t i = 0; i < head.e_phnum; ++i) {
        ElfW(Phdr) part = {};
        std::memcpy(&part, library.data() + head.e_phoff + i * sizeof(part), sizeof(part));
        if (part.p_type == PT_LOAD)
            size = std::max<std::size_t>(size, part.p_offset + part.p_filesz);
    }
    return size;
}

class Loader : public testing::Test {
protected:
    Loader() { SetCommandLineSink(Recorder::Take, &m_recorder); }
    ~Loader() override {
        m_loader.reset();  // it still has something to record
        SetCommandLineSink(nullptr, nullptr);
    }

    bool Load(const std::string& name) { return m_loader->Load(FromUtf8(kPlugins + name), m_error); }
    std::string Error() const { return ToUtf8(m_error.View()); }
    static bool IsMapped(const std::string& name) {
        void* handle = dlopen((kPlugins + name).c_str(), RTLD_LAZY | RTLD_NOLOAD);
        if (handle)
            dlclose(handle);
        return handle != nullptr;
    }

    Recorder m_recorder;
    CString m_error;
    std::unique_ptr<ModuleLoader> m_loader = std::make_unique<ModuleLoader>();
};

TEST_F(Loader, SendsTheFirstMessageOnLoading) {
    ASSERT_TRUE(Load("plugin-good.so")) << Error();
    EXPECT_TRUE(m_error.IsEmpty());
    EXPECT_TRUE(m_loader->IsLoaded());
    EXPECT_NE(m_loader->ApplicationHandle(), nullptr);
    EXPECT_EQ(m_recorder.All(), "made plugin-good.so;message 1;");
}

TEST_F(Loader, SendsTheSecondMessageAndDestroysStaticObjectsOnUnloading) {
    ASSERT_TRUE(Load("plugin-good.so")) << Error();
    m_recorder.texts.clear();
    EXPECT_EQ(m_loader->Unload(), Unloaded::Gone);
    EXPECT_EQ(m_recorder.All(), "message 2;gone;");
    EXPECT_FALSE(m_loader->IsLoaded());
    EXPECT_EQ(m_loader->ApplicationHandle(), nullptr);
    EXPECT_FALSE(IsMapped("plugin-good.so"));
}

TEST_F(Loader, PassesOtherMessagesAndAnswersOn) {
    EXPECT_EQ(m_loader->Send(AcRx::kLoadDwgMsg), AcRx::kRetError);
    ASSERT_TRUE(Load("plugin-good.so")) << Error();
    m_recorder.texts.clear();
    EXPECT_EQ(m_loader->Send(AcRx::kLoadDwgMsg), AcRx::kRetOK);
    EXPECT_EQ(m_loader->Send(99), 42);
    EXPECT_EQ(m_recorder.All(), "message 3;message 99;");
    ASSERT_EQ(m_loader->Unload(), Unloaded::Gone);
    EXPECT_EQ(m_loader->Send(AcRx::kLoadDwgMsg), AcRx::kRetError);
}

TEST_F(Loader, SendsAMessageToAllThatAreLoaded) {
    ModuleLoader second;
    SendToPlugIns(AcRx::kLoadDwgMsg);
    EXPECT_FALSE(Load("plugin-failing.so"));
    ASSERT_TRUE(Load("plugin-good.so")) << Error();
    ASSERT_TRUE(second.Load(FromUtf8(kPlugins + "plugin-locked.so"), m_error)) << Error();
    m_recorder.texts.clear();
    SendToPlugIns(AcRx::kLoadDwgMsg);
    EXPECT_EQ(m_recorder.All(), "message 3;message 3;");
    m_loader->Unload();
    m_recorder.texts.clear();
    SendToPlugIns(AcRx::kUnloadDwgMsg);
    EXPECT_EQ(m_recorder.All(), "message 4;");
    acrxUnlockApplication(second.ApplicationHandle());
    ASSERT_EQ(second.Unload(), Unloaded::Gone);
    m_recorder.texts.clear();
    SendToPlugIns(AcRx::kUnloadDwgMsg);
    EXPECT_EQ(m_recorder.All(), "");
}

TEST_F(Loader, LoadsAgainAfterUnloadingAndAsOftenAsWanted) {
    for (int round = 0; round < 20; ++round) {
        m_recorder.texts.clear();
        ASSERT_TRUE(Load("plugin-good.so")) << Error();
        ASSERT_EQ(m_loader->Unload(), Unloaded::Gone);
        ASSERT_EQ(m_recorder.All(), "made plugin-good.so;message 1;message 2;gone;");
    }
}

TEST_F(Loader, HasNothingToUnloadAtFirst) {
    EXPECT_EQ(m_loader->Unload(), Unloaded::NotLoaded);
    EXPECT_FALSE(m_loader->IsLoaded());
}

TEST_F(Loader, TellsWhenSomebodyElseHoldsTheLibrary) {
    ASSERT_TRUE(Load("plugin-good.so")) << Error();
    void* other = dlopen((kPlugins + "plugin-good.so").c_str(), RTLD_LAZY);
    ASSERT_NE(other, nullptr);
    EXPECT_EQ(m_loader->Unload(), Unloaded::StillMapped);
    EXPECT_FALSE(m_loader->IsLoaded());
    dlclose(other);
    EXPECT_FALSE(IsMapped("plugin-good.so"));
}

TEST_F(Loader, KeepsAPlugInThatNeverPermittedUnloading) {
    ASSERT_TRUE(Load("plugin-locked.so")) << Error();
    m_recorder.texts.clear();
    EXPECT_EQ(m_loader->Unload(), Unloaded::Locked);
    EXPECT_TRUE(m_loader->IsLoaded());
    EXPECT_EQ(m_recorder.All(), "");
    acrxUnlockApplication(m_loader->ApplicationHandle());
    EXPECT_EQ(m_loader->Unload(), Unloaded::Gone);
    EXPECT_EQ(m_recorder.All(), "message 2;gone;");
}

TEST_F(Loader, UnloadsEvenALockedPlugInWhenItIsDestroyed) {
    {
        ModuleLoader loader;
        ASSERT_TRUE(loader.Load(FromUtf8(kPlugins + "plugin-locked.so"), m_error)) << Error();
        m_recorder.texts.clear();
    }
    EXPECT_EQ(m_recorder.All(), "message 2;gone;");
    EXPECT_FALSE(IsMapped("plugin-locked.so"));
}

TEST_F(Loader, ForgetsWhatThePlugInRegistered) {
    ASSERT_TRUE(Load("plugin-good.so")) << Error();
    void* const handle = m_loader->ApplicationHandle();
    EXPECT_TRUE(HostDynamicLinker().isRegistered(handle));
    EXPECT_FALSE(acrxApplicationIsLocked(handle));
    ASSERT_EQ(m_loader->Unload(), Unloaded::Gone);
    EXPECT_FALSE(HostDynamicLinker().isRegistered(handle));
    EXPECT_TRUE(acrxApplicationIsLocked(handle));
}

TEST_F(Loader, NamesAFileThatIsNotThere) {
    EXPECT_FALSE(Load("no-such-plugin.so"));
    EXPECT_NE(Error().find(kPlugins + "no-such-plugin.so"), std::string::npos) << Error();
    EXPECT_FALSE(m_loader->IsLoaded());
}

TEST_F(Loader, NamesAFileThatIsNoLibrary) {
    const FileTree folder;
    const std::string path = folder.Write("text.so", "not a library").string();
    EXPECT_FALSE(m_loader->Load(FromUtf8(path), m_error));
    EXPECT_NE(Error().find("text.so"), std::string::npos) << Error();
    EXPECT_FALSE(m_loader->Load(FromUtf8(folder.Path().string()), m_error));  // a folder
    EXPECT_FALSE(m_error.IsEmpty());
    EXPECT_FALSE(m_loader->Load(nullptr, m_error));
    EXPECT_FALSE(m_loader->Load(L"", m_error));
    EXPECT_FALSE(m_error.IsEmpty());
}

TEST_F(Loader, RefusesWhatIsNoOrdinaryFileWithoutOpeningIt) {
    const FileTree folder;
    const std::string pipe = (folder.Path() / "pipe.so").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path : {pipe, std::string("/dev/null")}) {
        EXPECT_FALSE(m_loader->Load(FromUtf8(path), m_error));
        EXPECT_NE(Error().find(path + "”：不是普通文件"), std::string::npos) << Error();
    }
}

// The dynamic linker would end the process. Cut behind the last part that is mapped, a library is whole.
TEST_F(Loader, RefusesALibraryThatWasCutShortWhereverThatIs) {
    const FileTree folder;
    const std::string whole = FileBytes(kPlugins + "plugin-good.so");
    const std::size_t mapped = MappedSize(whole);
    ASSERT_GT(mapped, 4096U);
    ASSERT_LE(mapped, whole.size());
    for (const std::size_t size : {std::size_t{64}, std::size_t{100}, std::size_t{4096}, mapped / 2, mapped - 1}) {
        const std::string path = folder.Write("cut.so", whole.substr(0, size)).string();
        EXPECT_FALSE(m_loader->Load(FromUtf8(path), m_error)) << size;
        EXPECT_NE(Error().find("cut.so”：文件不完整"), std::string::npos) << size << Error();
    }
    EXPECT_EQ(m_recorder.All(), "");
    const std::string path = folder.Write("mapped.so", whole.substr(0, mapped)).string();
    EXPECT_TRUE(m_loader->Load(FromUtf8(path), m_error)) << Error();
}

TEST_F(Loader, LeavesALibraryOfAnotherMachineToTheSystemToName) {
    const FileTree folder;
    std::string foreign = FileBytes(kPlugins + "plugin-good.so").substr(0, 4096);
    foreign[EI_CLASS] = sizeof(void*) == 8 ? ELFCLASS32 : ELFCLASS64;
    EXPECT_FALSE(m_loader->Load(FromUtf8(folder.Write("foreign.so", foreign).string()), m_error));
    EXPECT_NE(Error().find("foreign.so”：wrong ELF class"), std::string::npos) << Error();
}

TEST_F(Loader, NeverSearchesForALibrary) {
    EXPECT_FALSE(m_loader->Load(L"libOrvoPlatform.so", m_error));  // the dynamic linker would find it
    EXPECT_NE(Error().find("libOrvoPlatform.so"), std::string::npos) << Error();
}

TEST_F(Loader, RefusesALibraryWithoutAnEntryPointAndClosesIt) {
    EXPECT_FALSE(Load("plugin-none.so"));
    EXPECT_NE(Error().find("plugin-none.so"), std::string::npos) << Error();
    EXPECT_NE(Error().find("acrxEntryPoint"), std::string::npos) << Error();
    EXPECT_FALSE(m_loader->IsLoaded());
    EXPECT_FALSE(IsMapped("plugin-none.so"));
}

TEST_F(Loader, DoesNotTakeTheEntryPointOfALibraryBelow) {
    EXPECT_FALSE(Load("plugin-above.so"));
    EXPECT_NE(Error().find("acrxEntryPoint"), std::string::npos) << Error();
    EXPECT_EQ(m_recorder.All(), "made plugin-below.so;gone;");  // loaded and closed, but not spoken to
}

TEST_F(Loader, ClosesAPlugInThatFailsToInitialise) {
    EXPECT_FALSE(Load("plugin-failing.so"));
    EXPECT_NE(Error().find("plugin-failing.so"), std::string::npos) << Error();
    EXPECT_FALSE(m_loader->IsLoaded());
    EXPECT_EQ(m_recorder.All(), "made plugin-failing.so;message 1;gone;");
    EXPECT_FALSE(IsMapped("plugin-failing.so"));
}

TEST_F(Loader, HoldsOnePlugInAtATime) {
    ASSERT_TRUE(Load("plugin-good.so")) << Error();
    EXPECT_FALSE(Load("plugin-locked.so"));
    EXPECT_NE(Error().find("plugin-locked.so"), std::string::npos) << Error();
    EXPECT_NE(Error().find("plugin-good.so"), std::string::npos) << Error();
    EXPECT_TRUE(m_loader->IsLoaded());
    EXPECT_FALSE(IsMapped("plugin-locked.so"));
    EXPECT_EQ(m_loader->Unload(), Unloaded::Gone);
}

TEST_F(Loader, KeepsThePlugInsNamesToItself) {
    ASSERT_TRUE(Load("plugin-good.so")) << Error();
    EXPECT_EQ(dlsym(RTLD_DEFAULT, "PrintOwnFile"), nullptr);
}

TEST_F(Loader, TakesAPathRelativeToTheCurrentFolder) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(kPlugins);
    EXPECT_TRUE(m_loader->Load(L"plugin-good.so", m_error)) << Error();
    std::filesystem::current_path(before);
    EXPECT_EQ(m_loader->Unload(), Unloaded::Gone);
}

TEST_F(Loader, LeavesAModuleItsFileNameWhenTheCurrentFolderChanges) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(kPlugins);
    void* library = dlopen("./plugin-good.so", RTLD_NOW);
    std::filesystem::current_path("/");
    ASSERT_NE(library, nullptr);
    m_recorder.texts.clear();
    reinterpret_cast<void (*)()>(dlsym(library, "PrintOwnFile"))();
    std::filesystem::current_path(before);
    std::string file = m_recorder.All();
    std::replace(file.begin(), file.end(), '\\', '/');
    EXPECT_TRUE(file.starts_with("/")) << file;
    std::error_code error;
    EXPECT_TRUE(std::filesystem::equivalent(file, kPlugins + "plugin-good.so", error)) << file;
    dlclose(library);
}

}  // namespace
