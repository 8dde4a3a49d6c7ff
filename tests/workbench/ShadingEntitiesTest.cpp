// Who hides the sun from how many windows.
#include "workbench/commands/ShadingEntities.h"

#include "platform/host/AcDbDatabase.h"
#include "support/Folders.h"
#include "workbench/AnalysisForTests.h"

TEST(ShadingEntities, AreCountedOncePerWindow) {
    AcDbDatabase drawing;
    CString message;
    ASSERT_EQ(drawing.dxfIn(FromUtf8(SourceFolder() + "/data/samples/courtyard.dxf"), &message), Acad::eOk)
        << ToUtf8(message.View());
    const std::uint64_t building = drawing.GetHandle(drawing.GetEntityId(1));
    AnalysisAnswer answer;
    answer.windows = {LitWindow(1, L"a"), LitWindow(2, L"b"), LitWindow(3, L"c")};
    answer.windows[0].hidden = {{{8, 9}, {0xFFFFF, building}}, {{10, 11}, {building}}};
    answer.windows[1].hidden = {{{8, 9}, {building}}};
    answer.windows[2].hidden = {{{8, 9}, {0}}};
    const std::vector<ShadingEntity> entities = ShadingEntitiesOf(drawing, answer);
    ASSERT_EQ(entities.size(), 3U);
    EXPECT_EQ(entities[0].handle, building);
    EXPECT_EQ(entities[0].windows, 2U);
    EXPECT_EQ(entities[0].words.type, L"LWPOLYLINE");
    EXPECT_EQ(entities[0].words.layer, L"建筑");
    EXPECT_EQ(entities[1].handle, 0U);
    EXPECT_EQ(entities[2].handle, 0xFFFFFU);
    EXPECT_EQ(entities[2].words.type, L"") << "the drawing does not have it";
}
