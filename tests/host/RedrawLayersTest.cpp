// New layers: their record, its table and its line type.
#include <gtest/gtest.h>

#include "RedrawText.h"

namespace {

std::string Table(std::string_view name, std::string_view head, std::string_view records) {
    return "  0\nTABLE\n  2\n" + std::string(name) + "\n" + std::string(head) + std::string(records) + "  0\nENDTAB\n";
}

const std::string kLineTypes = Table("LTYPE", " 70\n1\n", "  0\nLTYPE\n  2\nContinuous\n 70\n0\n");
const std::string kNewLineType = "  0\nLTYPE\n  2\nCONTINUOUS\n 70\n0\n  3\nSolid line\n 72\n65\n 73\n0\n 40\n0.0\n";
const std::string kNewLayer = "  0\nLAYER\n  2\nORVO_RESULT\n 70\n0\n 62\n3\n  6\n";

}  // namespace

TEST(RedrawLayers, ALayerComesBehindTheOthers) {
    const std::string zero = "  0\nLAYER\n  2\n0\n 70\n0\n 62\n7\n  6\nCONTINUOUS\n";
    const DrawingChange change = ChangeOf({{L"ORVO_RESULT", 3}}, {});
    const auto with = [](const std::string& count, const std::string& records) {
        return DrawingOf(Section("TABLES", kLineTypes + Table("LAYER", count, records) + Table("STYLE", "", "")));
    };
    const std::string after = zero + kNewLayer + "Continuous\n";
    EXPECT_EQ(Redrawn(with(" 70\n     1\n", zero), change), with(" 70\n2\n", after));
    EXPECT_EQ(Redrawn(with(" 70\n     5\n", zero), change), with(" 70\n     5\n", after)) << "more than there are";
    EXPECT_EQ(Redrawn(with(" 70\nx\n", zero), change), with(" 70\n2\n", after));
    EXPECT_EQ(Redrawn(with("", zero), change), with(" 70\n2\n", after)) << "made where it lacks";
    EXPECT_EQ(Redrawn(with("1001\nAPP\n1070\n70\n", zero), change), with(" 70\n2\n1001\nAPP\n1070\n70\n", after));
}

TEST(RedrawLayers, AnExistingOneIsTakenAsItIs) {
    const std::string text =
        DrawingOf(Section("TABLES", Table("LAYER", "", "  0\nLAYER\n  2\n Orvo_Result \n 62\n-1\n")));
    OpenDrawing drawing(text);
    MustRedraw(drawing, ChangeOf({{L"ORVO_RESULT", 3}, {L"0", 5}}, {}));
    EXPECT_FALSE(drawing.database.IsModified());
    EXPECT_EQ(drawing.Saved(), text);
    MustRedraw(drawing, ChangeOf({}, {NewLine(L"ORVO_RESULT")}));
    EXPECT_EQ(drawing.database.GetEntityCount(), 1U);
}

TEST(RedrawLayers, AreMadeOnce) {
    const std::string saved = Redrawn(DrawingOf(""), ChangeOf({{L"A", 1}, {L"a", 2}, {L"B", 2}}, {}));
    EXPECT_EQ(saved, DrawingOf(Section("TABLES", Table("LTYPE", " 70\n1\n", kNewLineType) +
                                                     Table("LAYER", " 70\n2\n",
                                                           "  0\nLAYER\n  2\nA\n 70\n0\n 62\n1\n  6\nCONTINUOUS\n"
                                                           "  0\nLAYER\n  2\nB\n 70\n0\n 62\n2\n  6\nCONTINUOUS\n"))));
}

