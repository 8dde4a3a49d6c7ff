// What is put on a drawing of an answer: faces, lines and texts, where they belong. Lengths are metres, the drawing's
// unit is a millimetre.
#include <gtest/gtest.h>

#include <cmath>

#include "platform/base/PlainText.h"
#include "platform/host/AcDbDatabase.h"
#include "scene/ObjectCoordinates.h"
#include "workbench/AnalysisForTests.h"
#include "workbench/commands/PointsOnDrawing.h"
#include "workbench/commands/PointsReport.h"
#include "workbench/commands/WindowsOnDrawing.h"

namespace {

using Kind = NewEntity::Kind;

std::vector<NewEntity> On(const DrawingChange& change, const wchar_t* layer, Kind kind) {
    std::vector<NewEntity> found;
    for (const NewEntity& entity : change.entities)
        if (entity.layer == layer) {
            EXPECT_EQ(entity.kind, kind);
            found.push_back(entity);
        }
    return found;
}

QcGePoint InWorld(const NewEntity& entity, std::size_t i = 0) {
    ObjectCoordinates axes;
    const QcGePoint extrusion(entity.extrusion[0], entity.extrusion[1], entity.extrusion[2]);
    EXPECT_TRUE(axes.SetExtrusion(QcGeVector3d(extrusion)));
    return axes.ToWorld(QcGePoint(entity.points[i][0], entity.points[i][1], entity.points[i][2]));
}

void ExpectAt(const QcGePoint& place, double x, double y, double z) {
    EXPECT_NEAR(place.x, x, 1e-6);
    EXPECT_NEAR(place.y, y, 1e-6);
    EXPECT_NEAR(place.z, z, 1e-6);
}

// From a lower left corner along a direction in plan, 1 m wide and 1.5 m high.
WindowResult WindowAt(double x, double y, double sill, double degrees, double judged) {
    const double c = std::cos(degrees * M_PI / 180.0), s = std::sin(degrees * M_PI / 180.0);
    WindowResult window;
    window.facing = degrees;
    window.width = 1.0;
    window.sill = sill;
    window.judged = judged;
    window.color = 5;
    window.corners = {QcGePoint(x, y, sill), QcGePoint(x + c, y + s, sill), QcGePoint(x + c, y + s, sill + 1.5),
                      QcGePoint(x, y, sill + 1.5)};
    return window;
}

DrawingChange Drawn(const std::vector<WindowResult>& windows) {
    AnalysisReport report = BareReport();
    report.answer.windows = windows;
    return WindowsOnDrawing(report, AcDbDatabase());
}

PointsReport WithLine(const Isoline& line, const QcGePoint& outward) {
    const AnalysisReport bare = BareReport();
    PointsReport report;
    static_cast<DayRequest&>(report.request) = bare.request;
    report.answer.outlines.resize(line.outline + 1);
    report.answer.outlines[line.outline].outward = outward;
    report.answer.isolines = {line};
    return report;
}

}  // namespace

TEST(WindowsOnDrawing, AreFacesWithTheirHoursBelowTheSill) {
    // To the north: seen from there the wall runs to the west, and its text is written from west to east.
    const DrawingChange change = Drawn({WindowAt(2, 3, 1, 0, 125), WindowAt(9, 8, 1, 180, 0.5)});
    const std::vector<NewEntity> faces = On(change, L"ORVO_RESULT_WINDOWS", Kind::Face);
    const std::vector<NewEntity> texts = On(change, L"ORVO_RESULT_HOURS", Kind::Text);
    ASSERT_EQ(faces.size(), 2U);
    ASSERT_EQ(texts.size(), 2U);
    ExpectAt(InWorld(faces[0], 2), 3000, 3000, 2500);
    EXPECT_EQ(faces[0].colorIndex, 5);
    const NewEntity& south = texts[0].text == L"2:05" ? texts[0] : texts[1];
    const NewEntity& north = texts[0].text == L"2:05" ? texts[1] : texts[0];
    EXPECT_TRUE(north.text == L"0:00:30");
    EXPECT_NEAR(south.height, 250.0, 1e-9);
    EXPECT_TRUE(south.isCentred);
    ExpectAt(InWorld(south), 2500, 3000 - 200, 1000);
    ExpectAt(InWorld(north), 8500, 8000 + 200, 1000);
    EXPECT_NEAR(south.rotation, 0.0, 1e-9);
    EXPECT_NEAR(north.rotation, 0.0, 1e-9);
}

TEST(WindowsOnDrawing, TextsAreReadFromBelowOrFromTheRight) {
    const std::pair<double, double> cases[] = {{0, 0}, {30, 30}, {90, 90}, {150, -30}, {180, 0}, {270, 90}, {300, -60}};
    for (const auto& [along, turn] : cases) {
        const DrawingChange change = Drawn({WindowAt(0, 0, 0, along, 60)});
        EXPECT_NEAR(On(change, L"ORVO_RESULT_HOURS", Kind::Text).at(0).rotation, turn, 1e-6) << along;
    }
}

