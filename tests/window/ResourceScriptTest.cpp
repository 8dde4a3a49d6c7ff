// What the statements of a resource script mean. Values are the framework's published ones, written as numbers here.
#include "platform/window/resource/ResourceScript.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "platform/window/WindowStyles.h"
#include "support/Folders.h"
#include "support/TableSwitch.h"

namespace {

// The dialog of number 1 in a script; an empty one, with the test failed, when it cannot be read.
DialogTemplate ReadOne(const std::string& script) {
    ResourceScript reader;
    CString message;
    EXPECT_TRUE(reader.Parse(script, message)) << ToUtf8(message.View());
    EXPECT_TRUE(message.IsEmpty());
    const DialogTemplate* dialog = reader.FindDialog(1);
    EXPECT_NE(dialog, nullptr);
    return dialog ? *dialog : DialogTemplate();
}

// The one item of a dialog that has this line between BEGIN and END.
DialogItemTemplate ReadItem(const std::string& line) {
    const DialogTemplate dialog = ReadOne("1 DIALOGEX 0, 0, 10, 10\nBEGIN\n" + line + "\nEND\n");
    EXPECT_EQ(dialog.items.size(), 1U) << line;
    return dialog.items.empty() ? DialogItemTemplate() : dialog.items[0];
}

// What is said about a script that cannot be read; empty when it can.
std::string MessageAbout(const std::string& script) {
    ResourceScript reader;
    CString message;
    const bool isRead = reader.Parse(script, message);
    EXPECT_EQ(isRead, message.IsEmpty());
    EXPECT_TRUE(isRead || reader.Dialogs().empty());
    return ToUtf8(message.View());
}

std::string MessageAboutItem(const std::string& line) {
    return MessageAbout("1 DIALOGEX 0, 0, 10, 10\nBEGIN\n" + line + "\nEND\n");
}

constexpr DWORD kChild = 0x50000000;  // WS_CHILD | WS_VISIBLE
constexpr DWORD kTabStop = 0x00010000;
constexpr DWORD kGroup = 0x00020000;
constexpr DWORD kBorder = 0x00800000;
constexpr DWORD kDisabled = 0x08000000;

}  // namespace

TEST(ResourceScript, HasNoDialogsWhenTheScriptIsEmpty) {
    ResourceScript reader;
    CString message(L"before");
    EXPECT_TRUE(reader.Parse("", message));
    EXPECT_TRUE(message.IsEmpty());
    EXPECT_TRUE(reader.Dialogs().empty());
    EXPECT_EQ(reader.FindDialog(1), nullptr);
}

TEST(ResourceScript, ReadsTheFrameOfADialog) {
    const DialogTemplate dialog = ReadOne(
        "LANGUAGE 0x04, 0x02\n"
        "1 DIALOGEX 3, -4, 344, 224\n"
        "STYLE DS_MODALFRAME | WS_POPUP | WS_SYSMENU\n"
        "EXSTYLE WS_EX_TOOLWINDOW\n"
        "CAPTION \"地理位置\"\n"
        "FONT 9, \"MS Shell Dlg\"\n"
        "BEGIN\nEND\n");
    EXPECT_EQ(dialog.id, 1U);
    EXPECT_EQ(dialog.x, 3);
    EXPECT_EQ(dialog.y, -4);
    EXPECT_EQ(dialog.cx, 344);
    EXPECT_EQ(dialog.cy, 224);
    EXPECT_EQ(dialog.style, 0x80U | 0x80000000U | 0x00080000U | 0x00C00000U | 0x40U);
    EXPECT_EQ(dialog.exStyle, 0x80U);
    EXPECT_EQ(dialog.caption, L"地理位置");
    EXPECT_EQ(dialog.pointSize, 9);
    EXPECT_EQ(dialog.face, L"MS Shell Dlg");
    EXPECT_TRUE(dialog.items.empty());
}

