// What of a drawing casts shadows, and over which span.
#include "analysis/ShadingScene.h"

#include "analysis/DayRequest.h"
#include "analysis/DrawingForWindows.h"
#include "analysis/JudgedScene.h"

namespace {

// A box 3 m high, with a window before it that stands out beyond the box, and another one on a layer of its own.
Scene ShadingOf(const std::vector<CString>& windowLayers) {
    const Site site;
    const OpenDrawing drawing(DrawingWith(Upright("8=WINDOW", site, -5000, -10, 2000, -10, 500, 9000) +
                                          LooseBox(site, 0, 0, 8000, 6000, 0, 3000) +
                                          Upright("8=GLASS", site, 9000, 1000, 9000, 2000, 500, 2000)));
    return BuildShadingScene(drawing.database, {}, windowLayers);
}

}  // namespace

TEST(ShadingScene, LeavesTheLayersOfWindowsOut) {
    const Scene usual = ShadingOf({});
    ASSERT_EQ(usual.faces.size(), 7U);
    EXPECT_EQ(usual.entities.size(), 7U);
    EXPECT_EQ(usual.least.x, 0.0);
    EXPECT_EQ(usual.most.x, 9000.0);
    EXPECT_EQ(usual.most.z, 3000.0);
    for (std::size_t i = 0; i < usual.entities.size(); ++i) {
        EXPECT_EQ(usual.entities[i].firstFace, i);
        EXPECT_EQ(usual.entities[i].faceCount, 1U);
    }
    EXPECT_EQ(usual.faces[6].m_pt[0], QcGePoint(9000, 1000, 500));
    const Scene glass = ShadingOf({L"glass"});
    EXPECT_EQ(glass.faces.size(), 7U);
    EXPECT_EQ(glass.least.x, -5000.0);
    EXPECT_EQ(glass.most.x, 8000.0);
    EXPECT_EQ(glass.most.z, 9000.0);
}

TEST(ShadingScene, LeavesOutWhatAnAnalysisDrew) {
    const Site site;
    const OpenDrawing drawing(DrawingWith(Upright("8=ORVO_RESULT_WINDOWS", site, -5000, -10, 2000, -10, 500, 9000) +
                                          LooseBox(site, 0, 0, 8000, 6000, 0, 3000)));
    EXPECT_EQ(BuildShadingScene(drawing.database, {}, {}).faces.size(), 6U);
}

TEST(ShadingScene, IsEmptyWhereThereAreOnlyWindows) {
    const OpenDrawing drawing(DrawingWith(Upright("8=WINDOW", Site(), 0, 0, 2000, 0, 500, 2000)));
    const Scene scene = BuildShadingScene(drawing.database, {}, {});
    EXPECT_TRUE(scene.faces.empty());
    EXPECT_EQ(scene.most, QcGePoint());
}

TEST(ShadingScene, TellsTheSpanBeforeAnything) {
    AnalysisRequest request = RequestFor(40.0, -20.0);
    request.settings.standard->start = 9.0;
    request.settings.standard->end = 15.0;
    const auto span = FindSpan(request);
    ASSERT_TRUE(span);
    EXPECT_DOUBLE_EQ(span->start, 9.0);
    EXPECT_DOUBLE_EQ(span->end, 15.0);
    request.settings.standard->end = 7.0;
    request.settings.standard->start = 8.0;
    EXPECT_FALSE(FindSpan(request));
    request.settings.standard.reset();
    EXPECT_FALSE(FindSpan(request));
    request = RequestFor(40.0, -20.0);
    request.settings.place.reset();
    EXPECT_FALSE(FindSpan(request));
}
