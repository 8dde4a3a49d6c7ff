// Files below a folder of its own for one test, as bytes and with real paths; all gone at the end.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/base/CString.h"

// Everything in a file; empty when there is none.
inline std::string FileBytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class FileTree {
public:
    FileTree() {
        std::string name = (std::filesystem::temp_directory_path() / "orvo-test-XXXXXX").string();
        if (mkdtemp(name.data()))
            m_path = name;
        else
            ADD_FAILURE() << "no temporary folder";
    }
    ~FileTree() {
        std::error_code ignored;
        // Folders that a test closed cannot be emptied.
        for (auto it = std::filesystem::recursive_directory_iterator(m_path, ignored);
             !ignored && it != std::filesystem::recursive_directory_iterator(); it.increment(ignored))
            if (it->is_directory(ignored) && !it->is_symlink(ignored))
                std::filesystem::permissions(it->path(), std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(m_path, ignored);
    }
    FileTree(const FileTree&) = delete;
    FileTree& operator=(const FileTree&) = delete;

    const std::filesystem::path& Path() const { return m_path; }
    std::filesystem::path operator/(std::string_view name) const { return m_path / name; }

    // Makes a file (and the folders above it) below the folder; gives its path.
    std::filesystem::path Write(std::string_view name, std::string_view bytes) const {
        std::filesystem::path path = m_path / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return path;
    }

    std::string Read(std::string_view name) const { return FileBytes(m_path / name); }
    // The path of a file as the platform takes it.
    CString File(std::string_view name) const { return FromUtf8((m_path / name).string()); }

private:
    std::filesystem::path m_path;
};