TEST(ResourceScript, GivesADialogWithoutStyleTheUsualOne) {
    EXPECT_EQ(ReadOne("1 DIALOGEX 0,0,1,1 BEGIN END").style, 0x80880000U);
    EXPECT_EQ(ReadOne("1 DIALOGEX 0,0,1,1 CAPTION \"a\" BEGIN END").style, 0x80C80000U);
    EXPECT_EQ(ReadOne("1 DIALOGEX 0,0,1,1 STYLE 0 BEGIN END").style, 0U);
}

TEST(ResourceScript, AddsUpTheStylesOfADialogInAnyOrder) {
    EXPECT_EQ(ReadOne("1 DIALOGEX 0,0,1,1 CAPTION \"a\" STYLE 1 STYLE 4 BEGIN END").style, 0x00C00005U);
}

TEST(ResourceScript, ReadsAFontWithWeightAndSet) {
    const DialogTemplate dialog = ReadOne("1 DIALOGEX 0,0,1,1 STYLE 0 FONT 12, \"Sans\", 700, 1, 0x86 BEGIN END");
    EXPECT_EQ(dialog.pointSize, 12);
    EXPECT_EQ(dialog.face, L"Sans");
    EXPECT_EQ(dialog.style, 0x40U);
}

TEST(ResourceScript, TakesBracesForBeginAndEnd) {
    EXPECT_EQ(ReadOne("1 DIALOGEX 0,0,1,1 { LTEXT \"a\", 5, 1,2,3,4 }").items.size(), 1U);
}

TEST(ResourceScript, TakesWordsInSmallLetters) {
    EXPECT_EQ(ReadOne("1 dialogex 0,0,1,1 begin ltext \"a\", 5, 1,2,3,4, not WS_VISIBLE end").items.size(), 1U);
}

TEST(ResourceScript, PassesOverHelpNumbersAndWordsOfMemory) {
    const DialogTemplate dialog =
        ReadOne("1 DIALOGEX DISCARDABLE MOVEABLE 1,2,3,4, 77 { EDITTEXT 5, 1,2,3,4, 0, 0x200, 88 }");
    EXPECT_EQ(dialog.cy, 4);
    ASSERT_EQ(dialog.items.size(), 1U);
    EXPECT_EQ(dialog.items[0].exStyle, 0x200U);
}

TEST(ResourceScript, FindsEachDialogByItsNumber) {
    ResourceScript reader;
    CString message;
    ASSERT_TRUE(reader.Parse("7 DIALOGEX 0,0,1,1 {}\n65534 DIALOGEX 0,0,2,2 {}", message));
    ASSERT_EQ(reader.Dialogs().size(), 2U);
    ASSERT_NE(reader.FindDialog(65534), nullptr);
    EXPECT_EQ(reader.FindDialog(65534)->cx, 2);
    EXPECT_EQ(reader.FindDialog(7)->cx, 1);
    EXPECT_EQ(reader.FindDialog(8), nullptr);
    EXPECT_EQ(reader.FindDialog(0), nullptr);
}

TEST(ResourceScript, ForgetsWhatWasReadBefore) {
    ResourceScript reader;
    CString message;
    ASSERT_TRUE(reader.Parse("7 DIALOGEX 0,0,1,1 {}", message));
    ASSERT_TRUE(reader.Parse("8 DIALOGEX 0,0,1,1 {}", message));
    EXPECT_EQ(reader.FindDialog(7), nullptr);
    ASSERT_FALSE(reader.Parse("9 DIALOGEX", message));
    EXPECT_TRUE(reader.Dialogs().empty());
}

TEST(ResourceScript, ReadsAControlWithItsClass) {
    const DialogItemTemplate item = ReadItem(
        "CONTROL \"x\", 2045, \"msctls_updown32\", UDS_SETBUDDYINT | UDS_ALIGNRIGHT | UDS_AUTOBUDDY | UDS_ARROWKEYS, "
        "1, 2, 10, 14, WS_EX_RIGHT");
    EXPECT_EQ(item.windowClass, L"msctls_updown32");
    EXPECT_EQ(item.text, L"x");
    EXPECT_EQ(item.id, 2045U);
    EXPECT_EQ(item.style, kChild | 0x36U);
    EXPECT_EQ(item.exStyle, 0x1000U);
    EXPECT_EQ(item.x, 1);
    EXPECT_EQ(item.y, 2);
    EXPECT_EQ(item.cx, 10);
    EXPECT_EQ(item.cy, 14);
}

