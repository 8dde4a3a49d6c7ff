// A place where the configuration files are only those that a test puts there, with the command line recorded. These
// tests run against copies of the libraries that have no installed data beside them (see tests/CMakeLists.txt).
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/ConfigDictionaries.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/base/Support.h"
#include "platform/host/CommandLine.h"
#include "settings/OrvoDataSet.h"
#include "support/EmptyConfiguration.h"
#include "support/Environment.h"
#include "support/FileTree.h"

class ConfigSandbox : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_FALSE(std::filesystem::exists(ToUtf8(InstalledDataFolder().View())))
            << "these tests need libraries without installed data";
        SetCommandLineSink([](const wchar_t* text, void* lines) { static_cast<Lines*>(lines)->push_back(text); },
                           &m_lines);
        EmptyConfiguration();
    }
    void TearDown() override {
        SetCommandLineSink(nullptr, nullptr);
        EmptyConfiguration();
    }

    using Lines = std::vector<CString>;
    Lines m_lines;
    FileTree m_folder;

private:
    FileTree m_home;
    EnvironmentVariable m_support{"ORVO_SUPPORT_PATH", m_folder.Path().c_str()};
    EnvironmentVariable m_config{"XDG_CONFIG_HOME", m_home.Path().c_str()};
};
