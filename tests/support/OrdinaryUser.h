// A user without the administrator's rights; the tests themselves may have them.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

// As long as it lives, this process has an ordinary user's rights, and the folder with all in it is that user's.
class OrdinaryUser {
public:
    explicit OrdinaryUser(const std::filesystem::path& folder) : m_before(geteuid()) {
        if (m_before != 0)
            return;
        EXPECT_EQ(chown(folder.c_str(), kNobody, kNobody), 0);
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
            EXPECT_EQ(chown(entry.path().c_str(), kNobody, kNobody), 0);
        EXPECT_EQ(seteuid(kNobody), 0);
    }
    ~OrdinaryUser() { EXPECT_EQ(seteuid(m_before), 0); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    static constexpr uid_t kNobody = 65534;
    uid_t m_before;
};
