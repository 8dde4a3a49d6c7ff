// What new entities become in files of each version.
#include <gtest/gtest.h>

#include "RedrawText.h"

namespace {

// Tables that name model space.
std::string ModelSpace() {
    return Section("TABLES",
                   "  0\nTABLE\n  2\nBLOCK_RECORD\n  5\n1\n 70\n2\n  0\nBLOCK_RECORD\n  5\n1E\n  2\n*Paper_Space\n"
                   "  0\nBLOCK_RECORD\n  5\n1F\n  2\n*MODEL_SPACE\n  0\nENDTAB\n");
}

// A change's entities as they stand in a drawing of a version that holds one other.
std::string NewIn(std::string_view version, const NewEntity& entity) {
    const std::string old = "  0\nPOINT\n  5\n20\n  8\n0\n";
    const std::string saved =
        Redrawn(DrawingOf(HeaderOf(version, "30") + ModelSpace() + Section("ENTITIES", old)), ChangeOf({}, {entity}));
    const std::size_t begin = saved.find(old) + old.size();
    return saved.substr(begin, saved.find("  0\nENDSEC\n", begin) - begin);
}

const std::string kLinePoints = " 10\n0.0\n 20\n0.5\n 30\n1.0\n 11\n2.0\n 21\n-3.25\n 31\n1e-07\n";

}  // namespace

TEST(RedrawEntities, ALineHasWhatItsVersionAsksFor) {
    const std::string begin = "  0\nLINE\n  5\n30\n";
    const std::string markers = "100\nAcDbEntity\n  8\n0\n100\nAcDbLine\n";
    EXPECT_EQ(NewIn("AC1009", NewLine()), "  0\nLINE\n  8\n0\n" + kLinePoints) << "no handles";
    EXPECT_EQ(NewIn("AC1012", NewLine()), begin + markers + kLinePoints) << "no owners";
    for (const char* version : {"AC1015", "AC1018", "AC1021", "AC1024", "AC1027", "AC1032"})
        EXPECT_EQ(NewIn(version, NewLine()), begin + "330\n1F\n" + markers + kLinePoints) << version;
}

TEST(RedrawEntities, OldDrawingsHaveHandlesWhereHandlingIsOn) {
    const std::string entities = Section("ENTITIES", "");
    for (const char* handling : {"0", "2", "x", ""}) {
        const std::string header = HeaderOf("AC1009", "30", "  9\n$HANDLING\n 70\n" + std::string(handling) + "\n");
        EXPECT_EQ(Redrawn(DrawingOf(header + entities), ChangeOf({}, {NewLine()})),
                  DrawingOf(header + Section("ENTITIES", "  0\nLINE\n  8\n0\n" + kLinePoints)))
            << handling;
    }
    const std::string on = "  9\n$HANDLING\n 70\n     1\n";
    EXPECT_EQ(Redrawn(DrawingOf(HeaderOf("AC1009", "30", on) + entities), ChangeOf({}, {NewLine(), NewPolyline()})),
              DrawingOf(HeaderOf("AC1009", "36", on) +
                        Section("ENTITIES", "  0\nLINE\n  5\n30\n  8\n0\n" + kLinePoints +
                                                "  0\nPOLYLINE\n  5\n31\n  8\n0\n 66\n1\n 10\n0.0\n 20\n0.0\n 30\n4.5\n"
                                                " 70\n0\n"
                                                "  0\nVERTEX\n  5\n32\n  8\n0\n 10\n0.0\n 20\n0.0\n 30\n4.5\n"
                                                "  0\nVERTEX\n  5\n33\n  8\n0\n 10\n1.0\n 20\n0.0\n 30\n4.5\n"
                                                "  0\nVERTEX\n  5\n34\n  8\n0\n 10\n1.0\n 20\n1.0\n 30\n4.5\n"
                                                "  0\nSEQEND\n  5\n35\n  8\n0\n")));
}

TEST(RedrawEntities, AFlatPolylineHasItsElevationAndExtrusion) {
    NewEntity entity = NewPolyline();
    entity.isClosed = true;
    entity.extrusion = {0.0, -1.0, 0.0};
    const std::string flat =
        "100\nAcDbPolyline\n 90\n3\n 70\n1\n 38\n4.5\n 10\n0.0\n 20\n0.0\n 10\n1.0\n 20\n0.0\n 10\n1.0\n 20\n1.0\n"
        "210\n0.0\n220\n-1.0\n230\n0.0\n";
    EXPECT_EQ(NewIn("AC1032", entity), "  0\nLWPOLYLINE\n  5\n30\n330\n1F\n100\nAcDbEntity\n  8\n0\n" + flat);
    EXPECT_EQ(NewIn("AC1014", entity), "  0\nLWPOLYLINE\n  5\n30\n100\nAcDbEntity\n  8\n0\n" + flat);
}

