// Changing an object's groups: what is refused, and what the bytes of the file become.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "DrawingText.h"

using namespace std::string_literals;

namespace {

// A drawing with one object under test between two neighbours.
std::string Around(std::string_view object, std::string_view lineEnd = "\n") {
    std::string text;
    for (const std::string_view line :
         {"  0", "SECTION", "  2", "ENTITIES", "  0", "LINE", " 5", "1", "    999", "before"})
        text.append(line).append(lineEnd);
    text.append(object);
    for (const std::string_view line : {"0", "ARC", "  5  ", "3", "  0", "ENDSEC", "  0", "EOF", "", "garbage"})
        text.append(line).append(lineEnd);
    return text;
}

// What a drawing with this object becomes when its groups are changed in this way.
template <class Change>
std::string After(const std::string& object, const Change& change, std::string_view lineEnd = "\n") {
    OpenDrawing drawing(Around(object, lineEnd));
    const AcDbObjectId id = drawing.Handle(2);
    std::vector<DxfGroup> groups = drawing.Groups(id);
    change(groups);
    EXPECT_TRUE(drawing.database.SetGroups(id, groups));
    EXPECT_EQ(drawing.Groups(id), groups);
    return drawing.Saved();
}

const std::string kText = "0\nTEXT\n 5\n2\n100\nAcDbText\n   10\n1.0\n20\n2.0\n  1\nold\n999\nnote\n  40\n 2.5\n";

bool Accepts(const std::vector<DxfGroup>& groups) {
    OpenDrawing drawing(Around(kText));
    const AcDbObjectId id = drawing.Handle(2);
    const std::vector<DxfGroup> before = drawing.Groups(id);
    const bool isAccepted = drawing.database.SetGroups(id, groups);
    EXPECT_EQ(drawing.database.IsModified(), isAccepted);
    EXPECT_EQ(drawing.Groups(id), isAccepted ? groups : before);
    if (!isAccepted)
        EXPECT_EQ(drawing.Saved(), Around(kText));
    return isAccepted;
}

}  // namespace

TEST(DxfGroups, ReplaceAValueAndNothingElse) {
    std::string expected = kText;
    expected.replace(expected.find("old"), 3, "a new text");
    EXPECT_EQ(After(kText, [](auto& groups) { groups[5].value = "a new text"; }), Around(expected));
}

TEST(DxfGroups, ReplaceTheLastAndTheFirstValuesAfterTheType) {
    std::string expected = kText;
    expected.replace(expected.find(" 2.5\n"), 5, "7\n");
    EXPECT_EQ(After(kText, [](auto& groups) { groups.back().value = "7"; }), Around(expected));
}

TEST(DxfGroups, KeepTheLineEndsOfTheLinesThatStay) {
    const std::string object = "  0\r\nTEXT\n  5\n2\r\n  1\r\nold\n 40\r\n1\r\n";
    EXPECT_EQ(After(
                  object, [](auto& groups) { groups[2].value = "new"; }, "\r\n"),
              Around("  0\r\nTEXT\n  5\n2\r\n  1\r\nnew\n 40\r\n1\r\n", "\r\n"));
}

TEST(DxfGroups, WriteAnotherCodeInTheFilesWay) {
    std::string expected = kText;
    expected.replace(expected.find("   10\n"), 6, " 11\n");
    EXPECT_EQ(After(kText, [](auto& groups) { groups[3].code = 11; }), Around(expected));
}

TEST(DxfGroups, AppendInTheFilesWay) {
    EXPECT_EQ(After(kText,
                    [](auto& groups) {
                        groups.push_back({7, "STANDARD"});
                        groups.push_back({1001, "APP"});
                        groups.push_back({-3, ""});
                    }),
              Around(kText + "  7\nSTANDARD\n1001\nAPP\n -3\n\n"));
    const std::string object = "  0\r\nTEXT\r\n  5\r\n2\r\n";
    EXPECT_EQ(After(
                  object,
                  [](auto& groups) {
                      groups.push_back({40, "1"});
                  },
                  "\r\n"),
              Around(object + " 40\r\n1\r\n", "\r\n"));
}

