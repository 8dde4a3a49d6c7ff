// Header variables behind a header that ends too early: read, told, and saved as they were.
#include "DrawingText.h"
#include "platform/host/DrawingChange.h"
#include "platform/host/DrawingUnits.h"

namespace {

constexpr std::string_view kHeader = "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1015\n  0\nENDSEC\n";
constexpr std::string_view kLoose = "  9\n$INSUNITS\n 70\n     6\n  9\n$DWGCODEPAGE\n  3\nANSI_936\n";

std::string Entities() {
    return Section("ENTITIES", "  0\nTEXT\n  5\n2F\n  8\n0\n  1\n\xB1\xB1\xBE\xA9\n 10\n1.0\n");
}
// With the end where it belonged, or without one.
std::string LooseDrawing(std::string_view loose, bool hasLateEnd) {
    return DrawingOf(std::string(kHeader) + std::string(loose) + (hasLateEnd ? "  0\nENDSEC\n" : "") + Entities());
}

// The status of a text, which has to be refused or read as a whole.
Acad::ErrorStatus StatusOf(const std::string& text, std::string* message = nullptr) {
    const FileTree files;
    files.Write("drawing.dxf", text);
    AcDbDatabase database;
    CString told;
    const Acad::ErrorStatus status = database.dxfIn(files.File("drawing.dxf"), &told);
    EXPECT_EQ(status == Acad::eOk, told.IsEmpty()) << text;
    if (message)
        *message = ToUtf8(told.View());
    return status;
}

}  // namespace

TEST(LooseHeaders, AreReadLikeThoseInTheirPlace) {
    for (const bool hasLateEnd : {false, true}) {
        const OpenDrawing drawing(LooseDrawing(kLoose, hasLateEnd));
        EXPECT_EQ(drawing.database.GetEntityCount(), 1U);
        std::vector<DxfGroup> groups;
        EXPECT_TRUE(drawing.database.GetHeaderVariable("$INSUNITS", groups));
        EXPECT_EQ(groups, (std::vector<DxfGroup>{{70, "     6"}}));
        EXPECT_TRUE(drawing.database.GetHeaderVariable("$ACADVER", groups));
        EXPECT_EQ(groups, (std::vector<DxfGroup>{{1, "AC1015"}}));
        EXPECT_FALSE(drawing.database.GetHeaderVariable("$NOBODY", groups));
        EXPECT_TRUE(IsDrawingInMetres(&drawing.database)) << "the unit counts";
        EXPECT_EQ(drawing.database.Decode("\xB1\xB1\xBE\xA9"), L"北京") << "and so does the code page";
    }
}

TEST(LooseHeaders, AreToldWithTheirLine) {
    OpenDrawing drawing(LooseDrawing(kLoose, false));
    EXPECT_EQ(ToUtf8(drawing.database.GetReadWarning().View()),
              "图形文件第 11 行有错：文件头变量在文件头结束（ENDSEC）之后，已照样读取。");
    EXPECT_EQ(ToUtf8(OpenDrawing(LooseDrawing("999\nnobody reads this\n" + std::string(kLoose), true))
                         .database.GetReadWarning()
                         .View()),
              "图形文件第 13 行有错：文件头变量在文件头结束（ENDSEC）之后，已照样读取。");
    drawing.files.Write("sound.dxf", SmallDrawing());
    ASSERT_EQ(drawing.database.dxfIn(drawing.files.File("sound.dxf")), Acad::eOk);
    EXPECT_TRUE(drawing.database.GetReadWarning().IsEmpty()) << "of the drawing that is there now";
    EXPECT_TRUE(AcDbDatabase().GetReadWarning().IsEmpty());
}

TEST(LooseHeaders, AreSavedByteForByte) {
    for (const bool hasLateEnd : {false, true}) {
        const std::string text = LooseDrawing(kLoose, hasLateEnd);
        OpenDrawing drawing(text);
        EXPECT_EQ(drawing.Saved(), text);
        std::vector<DxfGroup> groups = drawing.Groups(drawing.Handle(0x2F));
        groups[2].value = "WALL";
        ASSERT_TRUE(drawing.database.SetGroups(drawing.Handle(0x2F), groups));
        std::string expected = text;
        expected.replace(expected.find("  8\n0\n"), 6, "  8\nWALL\n");
        EXPECT_EQ(drawing.Saved(), expected) << "a change of something else";
    }
}

TEST(LooseHeaders, KeepTheNextHandleWhereItStands) {
    const std::string seed = "  9\n$HANDSEED\n  5\n30\n";
    for (const bool hasLateEnd : {false, true}) {
        const std::string text = LooseDrawing(seed + "  9\n$INSUNITS\n 70\n6\n", hasLateEnd);
        OpenDrawing drawing(text);
        DrawingChange change;
        change.layers.push_back({L"NEW", 1});
        CString message;
        if (drawing.database.Redraw(change, &message) != Acad::eOk)
            GTEST_FAIL() << ToUtf8(message.View());
        const std::string saved = drawing.Saved();
        EXPECT_EQ(saved.substr(0, kHeader.size()), kHeader) << "the header gets no second one";
        const std::size_t at = saved.find("$HANDSEED");
        ASSERT_NE(at, std::string::npos);
        EXPECT_EQ(saved.find("$HANDSEED", at + 1), std::string::npos);
        const std::uint64_t next = std::stoull(saved.substr(saved.find("5\n", at) + 2), nullptr, 16);
        EXPECT_GT(next, 0x30U) << "handles begin where the file said";
        std::vector<DxfGroup> groups;
        EXPECT_TRUE(drawing.database.GetHeaderVariable("$INSUNITS", groups));
        EXPECT_FALSE(drawing.database.GetReadWarning().IsEmpty());
    }
}

TEST(LooseHeaders, StandBehindTheHeaderAloneAndOnce) {
    const std::string header(kHeader);
    const std::string loose(kLoose);
    EXPECT_EQ(StatusOf(DrawingOf(header + loose + Entities())), Acad::eOk);
    EXPECT_EQ(StatusOf(DrawingOf(header + loose)), Acad::eOk) << "the end of the file may follow";
    std::string message;
    for (const std::string& text :
         {DrawingOf(loose + Entities()), DrawingOf(Entities() + loose), DrawingOf(header + Entities() + loose),
          DrawingOf(header + loose + "  0\nENDSEC\n" + loose + Entities()),
          DrawingOf(header + "  0\nENDSEC\n" + Entities()),
          DrawingOf(header + loose + "  0\nENDSEC\n  0\nENDSEC\n" + Entities()), DrawingOf(header + " 70\n6\n" + loose),
          DrawingOf(header + loose + "  0\nLINE\n" + Entities())}) {
        EXPECT_EQ(StatusOf(text, &message), Acad::eBadDxfFile) << text;
        EXPECT_NE(message.find("此处应为 SECTION 或 EOF"), std::string::npos) << message;
    }
    EXPECT_EQ(StatusOf(header + loose, &message), Acad::eBadDxfFile);
    EXPECT_NE(message.find("缺少 EOF"), std::string::npos) << message;
}
