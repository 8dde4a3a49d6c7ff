// The file that a module came from, by an address in it. (Libraries that were opened by a relative name and calls from
// static constructors are tested with the plug-ins of tests/host.)
#include "platform/base/ModuleFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>

#include "platform/base/CString.h"
#include "platform/host/ExtensionModule.h"
#include "support/Folders.h"

namespace {

const int g_ownObject = 0;

// As the function must write it.
std::string Backslashed(const std::filesystem::path& path) {
    std::string text = path.string();
    std::replace(text.begin(), text.end(), '/', '\\');
    return text;
}

std::string NameOf(HINSTANCE module) {
    wchar_t buffer[4096] = {L'x'};
    const unsigned count = GetModuleFileName(module, buffer, 4096);
    EXPECT_EQ(count, CString(buffer).View().size());
    return ToUtf8(buffer);
}

const std::string kProgram = Backslashed(std::filesystem::read_symlink("/proc/self/exe"));

TEST(ModuleFile, OfNullIsTheProgram) {
    EXPECT_EQ(NameOf(nullptr), kProgram);
}

TEST(ModuleFile, OfAnObjectOfTheProgramIsTheProgram) {
    EXPECT_EQ(NameOf(&g_ownObject), kProgram);
}

TEST(ModuleFile, OfAnObjectOfALibraryIsTheLibrary) {
    const std::string name = NameOf(AfxGetModuleState());
    EXPECT_EQ(name.front(), '\\');
    EXPECT_EQ(name.find('/'), std::string::npos);
    std::string path = name;
    std::replace(path.begin(), path.end(), '\\', '/');
    EXPECT_TRUE(std::filesystem::equivalent(path, BuildFolder() + "/lib/libOrvoPlatform.so")) << path;
}

TEST(ModuleFile, OfAnAddressInNoModuleIsEmpty) {
    const auto heap = std::make_unique<int>(0);
    wchar_t buffer[8] = L"before";
    EXPECT_EQ(GetModuleFileName(heap.get(), buffer, 8), 0U);
    EXPECT_EQ(buffer[0], L'\0');
}

TEST(ModuleFile, CutsANameThatDoesNotFit) {
    SetModuleFileNameForTest(L"C:\\HOST\\A.ARX");
    wchar_t buffer[8] = L"*******";
    EXPECT_EQ(GetModuleFileName(nullptr, buffer, 6), 5U);
    EXPECT_STREQ(buffer, L"C:\\HO");
    EXPECT_EQ(buffer[6], L'*');
    EXPECT_EQ(GetModuleFileName(nullptr, buffer, 1), 0U);
    EXPECT_STREQ(buffer, L"");
    SetModuleFileNameForTest(nullptr);
}

TEST(ModuleFile, FillsABufferThatFitsExactly) {
    SetModuleFileNameForTest(L"A.ARX");
    wchar_t buffer[6] = {};
    EXPECT_EQ(GetModuleFileName(nullptr, buffer, 6), 5U);
    EXPECT_STREQ(buffer, L"A.ARX");
    SetModuleFileNameForTest(nullptr);
}

TEST(ModuleFile, WritesNothingWithoutABuffer) {
    wchar_t untouched = L'*';
    EXPECT_EQ(GetModuleFileName(nullptr, &untouched, 0), 0U);
    EXPECT_EQ(untouched, L'*');
    EXPECT_EQ(GetModuleFileName(nullptr, nullptr, 10), 0U);
}

TEST(ModuleFile, IsWhatATestSaysUntilNull) {
    SetModuleFileNameForTest(L"no separator/and this one");
    EXPECT_EQ(NameOf(nullptr), "no separator/and this one");
    EXPECT_EQ(NameOf(AfxGetModuleState()), "no separator/and this one");
    SetModuleFileNameForTest(L"");
    EXPECT_EQ(NameOf(nullptr), "");
    SetModuleFileNameForTest(nullptr);
    EXPECT_EQ(NameOf(nullptr), kProgram);
}

TEST(ModuleFile, KeepsACopyOfTheTestsName) {
    wchar_t name[] = L"first";
    SetModuleFileNameForTest(name);
    name[0] = L'w';
    EXPECT_EQ(NameOf(nullptr), "first");
    SetModuleFileNameForTest(std::wstring(5000, L'n').c_str());
    wchar_t buffer[6000];
    EXPECT_EQ(GetModuleFileName(nullptr, buffer, 6000), 4095U);
    SetModuleFileNameForTest(nullptr);
}

}  // namespace