TEST(DxfGroups, AppendWithoutPaddingWhereTheFileHasNone) {
    const std::string text = "0\nSECTION\n2\nENTITIES\n0\nLINE\n5\n2\n0\nENDSEC\n0\nEOF\n";
    OpenDrawing drawing(text);
    std::vector<DxfGroup> groups = drawing.Groups(drawing.Handle(2));
    groups.push_back({8, "WALL"});
    ASSERT_TRUE(drawing.database.SetGroups(drawing.Handle(2), groups));
    EXPECT_EQ(drawing.Saved(), "0\nSECTION\n2\nENTITIES\n0\nLINE\n5\n2\n8\nWALL\n0\nENDSEC\n0\nEOF\n");
}

TEST(DxfGroups, TakeTheFilesWayFromBehindAByteOrderMark) {
    OpenDrawing drawing(
        "\xEF\xBB\xBF" +
        Lines({"  0", "SECTION", "  2", "ENTITIES", "0", "LINE", "5", "2", "0", "ENDSEC", "0", "EOF"}, "\r\n"));
    std::vector<DxfGroup> groups = drawing.Groups(drawing.Handle(2));
    groups.push_back({8, "WALL"});
    ASSERT_TRUE(drawing.database.SetGroups(drawing.Handle(2), groups));
    EXPECT_EQ(drawing.Saved(), "\xEF\xBB\xBF" + Lines({"  0", "SECTION", "  2", "ENTITIES", "0", "LINE", "5", "2",
                                                       "  8", "WALL", "0", "ENDSEC", "0", "EOF"},
                                                      "\r\n"));
}

TEST(DxfGroups, InsertBetweenOthersThatStay) {
    std::string expected = kText;
    expected.insert(expected.find("   10\n"), " 62\n3\n");
    EXPECT_EQ(After(kText, [](auto& groups) { groups.insert(groups.begin() + 3, {62, "3"}); }), Around(expected));
}

TEST(DxfGroups, RemoveWithTheCommentsBehindThem) {
    std::string expected = kText;
    expected.erase(expected.find("  1\nold"), std::string("  1\nold\n999\nnote\n").size());
    EXPECT_EQ(After(kText, [](auto& groups) { groups.erase(groups.begin() + 5); }), Around(expected));
}

TEST(DxfGroups, KeepWhatIsSameBetweenSeveralChanges) {
    std::string expected = kText;
    expected.insert(expected.find("100\n"), "330\n1F\n");
    expected.erase(expected.find("20\n2.0\n"), 7);
    expected.replace(expected.find(" 2.5\n"), 5, "3\n");
    EXPECT_EQ(After(kText,
                    [](auto& groups) {
                        groups.back().value = "3";
                        groups.erase(groups.begin() + 4);
                        groups.insert(groups.begin() + 2, {330, "1F"});
                    }),
              Around(expected));
}

