// The stage for tests that load the module as a host does: a folder of the test's own for its files, and nothing
// printed.
#pragma once

#include <gtest/gtest.h>

#include "platform/base/CString.h"
#include "platform/base/Language.h"
#include "platform/host/CommandLine.h"
#include "support/Environment.h"
#include "support/FileTree.h"

inline const CString kModule = FromUtf8(ORVO_MODULE_FILE);

class PlugIn : public testing::Test {
protected:
    void SetUp() override {
        SetCommandLineSink([](const wchar_t*, void*) {}, nullptr);
    }
    void TearDown() override {
        SetCommandLineSink(nullptr, nullptr);
        g_pTeskLangSwitch = nullptr;
    }

    FileTree m_folder;
    FileTree m_home;
    EnvironmentVariable m_support{"ORVO_SUPPORT_PATH", m_folder.Path().c_str()};
    EnvironmentVariable m_config{"XDG_CONFIG_HOME", m_home.Path().c_str()};
};
