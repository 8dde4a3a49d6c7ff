// What lies on the layers of results is nothing to an analysis. Lengths are millimetres.
#include "analysis/ResultLayers.h"

#include <gtest/gtest.h>

#include "DrawingForWindows.h"
#include "PaperHouse.h"

TEST(ResultLayers, BeginWithTheirName) {
    for (const wchar_t* const name : {L"ORVO_RESULT", L"orvo_result_hours", L" Orvo_Result_later "})
        EXPECT_TRUE(IsResultLayer(name));
    for (const wchar_t* const name : {L"", L"ORVO", L"ORVO_RESUL", L"MY_ORVO_RESULT", L"WINDOW"})
        EXPECT_FALSE(IsResultLayer(name));
}

// Even where somebody names them.
TEST(ResultLayers, HoldNoWindows) {
    const std::string window = Upright("8=ORVO_RESULT_WINDOWS", {}, 0, 0, 1500, 0, 1000, 2500);
    const WindowsOfDrawing found = WindowsIn(window, {}, {L"orvo_result_windows"});
    EXPECT_TRUE(found.windows.empty());
    EXPECT_EQ(CountOf(found, AnalysisRemark::Kind::LayerMissing), 1U);
}

// Walls before a window, on either side of it, and a roof over it.
TEST(ResultLayers, CastNoShadowAndTellNoSide) {
    const WindowResult expected = Only(Answer(House(), Winter()));
    JudgedScene scene = House();
    scene.OnLayer("ORVO_RESULT_WINDOWS");
    scene.Box(-20000, -4000, 0, 20000, -3000, 90000);
    scene.Face({{-750, 0, 1000}, {750, 0, 1000}, {750, 0, 2500}, {-750, 0, 2500}});
    const AnalysisAnswer answer = Answer(scene, Winter());
    const WindowResult window = Only(answer);
    EXPECT_EQ(window.facing, expected.facing);
    EXPECT_TRUE(window.hidden.empty());
    ExpectPeriods(window.sunlit, expected.sunlit);
    EXPECT_TRUE(answer.remarks.empty());
}