TEST(WindowsOnDrawing, WindowsAboveEachOtherHaveTheirTextsInRows) {
    const DrawingChange change =
        Drawn({WindowAt(0, 0, 7, 0, 60), WindowAt(0, 0, 1, 0, 120), WindowAt(0.01, 0, 4, 0, 180)});
    for (const NewEntity& text : On(change, L"ORVO_RESULT_HOURS", Kind::Text)) {
        const double row = text.text == L"2:00" ? 0.5 : text.text == L"3:00" ? 1.5 : 2.5;
        EXPECT_NEAR(InWorld(text).y, -row * 400.0, 1e-6);
    }
}

// On whichever side of a mark rounding puts them; not with those of the wall's other side or of the next window.
TEST(WindowsOnDrawing, WindowsBesideAMarkAreAboveEachOtherToo) {
    constexpr double kOff = 1e-6;
    const double ways[] = {0.0, std::asin(0.5) * 180.0 / M_PI, std::asin(0.55) * 180.0 / M_PI};
    for (const double x : {1.5, 1.55, 400000.05})
        for (const double way : ways) {
            const DrawingChange change =
                Drawn({WindowAt(x - kOff, kOff, 1, way - kOff, 120), WindowAt(x + kOff, -kOff, 4, way + kOff, 180)});
            const std::vector<NewEntity> texts = On(change, L"ORVO_RESULT_HOURS", Kind::Text);
            ASSERT_EQ(texts.size(), 2U);
            const QcGePoint low = InWorld(texts[0]), high = InWorld(texts[1]);
            EXPECT_NEAR(std::hypot(high.x - low.x, high.y - low.y), 400.0, 0.1) << x << " along " << way;
        }
    const DrawingChange apart =
        Drawn({WindowAt(0, 0, 1, 0, 120), WindowAt(1, 0.05, 4, 180, 180), WindowAt(0.2, 0, 4, 0, 60)});
    for (const NewEntity& text : On(apart, L"ORVO_RESULT_HOURS", Kind::Text))
        EXPECT_NEAR(InWorld(text).y, text.text == L"3:00" ? 250.0 : -200.0, 1e-6);
}

TEST(WindowsOnDrawing, TheTextHasTheColourOfTheVerdictAndTheWindowThatOfItsHours) {
    WindowResult passing = WindowAt(0, 0, 0, 0, 60);
    passing.passes = true;
    WindowResult failing = WindowAt(5, 0, 0, 0, 60);
    failing.passes = false;
    WindowResult unknown = WindowAt(9, 0, 0, 0, 0);
    unknown.facing.reset();
    const DrawingChange change = Drawn({passing, failing, unknown});
    const std::vector<NewEntity> faces = On(change, L"ORVO_RESULT_WINDOWS", Kind::Face);
    EXPECT_EQ(faces.at(0).colorIndex, 5);
    EXPECT_EQ(faces.at(1).colorIndex, 5);
    EXPECT_EQ(faces.at(2).colorIndex, kColorByLayer);
    const std::vector<NewEntity> texts = On(change, L"ORVO_RESULT_HOURS", Kind::Text);
    EXPECT_EQ(texts.at(0).colorIndex, 3);
    EXPECT_EQ(texts.at(1).colorIndex, 1);
    EXPECT_EQ(texts.at(2).colorIndex, kColorByLayer);
    EXPECT_EQ(texts.at(2).text, L"-");
}

// The table of a standard holds whatever its user wrote, and a drawing takes 1 to 255.
TEST(ResultsOnDrawing, NumbersThatAreNoColoursGiveTheLayers) {
    for (const int color : {-3, 0, 256, 257, 1000000}) {
        WindowResult window = WindowAt(0, 0, 0, 0, 60);
        window.color = color;
        const DrawingChange windows = Drawn({window});
        PointsReport report = WithLine({3, 0, false, {{0, 0, 0}, {1, 0, 0}}}, {0, 0, 1});
        report.request.settings.standard->timeColors = {{0.0, color}};
        const DrawingChange lines = PointsOnDrawing(report, AcDbDatabase());
        for (const DrawingChange* const change : {&windows, &lines}) {
            ASSERT_EQ(change->entities.size(), 2U);
            for (const NewEntity& entity : change->entities)
                EXPECT_EQ(entity.colorIndex, kColorByLayer) << color;
        }
    }
}

