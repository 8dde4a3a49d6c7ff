// Scripts cut short, changed at random, or made to be large: each is read or refused with a message, and nothing of a
// refused one is kept.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

#include "platform/window/resource/ResourceScript.h"
#include "support/Folders.h"

namespace {

// A script with everything in it that there is.
std::string Sample() {
    return R"(#include <windows.h>
#pragma code_page(65001)
#define NOBODY (-1) // of this name
#define WIDE 0x20
LANGUAGE 4, 2
/* the first */
10 DIALOGEX DISCARDABLE 0, 0, 344, (WIDE + 2) & ~1, 77
STYLE DS_MODALFRAME | WS_POPUP | NOT WS_VISIBLE
EXSTYLE 0x10L
CAPTION "地理""位置\n"
FONT 9, "MS Shell Dlg", 400, 0, 1
BEGIN
    CONTROL "", 2001, "QcUiGrid", WS_BORDER | WS_TABSTOP, 7, 7, 330, 189, 0x200
    LTEXT L"当前标准:", NOBODY, 7, -1, 40, 8
    ICON "house", IDC_STATIC, 1, 2, 20, 20
    COMBOBOX 2004, 50, 7, 100, 120, CBS_DROPDOWNLIST | NOT WS_TABSTOP, 1, 5
END
#line 99
11 dialogex 1, 2, 3, 4 { EDITTEXT 5, 1, 1, 1, 1 }
)";
}

// Reads a script; however it went, the reader and the message agree. Gives the number of dialogs, -1 for a refusal.
int Read(const std::string& script) {
    ResourceScript reader;
    CString message;
    const bool isRead = reader.Parse(script, message);
    EXPECT_EQ(message.IsEmpty(), isRead);
    if (isRead)
        return static_cast<int>(reader.Dialogs().size());
    EXPECT_TRUE(reader.Dialogs().empty());
    EXPECT_EQ(message.Find(L"第 "), 0) << ToUtf8(message.View());
    return -1;
}

std::string FileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

constexpr std::string_view kSigns("\"\\(){},|&+-~#/*\n\0\xFFL", 19);

// A script with random changes: bytes replaced, left out, repeated, and signs put in.
std::string Noise(std::mt19937& random, std::string script, int changes) {
    for (int change = 0; change < changes && !script.empty(); ++change) {
        const std::size_t at = random() % script.size();
        const std::size_t length = 1 + random() % 20;
        switch (random() % 4) {
            case 0:
                script[at] = static_cast<char>(random());
                break;
            case 1:
                script.erase(at, length);
                break;
            case 2:
                script.insert(at, script.substr(random() % script.size(), length));
                break;
            default:
                script.insert(at, 1, kSigns[random() % kSigns.size()]);
                break;
        }
    }
    return script;
}

}  // namespace

TEST(ResourceScriptHostile, IsReadOrRefusedWhereverItIsCut) {
    const std::string whole = Sample();
    ASSERT_EQ(Read(whole), 2);
    const std::size_t endOfFirst = whole.find("END") + 3;
    const std::size_t endOfSecond = whole.rfind('}') + 1;
    const std::size_t startOfFirst = whole.find("10 DIALOGEX");
    int read = 0;
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const int dialogs = Read(whole.substr(0, length));
        if (dialogs < 0)
            continue;
        ++read;
        EXPECT_EQ(dialogs, length >= endOfSecond ? 2 : length >= endOfFirst ? 1 : 0) << "cut at " << length;
        EXPECT_TRUE(length <= startOfFirst || length >= endOfFirst) << "half a dialog, cut at " << length;
    }
    EXPECT_GT(read, 0);
}

TEST(ResourceScriptHostile, TakesTheModulesOwnScriptCutAnywhere) {
    const std::string whole = FileText(SourceFolder() + "/module/resources/Resource.h") +
                              FileText(SourceFolder() + "/module/resources/OrvoDataBase.rc");
    const int dialogs = Read(whole);
    ASSERT_GT(dialogs, 0);
    for (std::size_t length = 0; length < whole.size(); length += 97)
        EXPECT_LE(Read(whole.substr(0, length)), dialogs);
}

