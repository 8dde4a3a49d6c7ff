// Lines of equal hours among houses, against the hours of a dense grid of rays: at 31.2 degrees north on the winter
// solstice, a grid of two metres. Lengths are millimetres.
#include <gtest/gtest.h>

#include <cmath>

#include "IsolineJudge.h"
#include "PaperHouse.h"
#include "analysis/PointAnalysis.h"
#include "scene/SceneForTests.h"

namespace {

constexpr double kSpacing = 2000.0;
constexpr double kAllowed = 0.1 * kSpacing;
constexpr double kSide = 36000.0;  // of the area, a square from the origin

JudgedScene Courtyard() {
    JudgedScene scene;
    scene.Box(-9000, -14000, 0, 13000, -3000, 15000);  // whose shadow covers the middle of the day
    scene.Box(22000, -12000, 0, 30000, -2000, 30000);  // with a gap between them that the sun passes
    scene.Box(14000, 12000, 0, 20000, 17000, 4000);    // stands in the area
    scene.Box(40000, 0, 0, 45000, 40000, 9000);        // to the east
    scene.Box(7000, 9000, 6000, 7300, 30000, 6300);    // a beam
    return scene;
}

PointRequest Asking() {
    PointRequest request;
    static_cast<DayRequest&>(request) = Winter();
    request.settings.standard->step = 0.01;
    request.areaLayers = {L"GREEN"};
    request.spacing = 2.0;
    request.isolines = true;
    return request;
}

std::string TextWithArea(const JudgedScene& scene) {
    const std::string text = scene.Text();
    const std::string area =
        Entity("LWPOLYLINE", "5=FFFF 8=GREEN 90=4 70=1 10=0 20=0 10=36000 20=0 10=36000 20=36000 10=0 20=36000");
    const std::size_t end = text.rfind("0\nENDSEC");
    return text.substr(0, end) + area + text.substr(end);
}

// Rays each two minutes; where one meets something and the next does not the change is looked for between them. Of the
// whole day, or of the hours from a first one to as many after noon.
double SlowMinutes(const JudgedScene& scene, const FlatPoint& place, double from = 0.0) {
    SlowTarget target;
    target.lowerLeft = {place.x, place.y, 5.0};
    const SlowCaster caster(scene.Faces(), {kLatitude, -kSolstice, 0.0}, target, 1000.0);
    const auto isLit = [&](double hours) {
        return hours >= from && hours <= 24.0 - from && caster.IsUp(hours) && !caster.IsAnyRayStopped(hours);
    };
    constexpr double kStep = 1.0 / 30.0;
    double lit = 0.0;
    const double first = 12.0 - kWinter.Sunset() - 0.5 * kStep;
    bool wasLit = false;
    for (double hours = first; hours < 24.0 - first; hours += kStep) {
        const bool isNextLit = isLit(hours + kStep);
        if (wasLit == isNextLit) {
            lit += wasLit ? kStep : 0.0;
        } else {
            double low = hours, high = hours + kStep;
            for (int i = 0; i < 8; ++i)
                (isLit(0.5 * (low + high)) == wasLit ? low : high) = 0.5 * (low + high);
            lit += wasLit ? low - hours : hours + kStep - low;
        }
        wasLit = isNextLit;
    }
    return 60.0 * lit;
}

bool IsWithin(const FlatPoint& place) {
    return place.x > 0.0 && place.y > 0.0 && place.x < kSide && place.y < kSide;
}

std::vector<FlatIsoline> InPlan(const PointAnswer& answer) {
    std::vector<FlatIsoline> lines;
    for (const Isoline& line : answer.isolines) {
        lines.push_back({line.hours, line.isClosed, {}});
        for (const QcGePoint& point : line.points) {
            lines.back().points.push_back({point.x * 1000.0, point.y * 1000.0});
            EXPECT_NEAR(point.z, 0.0, 1e-9);
        }
    }
    return lines;
}

// Every hundredth piece of the lines, so that a test has time for it.
std::vector<FlatIsoline> SomeOf(const std::vector<FlatIsoline>& lines, std::size_t every) {
    std::vector<FlatIsoline> some;
    std::size_t number = 0;
    for (const FlatIsoline& line : lines)
        for (std::size_t i = 1; i < line.points.size(); ++i)
            if (number++ % every == 0)
                some.push_back({line.hours, false, {line.points[i - 1], line.points[i]}});
    return some;
}

}  // namespace