TEST(ResourceScript, WritesClassesOfTheSystemInCapitalsAndLeavesOthers) {
    EXPECT_EQ(ReadItem("CONTROL \"\", 1, \"Button\", 0, 1,1,1,1").windowClass, L"BUTTON");
    EXPECT_EQ(ReadItem("CONTROL \"\", 1, edit, 0, 1,1,1,1").windowClass, L"EDIT");
    EXPECT_EQ(ReadItem("CONTROL \"\", 1, \"QcUiGrid\", 0, 1,1,1,1").windowClass, L"QcUiGrid");
}

TEST(ResourceScript, GivesEachStatementItsClassAndStyle) {
    const struct {
        const char* statement;
        const wchar_t* windowClass;
        DWORD alone;      // without a style
        DWORD withStyle;  // with WS_DISABLED
    } kRows[] = {
        {"LTEXT \"t\",", L"STATIC", kGroup | 0, 0},
        {"CTEXT \"t\",", L"STATIC", kGroup | 1, 1},
        {"RTEXT \"t\",", L"STATIC", kGroup | 2, 2},
        {"PUSHBUTTON \"t\",", L"BUTTON", kTabStop | 0, kTabStop | 0},
        {"DEFPUSHBUTTON \"t\",", L"BUTTON", kTabStop | 1, kTabStop | 1},
        {"CHECKBOX \"t\",", L"BUTTON", kTabStop | 2, kTabStop | 2},
        {"AUTOCHECKBOX \"t\",", L"BUTTON", kTabStop | 3, kTabStop | 3},
        {"RADIOBUTTON \"t\",", L"BUTTON", kTabStop | 4, 4},
        {"AUTORADIOBUTTON \"t\",", L"BUTTON", kTabStop | 9, 9},
        {"GROUPBOX \"t\",", L"BUTTON", 7, 7},
        {"EDITTEXT", L"EDIT", kBorder | kTabStop, kBorder | kTabStop},
        {"COMBOBOX", L"COMBOBOX", kTabStop | 1, 0},
        {"LISTBOX", L"LISTBOX", kBorder | 1, kBorder | 1},
    };
    for (const auto& row : kRows) {
        const std::string begin = std::string(row.statement) + " 17, 1, 2, 3, 4";
        const DialogItemTemplate alone = ReadItem(begin);
        EXPECT_EQ(alone.windowClass, row.windowClass) << begin;
        EXPECT_EQ(alone.style, kChild | row.alone) << begin;
        EXPECT_EQ(alone.id, 17U) << begin;
        EXPECT_EQ(alone.cy, 4) << begin;
        EXPECT_EQ(alone.text, begin.find('"') == std::string::npos ? L"" : L"t") << begin;
        const DialogItemTemplate styled = ReadItem(begin + ", WS_DISABLED, 0x20");
        EXPECT_EQ(styled.style, kChild | kDisabled | row.withStyle) << begin;
        EXPECT_EQ(styled.exStyle, 0x20U) << begin;
    }
}

TEST(ResourceScript, TakesOutOfTheStyleWhatFollowsNot) {
    EXPECT_EQ(ReadItem("PUSHBUTTON \"a\", 1, 1,1,1,1, NOT WS_TABSTOP").style, kChild);
    EXPECT_EQ(ReadItem("EDITTEXT 1, 1,1,1,1, NOT WS_BORDER | ES_READONLY | NOT WS_VISIBLE").style,
              0x40000000U | kTabStop | 0x800U);
    EXPECT_EQ(ReadItem("LTEXT \"a\", 1, 1,1,1,1, NOT WS_GROUP | WS_GROUP").style, kChild | kGroup);
    EXPECT_EQ(ReadItem("LTEXT \"a\", 1, 1,1,1,1, WS_GROUP | NOT WS_GROUP").style, kChild);
}