TEST(ResourceScriptHostile, TakesNoise) {
    std::mt19937 random(20240621);
    int refused = 0;
    for (int round = 0; round < 20000; ++round)
        refused += Read(Noise(random, Sample(), 1 + round % 10)) < 0 ? 1 : 0;
    EXPECT_GT(refused, 1000) << "the changes change nothing";
    for (int round = 0; round < 2000; ++round) {
        std::string bytes(random() % 300, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random());
        Read(bytes);
    }
}

TEST(ResourceScriptHostile, RefusesDeepNumbers) {
    const std::string before = "1 DIALOGEX 0, 0, ";
    for (const char* sign : {"(", "-", "~", "(-"})
        for (const std::size_t count : {100000U, 1000000U}) {
            std::string deep;
            for (std::size_t index = 0; index < count; ++index)
                deep += sign;
            EXPECT_EQ(Read(before + deep), -1);
            EXPECT_EQ(Read(before + deep + "1, 1 {}"), -1);
        }
    EXPECT_EQ(Read(before + std::string(50, '(') + "1" + std::string(50, ')') + ", 1 {}"), 1);
}

TEST(ResourceScriptHostile, TakesManyLinesThatSayNothing) {
    std::string lines;
    for (int line = 0; line < 200000; ++line)
        lines += line % 3 == 0 ? "#include <a.h>\n" : line % 3 == 1 ? "/* */\n" : "#line 5\n";
    EXPECT_EQ(Read(lines), 0);
}

TEST(ResourceScriptHostile, TakesEveryNumberOfADialog) {
    std::string dialogs;
    for (int id = 1; id < 65535; ++id)
        dialogs += std::to_string(id) + " DIALOGEX 0,0,1,1 {}\n";
    EXPECT_EQ(Read(dialogs), 65534);
    EXPECT_EQ(Read(dialogs + "1 DIALOGEX 0,0,1,1 {}"), -1);
}

TEST(ResourceScriptHostile, TakesLongTextsAndNames) {
    const std::string million(1000000, 'x');
    EXPECT_EQ(Read("1 DIALOGEX 0,0,1,1 CAPTION \"" + million + "\" {}"), 1);
    EXPECT_EQ(Read("1 DIALOGEX 0,0,1,1 CAPTION \"" + million), -1);
    EXPECT_EQ(Read("#define " + million + " 5\n1 DIALOGEX 0,0,1," + million + " {}"), 1);
    EXPECT_EQ(Read("1 DIALOGEX 0,0,1," + million + " {}"), -1);
    EXPECT_EQ(Read("1 DIALOGEX 0,0,1," + std::string(1000000, '9') + " {}"), -1);
    EXPECT_EQ(Read("/*" + million), -1);
    EXPECT_EQ(Read("//" + million), 0);
}

TEST(ResourceScriptHostile, RefusesZerosAndControlCharacters) {
    using namespace std::string_literals;
    EXPECT_EQ(Read("\0"s), -1);
    EXPECT_EQ(Read("1 DIALOGEX 0,0,1,1 CAPTION \"a\0b\" {}"s), -1);
    EXPECT_EQ(Read("1 DIALOGEX 0,0,1,1 CAPTION \"a\nb\" {}"s), -1);
    EXPECT_EQ(Read("1 DIALOGEX 0,0,1,1 CAPTION \"a\x01\" {}"s), -1);
    EXPECT_EQ(Read("1 DIALOGEX 0,0,1,1\0{}"s), -1);
}

TEST(ResourceScriptHostile, CountsLinesBeyondTheLargestNumber) {
    EXPECT_EQ(Read("#line 2147483647\n\n\n?"), -1);
    EXPECT_EQ(Read("#line 2147483648\n"), -1);
}
