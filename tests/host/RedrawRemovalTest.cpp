// Emptying layers: what goes, what stays, and whose ids.
#include <gtest/gtest.h>

#include "RedrawText.h"

namespace {

DrawingChange Emptying(std::vector<CString> layers) {
    DrawingChange change;
    change.emptiedLayers = std::move(layers);
    return change;
}

const char* const kPolyline =
    "  0\nPOLYLINE\n  8\nORVO\n 66\n1\n  0\nVERTEX\n  8\n0\n  0\nVERTEX\n  8\nORVO\n  0\nSEQEND\n  8\n0\n";
const char* const kOther = "  0\nINSERT\n  8\n0\n 66\n1\n  0\nATTRIB\n  8\nORVO\n999\nremark\n  0\nSEQEND\n  8\nORVO\n";

}  // namespace

TEST(RedrawRemoval, EntitiesGoWithWhatBelongsToThem) {
    const std::string stays = std::string(kOther) + "  0\nLINE\n  8\nORVO2\n";
    EXPECT_EQ(Redrawn(DrawingOf(Section("ENTITIES", "  0\nLINE\n  8\nORVO\n" + std::string(kPolyline) + kOther +
                                                        "  0\nTEXT\n999\nx\n  8\n orvo \n  0\nLINE\n  8\nORVO2\n")),
                      Emptying({L"Orvo", L"NONE", L""})),
              DrawingOf(Section("ENTITIES", stays)));
}

TEST(RedrawRemoval, LayersAreComparedAsTexts) {
    const std::string head = HeaderOf("AC1015", "", "  9\n$DWGCODEPAGE\n  3\nANSI_936\n");
    EXPECT_EQ(Redrawn(DrawingOf(head + Section("ENTITIES",
                                               "  0\nA\n  8\n\xB1\xB1\xBE\xA9\n  0\nB\n  8\n\\U+5317\\U+4eac\n"
                                               "  0\nC\n  8\n\xB1\xB1\n")),
                      Emptying({L"北京"})),
              DrawingOf(head + Section("ENTITIES", "  0\nC\n  8\n\xB1\xB1\n")));
}

TEST(RedrawRemoval, BlocksAndPaperSpaceStay) {
    const std::string text = DrawingOf(
        Section("TABLES", "  0\nTABLE\n  2\nLAYER\n  0\nLAYER\n  8\nORVO\n  2\nORVO\n  0\nENDTAB\n") +
        Section("BLOCKS", "  0\nBLOCK\n  8\nORVO\n  0\nLINE\n  8\nORVO\n  0\nENDBLK\n  8\nORVO\n") +
        Section("ENTITIES",
                "  0\nLINE\n 67\n     1\n  8\nORVO\n  0\nPOLYLINE\n  8\nORVO\n 67\n1\n  0\nVERTEX\n  8\nORVO\n"
                "  0\nSEQEND\n") +
        Section("OBJECTS", "  0\nX\n  8\nORVO\n"));
    OpenDrawing drawing(text);
    MustRedraw(drawing, Emptying({L"ORVO"}));
    EXPECT_FALSE(drawing.database.IsModified()) << "nothing was to be done";
    EXPECT_EQ(drawing.database.GetChangeCount(), 0U);
    EXPECT_EQ(drawing.Saved(), text);
}

