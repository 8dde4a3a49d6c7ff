// What of a drawing casts shadows, and over which span.
#include "analysis/ShadingScene.h"

#include "analysis/DayRequest.h"
#include "analysis/DrawingForWindows.h"
#include "analysis/JudgedScene.h"
#include "analysis/PointAnalysis.h"
#include "analysis/SpotAnalysis.h"

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

// 1000 boxes, of which each is asked about once at most.
TEST(ShadingScene, IsLeftOffInTheMiddleOfADrawing) {
    const Site site;
    std::string boxes;
    for (int i = 0; i < 1000; ++i)
        boxes += LooseBox(site, 0, 0, 8000, 6000, 0, 3000);
    const OpenDrawing drawing(DrawingWith(boxes));
    std::size_t whole = 0;
    ASSERT_TRUE(ReadScene(drawing.database, {}, [&](std::size_t done, std::size_t total) {
        EXPECT_EQ(done, 0U);
        EXPECT_EQ(total, 0U);
        return ++whole != 0;
    }));
    EXPECT_GT(whole, 10U);
    for (const std::size_t most : {std::size_t(1), whole / 2, whole}) {
        std::size_t asked = 0;
        EXPECT_FALSE(ReadScene(drawing.database, {}, [&](std::size_t, std::size_t) { return ++asked < most; }));
        EXPECT_EQ(asked, most) << "not asked again";
    }
}

TEST(ShadingScene, EndsEveryAnalysisThatIsLeftOffBeforeItKnowsHowMuchThereIs) {
    const OpenDrawing drawing(DrawingWith(LooseBox(Site(), 0, 0, 8000, 6000, 0, 3000)));
    const AnalysisRequest request = RequestFor(40.0, -20.0);
    const AnalysisProgress leave = [](std::size_t, std::size_t total) { return total != 0; };
    EXPECT_EQ(AnalyseWindows(drawing.database, request, leave).failure, AnalysisFailure::Cancelled);
    PointRequest points;
    static_cast<DayRequest&>(points) = request;
    points.areaLayers = {L"0"};
    EXPECT_EQ(AnalysePoints(drawing.database, points, leave).failure, AnalysisFailure::Cancelled);
    SpotRequest spot;
    static_cast<DayRequest&>(spot) = request;
    spot.outward = {0, 0, 1};
    EXPECT_EQ(AnalyseSpot(drawing.database, spot, leave).failure, AnalysisFailure::Cancelled);
    EXPECT_EQ(AnalyseSpot(drawing.database, spot).failure, AnalysisFailure::None);
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