TEST(RedrawEntities, OlderPolylinesHaveVerticesAndAnEnd) {
    NewEntity entity = NewPolyline();
    entity.isClosed = true;
    entity.points.pop_back();
    entity.extrusion = {1.0, 0.0, 0.0};
    entity.colorIndex = 3;
    EXPECT_EQ(NewIn("AC1009", entity),
              "  0\nPOLYLINE\n  8\n0\n 62\n3\n 66\n1\n 10\n0.0\n 20\n0.0\n 30\n4.5\n 70\n1\n"
              "210\n1.0\n220\n0.0\n230\n0.0\n"
              "  0\nVERTEX\n  8\n0\n 62\n3\n 10\n0.0\n 20\n0.0\n 30\n4.5\n"
              "  0\nVERTEX\n  8\n0\n 62\n3\n 10\n1.0\n 20\n0.0\n 30\n4.5\n  0\nSEQEND\n  8\n0\n 62\n3\n");
    EXPECT_EQ(NewIn("AC1012", entity),
              "  0\nPOLYLINE\n  5\n30\n100\nAcDbEntity\n  8\n0\n 62\n3\n100\nAcDb2dPolyline\n 66\n1\n"
              " 10\n0.0\n 20\n0.0\n 30\n4.5\n 70\n1\n210\n1.0\n220\n0.0\n230\n0.0\n"
              "  0\nVERTEX\n  5\n31\n100\nAcDbEntity\n  8\n0\n 62\n3\n100\nAcDbVertex\n100\nAcDb2dVertex\n"
              " 10\n0.0\n 20\n0.0\n 30\n4.5\n"
              "  0\nVERTEX\n  5\n32\n100\nAcDbEntity\n  8\n0\n 62\n3\n100\nAcDbVertex\n100\nAcDb2dVertex\n"
              " 10\n1.0\n 20\n0.0\n 30\n4.5\n  0\nSEQEND\n  5\n33\n100\nAcDbEntity\n  8\n0\n 62\n3\n");
}

TEST(RedrawEntities, ATriangleHasItsThirdCornerTwice) {
    NewEntity entity = NewFace();
    const std::string three =
        "  0\n3DFACE\n  8\n0\n 10\n0.0\n 20\n0.0\n 30\n0.0\n 11\n1.0\n 21\n0.0\n 31\n0.0\n"
        " 12\n1.0\n 22\n1.0\n 32\n2.0\n";
    EXPECT_EQ(NewIn("AC1009", entity), three + " 13\n1.0\n 23\n1.0\n 33\n2.0\n");
    entity.points.push_back({0.0, 1.0, 2.0});
    EXPECT_EQ(NewIn("AC1009", entity), three + " 13\n0.0\n 23\n1.0\n 33\n2.0\n");
    EXPECT_TRUE(NewIn("AC1015", entity)
                    .starts_with("  0\n3DFACE\n  5\n30\n330\n1F\n100\nAcDbEntity\n  8\n0\n100\nAcDbFace\n 10\n"));
}

TEST(RedrawEntities, ATextStandsAtItsPoint) {
    NewEntity entity = NewText(L"3.5");
    EXPECT_EQ(NewIn("AC1009", entity), "  0\nTEXT\n  8\n0\n 10\n1.0\n 20\n2.0\n 30\n3.0\n 40\n2.5\n  1\n3.5\n");
    entity.isCentred = true;
    entity.rotation = 90.0;
    entity.extrusion = {0.0, -1.0, 0.0};
    EXPECT_EQ(NewIn("AC1018", entity),
              "  0\nTEXT\n  5\n30\n330\n1F\n100\nAcDbEntity\n  8\n0\n100\nAcDbText\n 10\n1.0\n 20\n2.0\n 30\n3.0\n"
              " 40\n2.5\n  1\n3.5\n 50\n90.0\n 72\n1\n 11\n1.0\n 21\n2.0\n 31\n3.0\n210\n0.0\n220\n-1.0\n230\n0.0\n"
              "100\nAcDbText\n 73\n2\n");
}

TEST(RedrawEntities, TrueColorsAreForVersionsThatKnowThem) {
    NewEntity entity = NewLine();
    entity.colorIndex = 0;
    entity.trueColor = 0xFF8000;
    EXPECT_EQ(NewIn("AC1009", entity), "  0\nLINE\n  8\n0\n 62\n0\n" + kLinePoints);
    EXPECT_NE(NewIn("AC1015", entity).find("  8\n0\n 62\n0\n100\n"), std::string::npos);
    EXPECT_NE(NewIn("AC1018", entity).find("  8\n0\n 62\n0\n420\n16744448\n100\n"), std::string::npos);
}

