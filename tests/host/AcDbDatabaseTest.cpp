// What a drawing that has been read tells: its objects, their ids, handles, groups and the header's variables.
#include "platform/host/AcDbDatabase.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "DrawingText.h"

namespace {

std::string TypeOf(const OpenDrawing& drawing, AcDbObjectId id) {
    const std::vector<DxfGroup> groups = drawing.Groups(id);
    return groups.empty() ? std::string() : groups[0].value;
}

}  // namespace

TEST(AcDbDatabase, ListsTheEntitiesInTheFilesOrderWithTheirFollowers) {
    const OpenDrawing drawing(SmallDrawing());
    ASSERT_EQ(drawing.database.GetEntityCount(), 4U);
    std::string types;
    for (std::size_t i = 0; i < 4; ++i)
        types += TypeOf(drawing, drawing.database.GetEntityId(i)) + " ";
    EXPECT_EQ(types, "POLYLINE VERTEX SEQEND TEXT ");
    EXPECT_TRUE(drawing.database.GetEntityId(4).isNull());
    EXPECT_TRUE(drawing.database.GetEntityId(SIZE_MAX).isNull());
}

TEST(AcDbDatabase, ListsTheEntitiesOfSeveralSections) {
    const OpenDrawing drawing(DrawingOf(Section("ENTITIES", "") + Section("ENTITIES", "  0\nLINE\n  0\nARC\n") +
                                        Section("BLOCKS", "") + Section("ENTITIES", "  0\nPOINT\n") +
                                        Section("ENTITIES", "") + Section("ENTITIES", "  0\nTEXT\n")));
    ASSERT_EQ(drawing.database.GetEntityCount(), 4U);
    std::string types;
    for (std::size_t i = 0; i < 4; ++i)
        types += TypeOf(drawing, drawing.database.GetEntityId(i)) + " ";
    EXPECT_EQ(types, "LINE ARC POINT TEXT ");
}

TEST(AcDbDatabase, ListsBlocksAndWalksThroughTheirEntities) {
    const OpenDrawing drawing(DrawingOf(
        Section("TABLES", "  0\nTABLE\n  2\nBLOCK\n  0\nBLOCK\n  0\nENDTAB\n") +
        Section("BLOCKS", "  0\nBLOCK\n  2\nA\n  0\nLINE\n  0\nARC\n  0\nENDBLK\n  0\nBLOCK\n  2\nB\n  0\nENDBLK\n") +
        Section("ENTITIES", "  0\nPOINT\n  0\nBLOCK\n") +
        Section("BLOCKS", "  0\n BLOCK \n  2\nC\n  0\nTEXT\n  0\nENDBLK\n")));
    std::vector<AcDbObjectId> heads(7);
    ASSERT_TRUE(drawing.database.GetBlocks(heads));
    std::string walked;
    for (const AcDbObjectId head : heads) {
        for (AcDbObjectId id = head; TypeOf(drawing, id) != "ENDBLK"; id = drawing.database.GetNextObject(id))
            walked += TypeOf(drawing, id) + " ";
        walked += "| ";
    }
    EXPECT_EQ(walked, "BLOCK LINE ARC | BLOCK |  BLOCK  TEXT | ");
}

TEST(AcDbDatabase, HasNoNextObjectBehindASectionsLast) {
    const OpenDrawing drawing(DrawingOf(Section("BLOCKS", "  0\nBLOCK\n  5\n7\n  0\nENDBLK\n  5\n8\n") +
                                        Section("ENTITIES", "  0\nLINE\n  5\n9\n  0\nARC\n  5\nA\n")));
    EXPECT_EQ(drawing.database.GetNextObject(drawing.Handle(7)), drawing.Handle(8));
    EXPECT_TRUE(drawing.database.GetNextObject(drawing.Handle(8)).isNull());
    EXPECT_EQ(drawing.database.GetNextObject(drawing.Handle(9)), drawing.Handle(0xA));
    EXPECT_TRUE(drawing.database.GetNextObject(drawing.Handle(0xA)).isNull());
    EXPECT_TRUE(drawing.database.GetNextObject(AcDbObjectId()).isNull());
    EXPECT_TRUE(AcDbDatabase().GetNextObject(drawing.Handle(9)).isNull());
    std::vector<AcDbObjectId> heads(7);
    EXPECT_TRUE(AcDbDatabase().GetBlocks(heads));
    EXPECT_TRUE(heads.empty());
}