TEST(DxfGroups, AreTheSameAfterAnyChangeAndAReadAnew) {
    std::mt19937 random(20250101);
    const auto pick = [&random](std::size_t count) { return random() % count; };
    const auto group = [&] { return DxfGroup{static_cast<int>(10 + pick(4)), std::to_string(pick(3))}; };
    for (int round = 0; round < 300; ++round) {
        std::string object = "0\nTEXT\n 5\n2\n";
        for (std::size_t i = pick(30); i > 0; --i) {
            const DxfGroup each = group();
            object += std::string(pick(4), ' ') + std::to_string(each.code) + "\n" + each.value + "\n";
        }
        OpenDrawing drawing(Around(object));
        std::vector<DxfGroup> groups = drawing.Groups(drawing.Handle(2));
        for (std::size_t i = 1 + pick(10); i > 0; --i) {
            const std::size_t at = 2 + pick(groups.size() - 1);
            const std::size_t how = pick(3);
            if (how == 0 || at >= groups.size())
                groups.insert(groups.begin() + static_cast<std::ptrdiff_t>(std::min(at, groups.size())), group());
            else if (how == 1)
                groups.erase(groups.begin() + static_cast<std::ptrdiff_t>(at));
            else
                groups[at] = group();
        }
        ASSERT_TRUE(drawing.database.SetGroups(drawing.Handle(2), groups));
        const std::string saved = drawing.Saved();
        ASSERT_EQ(drawing.database.dxfIn(drawing.files.File("saved.dxf")), Acad::eOk);
        ASSERT_EQ(drawing.Groups(drawing.Handle(2)), groups);
        ASSERT_EQ(drawing.Saved(), saved);
        const std::string around = Around("");
        EXPECT_EQ(saved.substr(0, around.find("0\nARC")), around.substr(0, around.find("0\nARC")));
        EXPECT_EQ(saved.substr(saved.find("0\nARC")), around.substr(around.find("0\nARC")));
    }
}

TEST(DxfGroups, MayBeChangedManyTimes) {
    OpenDrawing drawing(Around(kText));
    const AcDbObjectId id = drawing.Handle(2);
    std::vector<DxfGroup> groups = drawing.Groups(id);
    for (int i = 0; i < 20; ++i) {
        groups[5].value = "text " + std::to_string(i);
        ASSERT_TRUE(drawing.database.SetGroups(id, groups));
    }
    std::string expected = kText;
    expected.replace(expected.find("old"), 3, "text 19");
    EXPECT_EQ(drawing.Saved(), Around(expected));
    groups[5].value = "old";
    ASSERT_TRUE(drawing.database.SetGroups(id, groups));
    EXPECT_EQ(drawing.Saved(), Around(kText));
}

TEST(DxfGroups, OfSeveralObjectsChangeIndependently) {
    OpenDrawing drawing(SmallDrawing());
    std::string expected = SmallDrawing();
    for (const std::uint64_t handle : {0x1AFU, 0x10U, 0x2U, 0x22U, 0xCU, 0x31U}) {
        std::vector<DxfGroup> groups = drawing.Groups(drawing.Handle(handle));
        groups.push_back({1000, "mark " + std::to_string(handle)});
        ASSERT_TRUE(drawing.database.SetGroups(drawing.Handle(handle), groups));
    }
    const auto mark = [&](std::string_view behind, int handle) {
        const std::size_t at = expected.find(behind);
        ASSERT_NE(at, std::string::npos);
        expected.insert(at + behind.size(), "1000\nmark " + std::to_string(handle) + "\n");
    };
    mark(" 40\n2.5\n", 0x1AF);
    mark("  5\n10\n  2\n0\n", 0x10);
    mark("  5\n2\n 70\n1\n", 0x2);
    mark("ENDBLK\n  5\n22\n", 0x22);
    mark("281\n1\n", 0xC);
    mark(" 10\n1.0\n", 0x31);
    EXPECT_EQ(drawing.Saved(), expected);
}

TEST(DxfGroups, ThatAreTheSameChangeNothing) {
    OpenDrawing drawing(Around(kText));
    EXPECT_TRUE(drawing.database.SetGroups(drawing.Handle(2), drawing.Groups(drawing.Handle(2))));
    EXPECT_FALSE(drawing.database.IsModified());
    EXPECT_EQ(drawing.Saved(), Around(kText));
}

TEST(DxfGroups, AreRefusedWithoutAnObject) {
    OpenDrawing drawing(Around(kText));
    EXPECT_FALSE(drawing.database.SetGroups(AcDbObjectId(), {{0, "TEXT"}}));
    EXPECT_FALSE(drawing.database.SetGroups(AcDbObjectId::FromOldId(UINT64_MAX), {{0, "TEXT"}}));
    EXPECT_FALSE(drawing.database.IsModified());
}