TEST(ResourceScript, LeavesIconsOut) {
    const DialogTemplate dialog = ReadOne(
        "1 DIALOGEX 0,0,1,1 BEGIN\n"
        "ICON \"house\", 5, 1, 2\n"
        "ICON 7, IDC_STATIC, 1, 2, 3, 4, WS_GROUP | NOT WS_VISIBLE, 1\n"
        "EDITTEXT 9, 1,2,3,4\n"
        "END");
    ASSERT_EQ(dialog.items.size(), 1U);
    EXPECT_EQ(dialog.items[0].id, 9U);
}

TEST(ResourceScript, NumbersUnnamedItemsWithSixteenBits) {
    EXPECT_EQ(ReadItem("LTEXT \"a\", IDC_STATIC, 1,1,1,1").id, 0xFFFFU);
    EXPECT_EQ(ReadItem("LTEXT \"a\", -1, 1,1,1,1").id, 0xFFFFU);
    EXPECT_EQ(ReadItem("LTEXT \"a\", 65535, 1,1,1,1").id, 0xFFFFU);
    EXPECT_EQ(IDC_STATIC, 0xFFFFU);
}

TEST(ResourceScript, CalculatesNumbersAsACompilerDoes) {
    const std::string names = "#define A 0x10\n#define B (A + 1)\n#define N -7\n";
    const auto width = [&](const std::string& number) {
        return ReadOne(names + "1 DIALOGEX 0, 0, " + number + ", 1 {}").cx;
    };
    EXPECT_EQ(width("12"), 12);
    EXPECT_EQ(width("0x1F"), 31);
    EXPECT_EQ(width("0xffL"), 255);
    EXPECT_EQ(width("10UL"), 10);
    EXPECT_EQ(width("A"), 16);
    EXPECT_EQ(width("B"), 17);
    EXPECT_EQ(width("N"), -7);
    EXPECT_EQ(width("20 - 5 - 3"), 12);
    EXPECT_EQ(width("20 - (5 - 3)"), 18);
    EXPECT_EQ(width("1 | 2 & 6"), 3);
    EXPECT_EQ(width("1 + 2 & 6"), 2);
    EXPECT_EQ(width("~0 & 5"), 5);
    EXPECT_EQ(width("- - 4"), 4);
    EXPECT_EQ(width("-32768"), -32768);
    EXPECT_EQ(width("32767"), 32767);
}

TEST(ResourceScript, PrefersTheScriptsOwnNames) {
    EXPECT_EQ(ReadOne("#define WS_DISABLED 3\n1 DIALOGEX 0, 0, WS_DISABLED, 1 {}").cx, 3);
}

TEST(ResourceScript, TakesANameDefinedTwiceAlike) {
    EXPECT_EQ(ReadOne("#define A 3\n#define A 0x3\n1 DIALOGEX 0, 0, A, 1 {}").cx, 3);
    EXPECT_NE(MessageAbout("#define A 3\n#define A 4\n").find("第 2 行"), std::string::npos);
}

TEST(ResourceScript, LetsNamesMeanNothing) {
    EXPECT_EQ(MessageAbout("#define RESOURCES\n#define LAST"), "");
    EXPECT_NE(MessageAbout("#define W\n1 DIALOGEX 0, 0, W, 1 {}").find("第 2 行"), std::string::npos);
}