TEST(AcDbDatabase, FindsObjectsOfEveryKindByTheirHandles) {
    const OpenDrawing drawing(SmallDrawing());
    const std::pair<std::uint64_t, const char*> expected[] = {
        {0x2, "TABLE"},   {0x10, "LAYER"},  {0xA, "TABLE"},   {0x27, "DIMSTYLE"},
        {0x20, "BLOCK"},  {0x21, "LINE"},   {0x22, "ENDBLK"}, {0x30, "POLYLINE"},
        {0x31, "VERTEX"}, {0x32, "SEQEND"}, {0x1AF, "TEXT"},  {0xC, "DICTIONARY"}};
    for (const auto& [handle, type] : expected) {
        const AcDbObjectId id = drawing.Handle(handle);
        ASSERT_FALSE(id.isNull()) << handle;
        EXPECT_EQ(TypeOf(drawing, id), type) << handle;
        EXPECT_EQ(drawing.database.GetHandle(id), handle);
    }
    EXPECT_EQ(drawing.Handle(0x1AF), drawing.database.GetEntityId(3));
}

TEST(AcDbDatabase, FindsNothingByHandlesThatNoObjectHas) {
    const OpenDrawing drawing(SmallDrawing());
    EXPECT_TRUE(drawing.Handle(0).isNull());
    EXPECT_TRUE(drawing.Handle(0x99).isNull());
    EXPECT_TRUE(drawing.Handle(0xFFFF).isNull()) << "a class has no handle";
    EXPECT_TRUE(drawing.Handle(UINT64_MAX).isNull());
}

TEST(AcDbDatabase, GivesTheFirstOfEqualHandles) {
    const OpenDrawing drawing(
        DrawingOf(Section("BLOCKS", "  0\nBLOCK\n  5\n7\n  0\nENDBLK\n  5\n8\n") +
                  Section("ENTITIES", "  0\nLINE\n  5\n7\n  0\nARC\n  5\n8\n  0\nTEXT\n  5\n8\n")));
    EXPECT_EQ(TypeOf(drawing, drawing.Handle(7)), "BLOCK");
    EXPECT_EQ(TypeOf(drawing, drawing.Handle(8)), "ENDBLK");
    EXPECT_EQ(drawing.database.GetHandle(drawing.database.GetEntityId(0)), 7U);
}

TEST(AcDbDatabase, ReadsHandlesInEitherCaseUpToSixteenDigits) {
    const OpenDrawing drawing(
        DrawingOf(Section("ENTITIES",
                          "  0\nA\n  5\n  aBcDeF \n  0\nB\n  5\nFFFFFFFFFFFFFFFF\n  0\nC\n  5\n00000000000000001\n"
                          "  0\nD\n  5\n12G\n  0\nE\n  5\n-5\n  0\nF\n  5\n\n  0\nG\n  5\n0\n  0\nH\n  5\n0x9\n")));
    EXPECT_EQ(TypeOf(drawing, drawing.Handle(0xABCDEF)), "A");
    EXPECT_EQ(TypeOf(drawing, drawing.Handle(UINT64_MAX)), "B");
    for (std::size_t i = 2; i < 8; ++i)
        EXPECT_EQ(drawing.database.GetHandle(drawing.database.GetEntityId(i)), 0U) << i;
    EXPECT_TRUE(drawing.Handle(1).isNull());
    EXPECT_TRUE(drawing.Handle(0x12).isNull());
}

TEST(AcDbDatabase, TakesOnlyTheFirstGroupFiveForTheHandle) {
    const OpenDrawing drawing(DrawingOf(Section("ENTITIES", "  0\nA\n  8\n0\n  5\n1\n100\nX\n  5\n2\n")));
    EXPECT_EQ(TypeOf(drawing, drawing.Handle(1)), "A");
    EXPECT_TRUE(drawing.Handle(2).isNull());
    EXPECT_EQ(drawing.database.GetHandle(drawing.database.GetEntityId(0)), 1U);
}

TEST(AcDbDatabase, TakesGroup105ForTheHandleInDimensionStylesOnly) {
    const OpenDrawing drawing(
        DrawingOf(Section("TABLES", "  0\nTABLE\n  2\nDIMSTYLE\n  0\nDIMSTYLE\n  5\n1\n105\n2\n  0\nENDTAB\n") +
                  Section("ENTITIES", "  0\nDIMSTYLE\n  5\n3\n105\n4\n")));
    EXPECT_TRUE(drawing.Handle(1).isNull());
    EXPECT_FALSE(drawing.Handle(2).isNull());
    EXPECT_FALSE(drawing.Handle(3).isNull());
    EXPECT_TRUE(drawing.Handle(4).isNull());
}

TEST(AcDbDatabase, GivesIdsToObjectsWithoutHandles) {
    const OpenDrawing drawing(DrawingOf(Section("ENTITIES", "  0\nLINE\n  8\nA\n  0\nLINE\n  8\nB\n")));
    ASSERT_EQ(drawing.database.GetEntityCount(), 2U);
    const AcDbObjectId second = drawing.database.GetEntityId(1);
    EXPECT_EQ(drawing.database.GetHandle(second), 0U);
    EXPECT_EQ(drawing.Groups(second), (std::vector<DxfGroup>{{0, "LINE"}, {8, "B"}}));
}