TEST(RedrawRemoval, IdsOfWhatStaysStayAndOthersNameNothing) {
    std::string body;
    for (int i = 0; i < 40; ++i)
        body += "  0\nLINE\n  5\n" + std::to_string(100 + i) + "\n  8\n" + (i % 3 == 0 ? "ORVO" : "WALL") + "\n";
    OpenDrawing drawing(DrawingOf(HeaderOf("AC1015") + Section("BLOCKS", "  0\nBLOCK\n  5\n1\n  0\nENDBLK\n  5\n2\n") +
                                  Section("ENTITIES", body) + Section("OBJECTS", "  0\nDICTIONARY\n  5\nC\n")));
    std::vector<AcDbObjectId> ids;
    std::vector<std::vector<DxfGroup>> groups;
    for (std::size_t i = 0; i < 40; ++i) {
        ids.push_back(drawing.database.GetEntityId(i));
        groups.push_back(drawing.Groups(ids.back()));
    }
    const AcDbObjectId dictionary = drawing.Handle(0xC);
    const AcDbObjectId block = drawing.Handle(1);
    DrawingChange change = ChangeOf({{L"ORVO", 1}}, {NewLine(L"ORVO"), NewLine(L"ORVO")});
    change.emptiedLayers = {L"ORVO"};
    for (int round = 0; round < 3; ++round) {
        const AcDbObjectId before = drawing.database.GetEntityId(drawing.database.GetEntityCount() - 1);
        MustRedraw(drawing, change);
        ASSERT_EQ(drawing.database.GetEntityCount(), 26U + 2U);
        EXPECT_NE(drawing.database.GetEntityId(27), before) << "a new one has a new id";
        std::size_t next = 0;
        for (std::size_t i = 0; i < 40; ++i) {
            std::vector<DxfGroup> now;
            EXPECT_EQ(drawing.database.GetGroups(ids[i], now), i % 3 != 0);
            if (i % 3 != 0) {
                EXPECT_EQ(now, groups[i]);
                EXPECT_EQ(drawing.database.GetEntityId(next++), ids[i]);
            }
        }
        EXPECT_EQ(drawing.Handle(0xC), dictionary);
        EXPECT_EQ(drawing.database.GetHandle(block), 1U);
        EXPECT_EQ(drawing.database.GetHandle(drawing.database.GetNextObject(block)), 2U);
    }
    EXPECT_EQ(drawing.database.GetChangeCount(), 3U);
}

TEST(RedrawRemoval, ChangesOfObjectsThatStayAreKept) {
    OpenDrawing drawing(DrawingOf(Section("ENTITIES", "  0\nA\n  8\n0\n  0\nB\n  8\nX\n  0\nC\n  8\nWALL\n")));
    ASSERT_TRUE(drawing.database.SetGroups(drawing.database.GetEntityId(0), {{0, "A"}, {8, "0"}, {62, "5"}}));
    ASSERT_TRUE(drawing.database.SetGroups(drawing.database.GetEntityId(1), {{0, "B"}, {8, "ORVO"}}));
    MustRedraw(drawing, Emptying({L"ORVO", L"X"}));
    EXPECT_EQ(drawing.Saved(), DrawingOf(Section("ENTITIES", "  0\nA\n  8\n0\n 62\n5\n  0\nC\n  8\nWALL\n")));
}

TEST(RedrawRemoval, MakingAnewComesBackToTheSameFile) {
    const std::string text = SmallDrawing();
    OpenDrawing drawing(text);
    DrawingChange change = ChangeOf({{L"ORVO_RESULT", 3}}, {NewLine(L"ORVO_RESULT"), NewPolyline(L"orvo_result")});
    change.emptiedLayers = {L"ORVO_RESULT"};
    MustRedraw(drawing, change);
    const std::string once = drawing.Saved();
    MustRedraw(drawing, change);
    const std::string twice = drawing.Saved();
    MustRedraw(drawing, Emptying({L"ORVO_RESULT"}));
    const std::string emptied = drawing.Saved();
    // Twice as once, save for the two handles and the seed; emptied without the entities that were made.
    EXPECT_EQ(once.size(), twice.size());
    const std::string entities = text.substr(text.find("ENTITIES"), text.find("OBJECTS") - text.find("ENTITIES"));
    EXPECT_NE(emptied.find(entities), std::string::npos);
    MustRedraw(drawing, change);
    MustRedraw(drawing, Emptying({L"ORVO_RESULT"}));
    const auto withoutSeed = [](std::string saved) {
        const std::size_t at = saved.find("$HANDSEED\n  5\n") + 14;
        return saved.erase(at, saved.find('\n', at) - at);
    };
    EXPECT_EQ(withoutSeed(drawing.Saved()), withoutSeed(emptied));
    EXPECT_NE(drawing.Saved(), emptied) << "handles are not given twice";
}