TEST(IsolinesInScenes, AreTrueToATenthOfTheSpacing) {
    const JudgedScene scene = Courtyard();
    const OpenDrawing drawing(TextWithArea(scene));
    const PointAnswer answer = AnalysePoints(drawing.database, Asking());
    ASSERT_EQ(answer.failure, AnalysisFailure::None);
    ASSERT_EQ(answer.points.size(), 324U);
    const std::vector<FlatIsoline> lines = InPlan(answer);
    ASSERT_GT(lines.size(), 8U);
    const MinutesAt minutesAt = [&](const FlatPoint& place) { return SlowMinutes(scene, place); };
    const std::vector<FlatIsoline> some = SomeOf(lines, 12);
    ASSERT_GT(some.size(), 20U);
    EXPECT_EQ(PlacesOff(some, kAllowed, minutesAt, IsWithin), 0U);

    const int most = static_cast<int>(2.0 * kWinter.Sunset());
    std::size_t changes = 0;
    for (const double row : {1.0, 5321.0, 13456.0, 16999.0, 22222.0, 31111.0}) {
        for (const bool isUpright : {false, true}) {
            const FlatPoint low = isUpright ? FlatPoint{row, 1.0} : FlatPoint{1.0, row};
            const FlatPoint high = isUpright ? FlatPoint{row, kSide} : FlatPoint{kSide, row};
            const DenseChanges found = ChangesIn(low, high, 0.5 * kAllowed, kAllowed, most, lines, minutesAt, IsWithin);
            changes += found.count;
            EXPECT_EQ(found.withoutLine, 0U) << row << (isUpright ? " upwards" : "");
        }
    }
    EXPECT_GT(changes, 80U);
}

// In the drawing's unit, on a tilted plane, and only where they are asked for.
TEST(IsolinesInScenes, LieInTheOutlinesPlane) {
    const std::string roof =
        Entity("POLYLINE", "5=A1 8=GREEN 66=1 70=9") + Entity("VERTEX", "8=GREEN 70=32 " + At(0, 0, 3)) +
        Entity("VERTEX", "8=GREEN 70=32 " + At(12, 0, 3)) + Entity("VERTEX", "8=GREEN 70=32 " + At(12, 8, 7)) +
        Entity("VERTEX", "8=GREEN 70=32 " + At(0, 8, 7)) + Entity("SEQEND", "8=GREEN");
    const std::string chimney =
        Entity("LWPOLYLINE", "5=B1 8=WALL 90=4 70=1 39=6 38=2 10=4 20=1 10=6 20=1 10=6 20=3 10=4 20=3");
    const OpenDrawing drawing(DrawingWith(roof + chimney, {}, 6));
    PointRequest request = Asking();
    request.spacing = 1.0;
    const PointAnswer answer = AnalysePoints(drawing.database, request);
    ASSERT_GT(answer.isolines.size(), 3U);
    for (const Isoline& line : answer.isolines) {
        EXPECT_EQ(line.outline, 0U);
        for (const QcGePoint& point : line.points) {
            EXPECT_NEAR(point.z, 3.0 + 0.5 * point.y, 1e-6);
            EXPECT_TRUE(point.x > -0.02 && point.x < 12.02 && point.y > -0.02 && point.y < 8.02);
        }
    }
    request.isolines = false;
    EXPECT_TRUE(AnalysePoints(drawing.database, request).isolines.empty());
}