TEST(ResourceScript, ReadsQuotesAndEscapesInTexts) {
    EXPECT_EQ(ReadItem(R"(LTEXT "a""b", 1, 1,1,1,1)").text, L"a\"b");
    EXPECT_EQ(ReadItem(R"(LTEXT """", 1, 1,1,1,1)").text, L"\"");
    EXPECT_EQ(ReadItem(R"(LTEXT "", 1, 1,1,1,1)").text, L"");
    EXPECT_EQ(ReadItem(R"(LTEXT "a\n\t\r\"\\z", 1, 1,1,1,1)").text, L"a\n\t\r\"\\z");
    EXPECT_EQ(ReadItem(R"(LTEXT L"度 & 分", 1, 1,1,1,1)").text, L"度 & 分");
    EXPECT_EQ(ReadItem("LTEXT \"a\tb\", 1, 1,1,1,1").text, L"a\tb");
    EXPECT_EQ(ReadItem(R"(LTEXT "// no /* comment */ #define", 1, 1,1,1,1)").text, L"// no /* comment */ #define");
    EXPECT_EQ(ReadItem("LTEXT \"\xF0\x9F\x8F\xA0\", 1, 1,1,1,1").text, FromUtf8("\xF0\x9F\x8F\xA0"));
}

TEST(ResourceScript, PutsASignForWhatIsNoUtf8InTexts) {
    EXPECT_EQ(ReadItem("LTEXT \"a\xFFz\", 1, 1,1,1,1").text, L"a\xFFFDz");
}

TEST(ResourceScript, SkipsCommentsIncludesAndPragmas) {
    EXPECT_EQ(ReadOne("\xEF\xBB\xBF#include <windows.h>  // a header\r\n"
                      "# include \"Resource.h\"\r\n"
                      "#pragma code_page(65001)\r\n"
                      "/* 1 DIALOGEX\r\n ** \"quote */\r\n"
                      "1 /* here */ DIALOGEX 0,0, // there\r\n 5,6 {}\r\n")
                  .cy,
              6);
}

TEST(ResourceScript, SaysInWhichLineItIsWrong) {
    EXPECT_NE(MessageAbout("\n\n  x").find("第 3 行"), std::string::npos);
    EXPECT_NE(MessageAbout("#define A 1\n/* \n\n */ 1 DIALOG").find("第 4 行"), std::string::npos);
    EXPECT_NE(MessageAbout("#line 41 \"a.rc\"\n\n?").find("第 42 行"), std::string::npos);
    EXPECT_NE(MessageAbout("\n/* never closed\n\n").find("第 2 行"), std::string::npos);
    EXPECT_NE(MessageAbout("\n1 DIALOGEX 0, 0, 1,\n99999\n{}").find("第 3 行"), std::string::npos);
    EXPECT_NE(MessageAbout("1 DIALOGEX 0,0,1,1 {\nLTEXT \"a\", 1,1,1,1,\n\nFOO }").find("第 4 行"), std::string::npos);
}

TEST(ResourceScript, RefusesWhatItDoesNotKnow) {
    EXPECT_NE(MessageAboutItem("LTEXT \"a\", 1, 1,1,1,1, SS_LEFTY").find("SS_LEFTY"), std::string::npos);
    for (const char* line : {"SCROLLBAR 1, 1,1,1,1",
                             "LTEXT \"a\" 1, 1,1,1,1",
                             "LTEXT a, 1, 1,1,1,1",
                             "LTEXT \"a\", 1, 1,1,1",
                             "LTEXT \"a\", 1, 1,1,1,1,",
                             "LTEXT \"a\", 1, 1,1,1,1 | 2 3",
                             "LTEXT \"a\", 70000, 1,1,1,1",
                             "LTEXT \"a\", -2, 1,1,1,1",
                             "LTEXT \"a\", 1, 32768,1,1,1",
                             "LTEXT \"a\", 1, 1,1,1,-32769",
                             "LTEXT \"a\", 1, (1,1,1,1",
                             "LTEXT \"a\", 1, 0x,1,1,1",
                             "LTEXT \"a\", 1, 12b,1,1,1",
                             "LTEXT \"a\", 1, 4294967296,1,1,1",
                             "LTEXT \"a\\q\", 1, 1,1,1,1",
                             "LTEXT \"a",
                             "LTEXT \"a\", 1, 1,1,1,1, NOT",
                             "CONTROL \"a\", 1, 5, 0, 1,1,1,1",
                             "CONTROL 5, 1, \"a\", 0, 1,1,1,1",
                             "ICON \"a\", 1, 2",
                             "ICON ,1,2,3",
                             "LTEXT \"a\", 1, 1,1,1,1 度",
                             "BEGIN",
                             "1",
                             "EDITTEXT \"a\", 1, 1,1,1,1"})
        EXPECT_NE(MessageAboutItem(line).find("第 "), std::string::npos) << line;
    for (const char* script : {"1",
                               "1 DIALOG 0,0,1,1 {}",
                               "1 MENU {}",
                               "0 DIALOGEX 0,0,1,1 {}",
                               "-1 DIALOGEX 0,0,1,1 {}",
                               "65536 DIALOGEX 0,0,1,1 {}",
                               "NAME DIALOGEX 0,0,1,1 {}",
                               "1 DIALOGEX 0,0,1 {}",
                               "1 DIALOGEX 0,0,1,1 BEGIN }",
                               "1 DIALOGEX 0,0,1,1 { END",
                               "1 DIALOGEX 0,0,1,1 MENU 5 {}",
                               "1 DIALOGEX 0,0,1,1 FONT 0, \"a\" {}",
                               "1 DIALOGEX 0,0,1,1 FONT 9 {}",
                               "1 DIALOGEX 0,0,1,1 FONT 9, \"a\",1,1,1,1 {}",
                               "1 DIALOGEX 0,0,1,1 CAPTION a {}",
                               "LANGUAGE 4",
                               "LANGUAGE ,",
                               "#if 1",
                               "#define",
                               "#define 5",
                               "#define A 1 + 2",
                               "#define A 1 +\n2",
                               "#define A \"text\"",
                               "#define A B",
                               "#define\nA 5",
                               "#line x",
                               "#line 0\n",
                               "1 DIALOGEX 0,0,1,1 {} #define A 1",
                               "}"})
        EXPECT_NE(MessageAbout(script).find("第 "), std::string::npos) << script;
}

TEST(ResourceScript, RefusesANumberGivenToTwoDialogs) {
    EXPECT_NE(MessageAbout("1 DIALOGEX 0,0,1,1 {}\n2 DIALOGEX 0,0,1,1 {}\n1 DIALOGEX 0,0,1,1 {}\n").find("第 3 行"),
              std::string::npos);
}

TEST(ResourceScript, SpeaksTheLanguageOfTheInterface) {
    const TableSwitch english{{L"第 %d 行：%s", L"Line %d: %s"}, {L"数写错了", L"this is no number"}};
    EXPECT_EQ(MessageAbout("\n7up"), "Line 2: this is no number");
}

// Every constant of the header, as its source has it, is a name with the same value in scripts.
TEST(ResourceScript, KnowsEveryNameOfTheStyles) {
    std::ifstream header(SourceFolder() + "/platform/window/WindowStyles.h");
    const std::string begin = "inline constexpr DWORD ";
    int count = 0;
    for (std::string line; std::getline(header, line);) {
        if (line.compare(0, begin.size(), begin) != 0)
            continue;
        std::istringstream words(line.substr(begin.size()));
        std::string name;
        std::string equals;
        std::string value;
        words >> name >> equals >> value;
        const std::string number = value.substr(0, value.size() - 1);  // without the semicolon
        EXPECT_EQ(ReadOne("1 DIALOGEX 0,0,1,1 STYLE " + name + " {}").style, std::stoul(number, nullptr, 16)) << name;
        ++count;
    }
    EXPECT_GT(count, 150);
}

TEST(ResourceScript, KnowsTheButtonsOfEveryDialog) {
    EXPECT_EQ(ReadItem("LTEXT \"\", IDOK, 1,1,1,1").id, 1U);
    EXPECT_EQ(ReadItem("LTEXT \"\", IDCANCEL, 1,1,1,1").id, 2U);
    EXPECT_EQ(ReadItem("LTEXT \"\", IDYES, 1,1,1,1").id, 6U);
    EXPECT_EQ(ReadItem("LTEXT \"\", IDNO, 1,1,1,1").id, 7U);
}
