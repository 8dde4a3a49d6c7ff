// Makes German, with its decimal comma, the process's locale for as long as it lives. The locale is compiled into a
// folder of the test's own, so that no test depends on what a machine happens to have.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

class GermanLocale {
public:
    GermanLocale() : m_before(std::setlocale(LC_ALL, nullptr)) {
        static const CompiledLocale locale;
        setenv("LOCPATH", locale.m_folder.c_str(), 1);
        const char* set = std::setlocale(LC_ALL, "de_DE.UTF-8");
        unsetenv("LOCPATH");
        EXPECT_NE(set, nullptr) << "the German locale could not be compiled (Debian: locales)";
        char number[8];
        std::snprintf(number, sizeof number, "%.1f", 0.5);
        EXPECT_STREQ(number, "0,5") << "the locale is not in force, so the test would prove nothing";
    }
    ~GermanLocale() { std::setlocale(LC_ALL, m_before.c_str()); }

    GermanLocale(const GermanLocale&) = delete;
    GermanLocale& operator=(const GermanLocale&) = delete;

private:
    // Once for each process; the folder is removed at its end.
    struct CompiledLocale {
        CompiledLocale()
            : m_folder(std::filesystem::temp_directory_path() / ("orvo-locale-" + std::to_string(getpid()))) {
            std::filesystem::create_directories(m_folder);
            const std::string command =
                "localedef -i de_DE -f UTF-8 '" + (m_folder / "de_DE.UTF-8").string() + "' >/dev/null 2>&1";
            if (std::system(command.c_str()) != 0)
                ADD_FAILURE() << "localedef failed";
        }
        ~CompiledLocale() {
            std::error_code ignored;
            std::filesystem::remove_all(m_folder, ignored);
        }
        CompiledLocale(const CompiledLocale&) = delete;
        CompiledLocale& operator=(const CompiledLocale&) = delete;
        const std::filesystem::path m_folder;
    };

    std::string m_before;
};
