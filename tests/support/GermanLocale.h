// Makes German, with its decimal comma, the process's locale for as long as it lives. The build compiles the locale
// into a folder of its own, so that no test depends on what a machine happens to have.
#pragma once

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "support/Folders.h"

class GermanLocale {
public:
    GermanLocale() : m_before(std::setlocale(LC_ALL, nullptr)) {
        setenv("LOCPATH", (BuildFolder() + "/locales").c_str(), 1);
        const char* set = std::setlocale(LC_ALL, "de_DE.UTF-8");
        unsetenv("LOCPATH");
        EXPECT_NE(set, nullptr) << "the build compiles it (Debian: locales)";
        char number[8];
        std::snprintf(number, sizeof number, "%.1f", 0.5);
        EXPECT_STREQ(number, "0,5") << "the locale is not in force, so the test would prove nothing";
    }
    ~GermanLocale() { std::setlocale(LC_ALL, m_before.c_str()); }

    GermanLocale(const GermanLocale&) = delete;
    GermanLocale& operator=(const GermanLocale&) = delete;

private:
    std::string m_before;
};