TEST(DxfGroups, MustBeginWithTheTypeThatTheObjectHas) {
    EXPECT_TRUE(Accepts({{0, "TEXT"}, {5, "2"}}));
    EXPECT_FALSE(Accepts({}));
    EXPECT_FALSE(Accepts({{5, "2"}, {0, "TEXT"}}));
    EXPECT_FALSE(Accepts({{0, "MTEXT"}, {5, "2"}}));
    EXPECT_FALSE(Accepts({{0, "TEXT "}, {5, "2"}}));
    EXPECT_FALSE(Accepts({{0, "ENDSEC"}, {5, "2"}}));
    EXPECT_FALSE(Accepts({{0, "TEXT"}, {5, "2"}, {0, "LINE"}})) << "it would be a second object";
}

TEST(DxfGroups, MustKeepTheHandle) {
    EXPECT_TRUE(Accepts({{0, "TEXT"}, {5, " 02"}})) << "the same number";
    EXPECT_TRUE(Accepts({{0, "TEXT"}, {5, "2"}, {5, "9"}})) << "the first counts";
    EXPECT_FALSE(Accepts({{0, "TEXT"}, {5, "9"}}));
    EXPECT_FALSE(Accepts({{0, "TEXT"}, {8, "0"}}));
    EXPECT_FALSE(Accepts({{0, "TEXT"}, {5, "1"}})) << "a neighbour's";
    OpenDrawing drawing(DrawingOf(Section("ENTITIES", "  0\nLINE\n")));
    EXPECT_FALSE(drawing.database.SetGroups(drawing.database.GetEntityId(0), {{0, "LINE"}, {5, "1"}}));
    EXPECT_TRUE(drawing.database.SetGroups(drawing.database.GetEntityId(0), {{0, "LINE"}, {8, "1"}}));
}

TEST(DxfGroups, MustKeepTheHandleOfADimensionStyleInGroup105) {
    OpenDrawing drawing(SmallDrawing());
    const AcDbObjectId id = drawing.Handle(0x27);
    EXPECT_TRUE(drawing.database.SetGroups(id, {{0, "DIMSTYLE"}, {105, "27"}, {5, "anything"}}));
    EXPECT_FALSE(drawing.database.SetGroups(id, {{0, "DIMSTYLE"}, {105, "28"}}));
    EXPECT_FALSE(drawing.database.SetGroups(id, {{0, "DIMSTYLE"}, {5, "27"}}));
}

TEST(DxfGroups, MustHaveCodesThatAFileCanHave) {
    for (const int code : {-5, -1, 1, 998, 1000, 1071})
        EXPECT_TRUE(Accepts({{0, "TEXT"}, {5, "2"}, {code, "x"}})) << code;
    for (const int code : {-6, 1072, 999, INT32_MIN, INT32_MAX})
        EXPECT_FALSE(Accepts({{0, "TEXT"}, {5, "2"}, {code, "x"}})) << code;
}

TEST(DxfGroups, MustHaveValuesThatALineCanHold) {
    for (const char* value : {"a\nb", "a\r", "\r\n", "\n"})
        EXPECT_FALSE(Accepts({{0, "TEXT"}, {5, "2"}, {1, value}})) << value;
    EXPECT_FALSE(Accepts({{0, "TEXT"}, {5, "2"}, {1, "a\0b"s}}));
    EXPECT_TRUE(Accepts({{0, "TEXT"}, {5, "2"}, {1, "\x01\x1A \t\xFF"}}));
    EXPECT_TRUE(Accepts({{0, "TEXT"}, {5, "2"}, {1, std::string(1 << 20, 'x')}}));
    EXPECT_FALSE(Accepts({{0, "TEXT"}, {5, "2"}, {1, std::string((1 << 20) + 1, 'x')}}));
}