TEST(PointsOnDrawing, LinesHaveALabelInTheirMiddle) {
    const Isoline line{3, 1, false, {{0, 0, 2}, {1, 0, 2}, {1, 3, 2}}};
    PointsReport report = WithLine(line, {0, 0, 1});
    report.request.spacing = 0.8;
    const DrawingChange change = PointsOnDrawing(report, AcDbDatabase());
    const std::vector<NewEntity> lines = On(change, L"ORVO_RESULT_ISOLINES", Kind::Polyline);
    const std::vector<NewEntity> labels = On(change, L"ORVO_RESULT_LABELS", Kind::Text);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_FALSE(lines[0].isClosed);
    ExpectAt(InWorld(lines[0], 2), 1000, 3000, 2000);
    EXPECT_EQ(lines[0].colorIndex, report.request.settings.standard->TimeColorOf(3.0));
    ASSERT_EQ(labels.size(), 1U);
    EXPECT_TRUE(labels[0].text == L"3 h");
    ExpectAt(InWorld(labels[0]), 1000, 1000, 2000);  // 2 m of 4 along
    EXPECT_NEAR(labels[0].rotation, 90.0, 1e-6);
    EXPECT_NEAR(labels[0].height, 400.0, 1e-9);
    EXPECT_TRUE(On(change, L"ORVO_RESULT_SHARES", Kind::Text).empty());
}

// 80 heights of a text apart: a ring of 4 times 100 m with texts of half a metre has ten.
TEST(PointsOnDrawing, LongLinesHaveSeveral) {
    const Isoline ring{1, 0, true, {{0, 0, 0}, {100, 0, 0}, {100, 100, 0}, {0, 100, 0}}};
    const DrawingChange change = PointsOnDrawing(WithLine(ring, {0, 0, 1}), AcDbDatabase());
    EXPECT_TRUE(On(change, L"ORVO_RESULT_ISOLINES", Kind::Polyline).at(0).isClosed);
    const std::vector<NewEntity> labels = On(change, L"ORVO_RESULT_LABELS", Kind::Text);
    ASSERT_EQ(labels.size(), 10U);
    ExpectAt(InWorld(labels[0]), 20000, 0, 0);
    ExpectAt(InWorld(labels[9]), 0, 20000, 0);
}

TEST(PointsOnDrawing, PlanesOfAllKindsKeepTheirPlaces) {
    const double half = std::sqrt(0.5);
    const struct {
        QcGePoint outward;
        std::vector<QcGePoint> points;
    } cases[] = {
        {{0, -1, 0}, {{1, 5, 2}, {3, 5, 2}, {3, 5, 6}}},
        {{0, 1, 0}, {{1, 5, 2}, {3, 5, 2}, {3, 5, 6}}},
        {{half, 0, half}, {{1, 7, 2}, {0, 3, 3}, {-2, 4, 5}}},
        {{0, -half, -half}, {{1, 1, 2}, {4, 0, 3}, {4, 5, -2}}},
    };
    for (const auto& each : cases) {
        const DrawingChange change = PointsOnDrawing(WithLine({2, 0, true, each.points}, each.outward), AcDbDatabase());
        const NewEntity line = On(change, L"ORVO_RESULT_ISOLINES", Kind::Polyline).at(0);
        for (std::size_t i = 0; i < each.points.size(); ++i) {
            ExpectAt(InWorld(line, i), 1000 * each.points[i].x, 1000 * each.points[i].y, 1000 * each.points[i].z);
            EXPECT_EQ(line.points[i][2], line.points[0][2]);
        }
    }
}

TEST(PointsOnDrawing, TheShareStandsAtThePointNextToTheMiddle) {
    PointsReport report = WithLine({1, 0, false, {{0, 0, 0}, {1, 0, 0}}}, {0, 0, 1});
    OutlineResult& outline = report.answer.outlines[0];
    outline.pointCount = 4;
    outline.share = 0.875;
    for (const double x : {0.0, 1.0, 2.0, 9.0})
        report.answer.points.push_back({QcGePoint(x, 1.0, 0.5), 0, {}, 0.0});
    const std::vector<NewEntity> shares =
        On(PointsOnDrawing(report, AcDbDatabase()), L"ORVO_RESULT_SHARES", Kind::Text);
    ASSERT_EQ(shares.size(), 1U);
    EXPECT_TRUE(shares[0].text == L"87.5%");
    ExpectAt(InWorld(shares[0]), 2000, 1000, 500);
    EXPECT_NEAR(shares[0].height, 1000.0, 1e-9);
}

// Each empties the layers that it fills, and no others.
TEST(ResultsOnDrawing, EachHasLayersOfItsOwn) {
    const DrawingChange windows = Drawn({});
    const DrawingChange points = PointsOnDrawing(PointsReport(), AcDbDatabase());
    EXPECT_EQ(windows.emptiedLayers.size(), 2U);
    EXPECT_EQ(points.emptiedLayers.size(), 3U);
    for (const CString& layer : windows.emptiedLayers)
        EXPECT_EQ(std::count(points.emptiedLayers.begin(), points.emptiedLayers.end(), layer), 0);
    EXPECT_EQ(windows.layers.size(), windows.emptiedLayers.size());
    EXPECT_EQ(points.layers.size(), points.emptiedLayers.size());
}
