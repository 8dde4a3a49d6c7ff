// A folder of a test's own that goes when the test goes.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/base/CString.h"

class TempFolder {
public:
    TempFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "orvo-test-XXXXXX").string();
        EXPECT_NE(mkdtemp(name.data()), nullptr);
        m_path = name;
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& Path() const { return m_path; }
    CString File(const char* name) const { return FromUtf8((m_path / name).string()); }

    void Write(const char* name, const std::string& content) const {
        std::ofstream(m_path / name, std::ios::binary) << content;
    }
    std::string Read(const char* name) const {
        std::ifstream file(m_path / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    bool Has(const char* name) const { return std::filesystem::exists(m_path / name); }

private:
    std::filesystem::path m_path;
};