TEST(AcDbDatabase, KnowsTheRecordsOfSymbolTables) {
    const OpenDrawing drawing(SmallDrawing());
    EXPECT_TRUE(drawing.database.IsSymbolTableRecord(drawing.Handle(0x10)));
    EXPECT_TRUE(drawing.database.IsSymbolTableRecord(drawing.Handle(0x27)));
    for (const std::uint64_t other : {0x2U, 0x20U, 0x21U, 0x22U, 0x30U, 0xCU})
        EXPECT_FALSE(drawing.database.IsSymbolTableRecord(drawing.Handle(other))) << other;
    EXPECT_FALSE(drawing.database.IsSymbolTableRecord(AcDbObjectId()));
}

TEST(AcDbDatabase, ListsTheRecordsOfATableInTheFilesOrder) {
    const OpenDrawing drawing(
        DrawingOf(Section("TABLES",
                          "  0\nTABLE\n  2\nLAYER\n  0\nLAYER\n  5\n1\n  0\n LAYER \n  2\nno handle\n  0\nENDTAB\n"
                          "  0\nTABLE\n  2\nLTYPE\n  0\nLTYPE\n  5\n3\n  2\nLAYER\n  0\nENDTAB\n"
                          "  0\nTABLE\n  2\nLAYER\n  0\nLAYER\n  5\n4\n  0\nENDTAB\n") +
                  Section("ENTITIES", "  0\nLAYER\n  5\n5\n") + Section("OBJECTS", "  0\nLAYER\n  5\n6\n")));
    std::vector<AcDbObjectId> ids;
    ASSERT_TRUE(drawing.database.GetSymbolTableRecords("LAYER", ids));
    ASSERT_EQ(ids.size(), 3U);
    EXPECT_EQ(ids[0], drawing.Handle(1));
    EXPECT_EQ(drawing.Groups(ids[1])[1].value, "no handle");
    EXPECT_EQ(ids[2], drawing.Handle(4));
    ASSERT_TRUE(drawing.database.GetSymbolTableRecords("LTYPE", ids));
    EXPECT_EQ(ids, std::vector<AcDbObjectId>{drawing.Handle(3)});
}

TEST(AcDbDatabase, ListsNoRecordsOfATableThatIsNotThere) {
    const OpenDrawing drawing(SmallDrawing());
    for (const char* table : {"VIEW", "", "layer", "TABLE"}) {
        std::vector<AcDbObjectId> ids(1);
        EXPECT_TRUE(drawing.database.GetSymbolTableRecords(table, ids)) << table;
        EXPECT_TRUE(ids.empty()) << table;
    }
    std::vector<AcDbObjectId> ids(1);
    EXPECT_FALSE(drawing.database.GetSymbolTableRecords(nullptr, ids));
    EXPECT_TRUE(ids.empty());
    ids.resize(1);
    EXPECT_TRUE(AcDbDatabase().GetSymbolTableRecords("LAYER", ids));
    EXPECT_TRUE(ids.empty());
}

TEST(AcDbDatabase, GivesAllGroupsButNoComments) {
    const OpenDrawing drawing(SmallDrawing());
    EXPECT_EQ(drawing.Groups(drawing.Handle(0x1AF)),
              (std::vector<DxfGroup>{{0, "TEXT"}, {5, "1aF"}, {8, "0"}, {1, "\xB1\xB1\xBE\xA9"}, {40, "2.5"}}));
}

TEST(AcDbDatabase, GivesValuesAsTheyStandInTheFile) {
    const OpenDrawing drawing(DrawingOf(Section("ENTITIES", " 0\r\nTEXT\r\n   1 \r\n  two blanks  \r\n+70\n\n")));
    EXPECT_EQ(drawing.Groups(drawing.database.GetEntityId(0)),
              (std::vector<DxfGroup>{{0, "TEXT"}, {1, "  two blanks  "}, {70, ""}}));
}

