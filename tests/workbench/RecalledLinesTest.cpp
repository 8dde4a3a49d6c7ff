// Going through old lines.
#include "workbench/window/RecalledLines.h"

#include <gtest/gtest.h>

namespace {

std::string Text(const std::optional<CString>& line) {
    return line ? ToUtf8(line->View()) : "nothing";
}

}  // namespace

TEST(RecalledLines, GoBackToTheOldestAndForthToWhatWasBeingTyped) {
    RecalledLines lines({L"one", L"two"});
    EXPECT_EQ(Text(lines.Newer()), "nothing");
    EXPECT_EQ(Text(lines.Older(L"half")), "two");
    EXPECT_EQ(Text(lines.Older(L"two")), "one");
    EXPECT_EQ(Text(lines.Older(L"one")), "nothing");
    EXPECT_EQ(Text(lines.Newer()), "two");
    EXPECT_EQ(Text(lines.Newer()), "half");
    EXPECT_EQ(Text(lines.Newer()), "nothing");
}

TEST(RecalledLines, ANewLineIsTheNewest) {
    RecalledLines lines({});
    EXPECT_EQ(Text(lines.Older(L"")), "nothing");
    lines.Add(L"one");
    lines.Add(L"two");
    EXPECT_EQ(Text(lines.Older(L"")), "two");
    lines.Add(L"three");
    EXPECT_EQ(Text(lines.Older(L"")), "three") << "adding leaves the old lines";
}

TEST(RecalledLines, ARepeatedLineIsKeptOnce) {
    RecalledLines lines({});
    lines.Add(L"one");
    lines.Add(L"one");
    EXPECT_EQ(Text(lines.Older(L"")), "one");
    EXPECT_EQ(Text(lines.Older(L"")), "nothing");
}