TEST(RedrawEntities, TextsAreInTheDrawingsCodePage) {
    const auto textIn = [](const std::string& header) {
        const std::string saved =
            Redrawn(DrawingOf(header + Section("ENTITIES", "")), ChangeOf({}, {NewText(L"北京誠\x20AC \\U+0041")}));
        const std::size_t begin = saved.find("\n  1\n", saved.find("\nTEXT\n")) + 5;
        return saved.substr(begin, saved.find('\n', begin) - begin);
    };
    const std::string page = "  9\n$DWGCODEPAGE\n  3\n";
    EXPECT_EQ(textIn(HeaderOf("AC1009", "", page + "ANSI_936\n")), "\xB1\xB1\xBE\xA9\xD5\x5C\x80 \\U+005CU+0041");
    EXPECT_EQ(textIn(HeaderOf("AC1015", "", page + "ANSI_1252\n")), "\\U+5317\\U+4EAC\\U+8AA0\x80 \\U+005CU+0041");
    EXPECT_EQ(textIn(HeaderOf("AC1021", "", page + "ANSI_936\n")), "北京誠\u20AC \\U+005CU+0041");
}

TEST(RedrawEntities, ComeBeforeTheEndOfTheLastSection) {
    const std::string first = Section("ENTITIES", "  0\nPOINT\n  8\n0\n");
    EXPECT_EQ(Redrawn(DrawingOf(first + Section("ENTITIES", "  0\nCIRCLE\n  8\n0\n999\nremark\n") + Section("X", "")),
                      ChangeOf({}, {NewLine(), NewText(L"t")})),
              DrawingOf(first +
                        Section("ENTITIES", "  0\nCIRCLE\n  8\n0\n999\nremark\n  0\nLINE\n  8\n0\n" + kLinePoints +
                                                "  0\nTEXT\n  8\n0\n 10\n1.0\n 20\n2.0\n 30\n3.0\n 40\n2.5\n  1\nt\n") +
                        Section("X", "")));
}

TEST(RedrawEntities, GetASectionWhereThereIsNone) {
    const std::string made = Section("ENTITIES", "  0\nLINE\n  8\n0\n" + kLinePoints);
    const DrawingChange change = ChangeOf({}, {NewLine()});
    EXPECT_EQ(Redrawn(DrawingOf(""), change), DrawingOf(made));
    EXPECT_EQ(Redrawn("  0\nEOF", change), made + "  0\nEOF");
    const std::string head = Section("HEADER", "") + Section("TABLES", "") + Section("BLOCKS", "");
    EXPECT_EQ(Redrawn(DrawingOf(head), change), DrawingOf(head + made));
    const std::string tail = Section("OBJECTS", "") + Section("OWN", "");
    EXPECT_EQ(Redrawn(DrawingOf(head + tail), change), DrawingOf(head + made + tail));
    EXPECT_EQ(Redrawn("999\nmine\n" + DrawingOf(tail) + "rest", change),
              "999\nmine\n" + DrawingOf(made + tail) + "rest");
}

TEST(RedrawEntities, HaveTheFilesLineEndsAndPadding) {
    const std::string begin = "0\r\nSECTION\r\n2\r\nENTITIES\r\n";
    const std::string end = "0\r\nENDSEC\r\n0\r\nEOF\r\n";
    EXPECT_EQ(Redrawn(begin + end, ChangeOf({}, {NewText(L"t")})),
              begin + "0\r\nTEXT\r\n8\r\n0\r\n10\r\n1.0\r\n20\r\n2.0\r\n30\r\n3.0\r\n40\r\n2.5\r\n1\r\nt\r\n" + end);
}

TEST(RedrawEntities, AreEntitiesLikeAllOthers) {
    OpenDrawing drawing(DrawingOf(HeaderOf("AC1015", "30") + Section("ENTITIES", "  0\nPOINT\n  5\n20\n  8\n0\n")));
    const AcDbObjectId point = drawing.Handle(0x20);
    MustRedraw(drawing, ChangeOf({}, {NewLine(), NewText(L"t")}));
    ASSERT_EQ(drawing.database.GetEntityCount(), 3U);
    EXPECT_EQ(drawing.database.GetEntityId(0), point);
    const AcDbObjectId text = drawing.database.GetEntityId(2);
    EXPECT_EQ(drawing.database.GetHandle(text), 0x31U);
    EXPECT_EQ(drawing.Handle(0x31), text);
    std::vector<DxfGroup> groups = drawing.Groups(text);
    EXPECT_EQ(groups[0].value, "TEXT");
    groups.push_back({1000, "mark"});
    EXPECT_TRUE(drawing.database.SetGroups(text, groups));
    EXPECT_EQ(drawing.Groups(text), groups);
    MustRedraw(drawing, ChangeOf({}, {NewLine()}));
    EXPECT_EQ(drawing.Groups(text), groups) << "what was set stays";
    EXPECT_NE(drawing.Saved().find("1000\nmark\n"), std::string::npos);
}