TEST(AcDbDatabase, KnowsNoIdsButThoseOfItsObjects) {
    const OpenDrawing drawing(SmallDrawing());
    // Every id near those of the entities: exactly the objects answer.
    const std::uint64_t near = drawing.database.GetEntityId(0).asOldId();
    std::size_t known = 0;
    for (std::uint64_t value = near > 200 ? near - 200 : 1; value < near + 200; ++value) {
        std::vector<DxfGroup> groups = {{1, "before"}};
        if (drawing.database.GetGroups(AcDbObjectId::FromOldId(value), groups)) {
            ++known;
            ASSERT_FALSE(groups.empty());
            EXPECT_TRUE(groups[0].value != "SECTION" && groups[0].value != "ENDTAB");
        } else {
            EXPECT_TRUE(groups.empty());
        }
    }
    EXPECT_EQ(known, 12U) << "two tables with a record each, three parts of a block, four entities, one object";
    std::vector<DxfGroup> groups;
    EXPECT_FALSE(drawing.database.GetGroups(AcDbObjectId(), groups));
    EXPECT_FALSE(drawing.database.GetGroups(AcDbObjectId::FromOldId(UINT64_MAX), groups));
    EXPECT_EQ(drawing.database.GetHandle(AcDbObjectId::FromOldId(UINT64_MAX)), 0U);
}

TEST(AcDbDatabase, GivesNoIdTwice) {
    std::set<std::uint64_t> given;
    OpenDrawing first(SmallDrawing());
    const OpenDrawing second(SmallDrawing());
    const AcDbObjectId old = first.database.GetEntityId(0);
    std::vector<DxfGroup> groups;
    EXPECT_FALSE(second.database.GetGroups(old, groups)) << "another drawing's";
    for (int round = 0; round < 3; ++round) {
        for (std::size_t i = 0; i < 4; ++i) {
            EXPECT_TRUE(given.insert(first.database.GetEntityId(i).asOldId()).second);
            if (round == 0)
                EXPECT_TRUE(given.insert(second.database.GetEntityId(i).asOldId()).second);
        }
        ASSERT_EQ(first.database.dxfIn(first.files.File("drawing.dxf")), Acad::eOk);
    }
    EXPECT_FALSE(first.database.GetGroups(old, groups)) << "of the drawing before it was read anew";
    EXPECT_FALSE(first.database.SetGroups(old, {{0, "POLYLINE"}}));
}

TEST(AcDbDatabase, GivesHeaderVariables) {
    const OpenDrawing drawing(SmallDrawing());
    std::vector<DxfGroup> groups;
    ASSERT_TRUE(drawing.database.GetHeaderVariable("$EXTMIN", groups));
    EXPECT_EQ(groups, (std::vector<DxfGroup>{{10, "0.0"}, {20, "-1.5"}, {30, "2.25"}}));
    ASSERT_TRUE(drawing.database.GetHeaderVariable("$ACADVER", groups));
    EXPECT_EQ(groups, (std::vector<DxfGroup>{{1, "AC1015"}}));
    EXPECT_FALSE(drawing.database.GetHeaderVariable("$NONE", groups));
    EXPECT_TRUE(groups.empty());
    EXPECT_FALSE(drawing.database.GetHeaderVariable("ACADVER", groups));
    EXPECT_FALSE(drawing.database.GetHeaderVariable(nullptr, groups));
}

TEST(AcDbDatabase, LooksForHeaderVariablesInTheHeaderOnly) {
    const OpenDrawing drawing(
        DrawingOf(Section("OTHER", "  9\n$A\n 70\n1\n") + Section("ENTITIES", "  0\nX\n  9\n$A\n 70\n2\n")));
    std::vector<DxfGroup> groups;
    EXPECT_FALSE(drawing.database.GetHeaderVariable("$A", groups));
}

TEST(AcDbDatabase, IsEmptyAtFirst) {
    AcDbDatabase database;
    std::vector<DxfGroup> groups = {{1, "before"}};
    EXPECT_EQ(database.GetEntityCount(), 0U);
    EXPECT_TRUE(database.GetEntityId(0).isNull());
    EXPECT_TRUE(database.FindHandle(1).isNull());
    EXPECT_FALSE(database.GetGroups(AcDbObjectId::FromOldId(1), groups));
    EXPECT_TRUE(groups.empty());
    EXPECT_FALSE(database.SetGroups(AcDbObjectId::FromOldId(1), {{0, "LINE"}}));
    EXPECT_FALSE(database.GetHeaderVariable("$ACADVER", groups));
    EXPECT_FALSE(database.IsModified());
    EXPECT_EQ(database.GetChangeCount(), 0U);
    EXPECT_EQ(database.GetHandle(AcDbObjectId()), 0U);
}

TEST(AcDbObjectId, IsNullUntilItNamesSomething) {
    AcDbObjectId id;
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(id.asOldId(), 0U);
    id = AcDbObjectId::FromOldId(0x123456789ABCULL);
    EXPECT_FALSE(id.isNull());
    EXPECT_EQ(id.asOldId(), 0x123456789ABCULL);
    EXPECT_TRUE(AcDbObjectId() < id && !(id < AcDbObjectId()) && id != AcDbObjectId());
}