// Where nothing hides the sun ends at a line, too: the one of as many hours as are analysed.
TEST(IsolinesInScenes, GoUpToTheWholeSpan) {
    JudgedScene scene;
    scene.Box(14000, 12000, 0, 20000, 17000, 4000);
    const OpenDrawing drawing(TextWithArea(scene));
    PointRequest request = Asking();
    request.settings.standard->start = 9.0;
    request.settings.standard->end = 15.0;
    const std::vector<FlatIsoline> lines = InPlan(AnalysePoints(drawing.database, request));
    std::vector<FlatIsoline> whole;
    for (const FlatIsoline& line : lines)
        if (line.hours == 6)
            whole.push_back(line);
    ASSERT_FALSE(whole.empty());
    constexpr double kRounding = 0.1;  // minutes, of times that are looked for
    const MinutesAt minutesAt = [&](const FlatPoint& place) { return SlowMinutes(scene, place, 9.0) + kRounding; };
    EXPECT_EQ(PlacesOff(SomeOf(whole, 12), kAllowed, minutesAt, IsWithin), 0U);
    std::size_t changes = 0;
    for (const double row : {11111.0, 16999.0, 22222.0, 31111.0}) {
        const DenseChanges found =
            ChangesIn({1.0, row}, {kSide, row}, 0.5 * kAllowed, kAllowed, 6, lines, minutesAt, IsWithin);
        changes += found.count;
        EXPECT_EQ(found.withoutLine, 0U) << row;
    }
    EXPECT_GT(changes, 12U);
}

// However few points there are: here the shadow of the middle of the day lies on the only one.
TEST(IsolinesInScenes, GoBeyondTheMostOfThePoints) {
    const OpenDrawing drawing(TextWithArea(Courtyard()));
    PointRequest request = Asking();
    request.spacing = 36.0;
    const PointAnswer answer = AnalysePoints(drawing.database, request);
    ASSERT_EQ(answer.points.size(), 1U);
    int most = 0;
    for (const Isoline& line : answer.isolines)
        most = std::max(most, line.hours);
    EXPECT_GT(most * 60, answer.outlines[0].most);
}

// As it has no points.
TEST(IsolinesInScenes, NoneWhereTheOutsideCannotBeTold) {
    const std::string wall = Entity("3DFACE",
                                    "5=A1 8=GREEN 10=0 20=0 30=0 11=9000 21=0 31=0 12=9000 22=0 32=9000 13=0 "
                                    "23=0 33=9000");
    const std::string roof =
        Entity("3DFACE",
               "5=B1 8=WALL 10=0 20=-5000 30=9500 11=4000 21=-5000 31=9500 12=4000 22=5000 32=9500 13=0 "
               "23=5000 33=9500");
    const OpenDrawing drawing(DrawingWith(wall + roof));
    EXPECT_TRUE(AnalysePoints(drawing.database, Asking()).isolines.empty());
    PointRequest request = Asking();
    request.facing = 270.0;
    EXPECT_FALSE(AnalysePoints(drawing.database, request).isolines.empty());
}

TEST(IsolinesInScenes, AreCancelledWithTheAnswer) {
    const OpenDrawing drawing(TextWithArea(Courtyard()));
    std::size_t whole = 0;
    const PointAnswer answer = AnalysePoints(drawing.database, Asking(), [&](std::size_t done, std::size_t total) {
        whole += done == total && total != 0 ? 1 : 0;
        return whole < 10;
    });
    EXPECT_EQ(answer.failure, AnalysisFailure::Cancelled);
    EXPECT_TRUE(answer.isolines.empty());
}

TEST(IsolinesInScenes, OutlinesWithTooManyAreTold) {
    const std::string strip = Entity("LWPOLYLINE", "5=A1 8=GREEN 90=3 70=1 10=0 20=0 10=1000000 20=0 10=0 20=4");
    const OpenDrawing drawing(DrawingWith(strip));
    PointRequest request = Asking();
    request.spacing = 0.005;  // a border of two kilometres, at a third of a millimetre
    request.level = 0.0;
    const PointAnswer answer = AnalysePoints(drawing.database, request);
    EXPECT_TRUE(answer.isolines.empty());
    EXPECT_TRUE(std::any_of(answer.areaRemarks.begin(), answer.areaRemarks.end(), [](const AreaRemark& remark) {
        return remark.kind == AreaRemark::Kind::TooManyIsolines && remark.handle == 0xA1;
    }));
}
