// The settings that come with an installation, and going back to them.
#include "facts/ShippedSettings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "settings/OrvoDataSet.h"
#include "support/Environment.h"
#include "support/FileTree.h"
#include "support/Folders.h"

namespace {

// An installation of its own, with a program that tells what was shipped in it.
class Shipped : public testing::Test {
protected:
    void SetUp() override {
        Install("bin/shipped-probe");
        for (const char* library : {"libOrvoPlatform.so.0", "OrvoDataBase.so.0", "libOrvoFacts.so.0"})
            Install(std::string("lib/") + library);
        std::filesystem::create_directories(m_prefix / "share/orvo");
    }

    // What the program prints, without the path in its first line.
    std::string Ask() const {
        std::string answer;
        std::FILE* pipe = popen(("exec '" + (m_prefix / "bin/shipped-probe").string() + "'").c_str(), "r");
        if (!pipe)
            return answer;
        for (int character = std::fgetc(pipe); character != EOF; character = std::fgetc(pipe))
            answer.push_back(static_cast<char>(character));
        EXPECT_EQ(pclose(pipe), 0);
        const std::string path = (m_prefix / "share/orvo/SunSet.xml").string() + "\n";
        EXPECT_TRUE(answer.starts_with(path)) << answer;
        return answer.substr(std::min(path.size(), answer.size()));
    }

    FileTree m_folder;
    EnvironmentVariable m_libraries{"LD_LIBRARY_PATH", nullptr};  // the copies are to be used
    std::filesystem::path m_prefix = std::filesystem::canonical(m_folder.Path());

private:
    void Install(const std::string& name) const {
        std::filesystem::create_directories((m_prefix / name).parent_path());
        std::filesystem::copy_file(BuildFolder() + "/" + name, m_prefix / name);
    }
};

OrvoStdSet Named(const wchar_t* name) {
    OrvoStdSet standard;
    standard.m_strName = name;
    return standard;
}

}  // namespace

TEST_F(Shipped, SettingsAreThoseBesideTheLibraries) {
    m_folder.Write("share/orvo/SunSet.xml", FileBytes(SourceFolder() + "/data/SunSet.xml"));
    std::string wanted;
    for (const char* name : {"上海标准", "国标大寒日", "国标冬至日", "北京大寒日", "北京冬至日", "杭州大寒日"})
        wanted += std::string(name) + ", changed: minValidAngle\n";
    EXPECT_EQ(Ask(), wanted);
}

TEST_F(Shipped, SettingsAreNoneWhereTheInstallationHasNone) {
    EXPECT_EQ(Ask(), "none\n");
    for (const char* bytes : {"", "<broken", "<html><body/></html>"}) {
        m_folder.Write("share/orvo/SunSet.xml", bytes);
        EXPECT_EQ(Ask(), "none\n") << bytes;
    }
}

TEST(ResetStandards, ComeBackInTheirPlaceOrAtTheEnd) {
    OrvoDataSet settings;
    for (const wchar_t* name : {L"甲", L"乙"})
        settings.NewStd(Named(name))->m_nMinValidTime = 77;
    OrvoStdSet shipped = Named(L"甲");
    shipped.m_date = OrvoDate(2001, 2, 3);
    shipped.m_nMinValidTime = 5;
    shipped.m_dgStartTime = 8.0;
    shipped.m_colors.m_listType.Append(99);
    EXPECT_EQ(ResetStandard(settings, shipped), 0);
    EXPECT_TRUE(DifferingFields(settings.GetStd(0), shipped).empty());
    EXPECT_EQ(settings.GetStd(1).m_nMinValidTime, 77) << "the others stay";
    shipped.m_strName = L"丙";
    EXPECT_EQ(ResetStandard(settings, shipped), 2);
    EXPECT_EQ(settings.GetStd(2).m_strName, L"丙");
    EXPECT_TRUE(DifferingFields(settings.GetStd(2), shipped).empty()) << "colours included";
    EXPECT_EQ(ResetStandard(settings, settings.GetStd(2)), 2) << "onto itself";
    EXPECT_TRUE(DifferingFields(settings.GetStd(2), shipped).empty());
}

TEST(ChangedStandards, AreToldFieldByField) {
    OrvoDataSet shipped;
    shipped.NewStd(Named(L"甲"));
    OrvoStdSet changed = Named(L"甲");
    EXPECT_TRUE(ChangesFromShipped(changed, &shipped).value().empty());
    changed.m_date = OrvoDate(2001, 2, 3);
    changed.m_nBJTime = 1;
    changed.m_colors.GetAt(0)[0]->m_nColor = 9;
    std::vector<std::string> keys;
    const auto changes = ChangesFromShipped(changed, &shipped);
    ASSERT_TRUE(changes);
    for (const StandardField* field : *changes)
        keys.push_back(field->jsonKey);
    EXPECT_EQ(keys, (std::vector<std::string>{"date", "colors", "beijingTime"})) << "in the order of files";
}