TEST(RedrawLayers, TablesAndTheirSectionAreMadeWhereTheyLack) {
    const DrawingChange change = ChangeOf({{L"ORVO_RESULT", 3}}, {});
    const std::string layers = Table("LAYER", " 70\n1\n", kNewLayer + "CONTINUOUS\n");
    const std::string both = Section("TABLES", Table("LTYPE", " 70\n1\n", kNewLineType) + layers);
    const std::string head = HeaderOf("AC1009") + Section("CLASSES", "");
    const std::string tail = Section("BLOCKS", "") + Section("ENTITIES", "");
    EXPECT_EQ(Redrawn(DrawingOf(head + tail), change), DrawingOf(head + both + tail));
    EXPECT_EQ(Redrawn(DrawingOf(Section("TABLES", "")), change), DrawingOf(both));
    // A line type comes before the layers that name it.
    const std::string one = Section("TABLES", Table("LAYER", " 70\n1\n", "  0\nLAYER\n  2\nX\n"));
    EXPECT_EQ(Redrawn(DrawingOf(one), change),
              DrawingOf(Section("TABLES",
                                Table("LTYPE", " 70\n1\n", kNewLineType) +
                                    Table("LAYER", " 70\n2\n", "  0\nLAYER\n  2\nX\n" + kNewLayer + "CONTINUOUS\n"))));
    EXPECT_EQ(Redrawn(DrawingOf(Section("TABLES", Table("LTYPE", " 70\n0\n", ""))), change),
              DrawingOf(Section("TABLES", Table("LTYPE", " 70\n1\n", kNewLineType) + layers)));
    // The section of the layers comes before the one of what lies on them.
    const std::string all = Redrawn("  0\nEOF\n", ChangeOf({{L"A", 1}}, {NewLine(L"A")}));
    EXPECT_LT(all.find("\nTABLES\n"), all.find("\nENTITIES\n"));
}

TEST(RedrawLayers, HaveWhatTheirVersionAsksFor) {
    const std::string records = "  0\nLAYER\n  5\n10\n100\nAcDbLayerTableRecord\n  2\n0\n390\nF\n";
    const auto with = [&](std::string_view seed, const std::string& count, const std::string& more) {
        return DrawingOf(HeaderOf("AC1032", seed) +
                         Section("TABLES", kLineTypes + Table("LAYER", "  5\n2\n" + count, records + more)));
    };
    EXPECT_EQ(Redrawn(with("50", " 70\n1\n", ""), ChangeOf({{L"ORVO_RESULT", 3}}, {})),
              with("51", " 70\n2\n",
                   "  0\nLAYER\n  5\n50\n330\n2\n100\nAcDbSymbolTableRecord\n100\nAcDbLayerTableRecord\n"
                   "  2\nORVO_RESULT\n 70\n0\n 62\n3\n  6\nContinuous\n370\n-3\n390\nF\n"));
    // Tables of their own have handles, too, and no owner but the drawing.
    EXPECT_EQ(
        Redrawn(DrawingOf(HeaderOf("AC1015", "50")), ChangeOf({{L"ORVO_RESULT", 3}}, {})),
        DrawingOf(
            HeaderOf("AC1015", "54") +
            Section("TABLES",
                    Table("LTYPE", "  5\n50\n330\n0\n100\nAcDbSymbolTable\n 70\n1\n",
                          "  0\nLTYPE\n  5\n51\n330\n50\n100\nAcDbSymbolTableRecord\n100\nAcDbLinetypeTableRecord\n"
                          "  2\nCONTINUOUS\n 70\n0\n  3\nSolid line\n 72\n65\n 73\n0\n 40\n0.0\n") +
                        Table("LAYER", "  5\n52\n330\n0\n100\nAcDbSymbolTable\n 70\n1\n",
                              "  0\nLAYER\n  5\n53\n330\n52\n100\nAcDbSymbolTableRecord\n"
                              "100\nAcDbLayerTableRecord\n  2\nORVO_RESULT\n 70\n0\n 62\n3\n  6\nCONTINUOUS\n"
                              "370\n-3\n"))));
}

TEST(RedrawLayers, OfOldDrawingsHaveHandlesWhereRecordsHaveThem) {
    const auto with = [](std::string_view seed, std::string_view count, std::string_view records) {
        return DrawingOf(HeaderOf("AC1009", seed, "  9\n$HANDLING\n 70\n1\n") +
                         Section("TABLES", kLineTypes + Table("LAYER", count, records)));
    };
    const DrawingChange change = ChangeOf({{L"ORVO_RESULT", 3}}, {});
    const std::string bare = "  0\nLAYER\n  2\n0\n";
    EXPECT_EQ(Redrawn(with("50", " 70\n1\n", bare), change), with("50", " 70\n2\n", bare + kNewLayer + "Continuous\n"));
    const std::string handled = "  0\nLAYER\n  5\n10\n  2\n0\n";
    EXPECT_EQ(
        Redrawn(with("50", " 70\n1\n", handled), change),
        with("51", " 70\n2\n", handled + "  0\nLAYER\n  5\n50\n  2\nORVO_RESULT\n 70\n0\n 62\n3\n  6\nContinuous\n"));
}
