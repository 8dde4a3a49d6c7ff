// What a film is made of, before anything is drawn: moments, sizes, windows, texts, cameras, room on the disk.
#include "workbench/film/Film.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <cmath>
#include <filesystem>

#include "facts/Angles.h"
#include "facts/SunDay.h"
#include "facts/SunPosition.h"
#include "workbench/film/FilmScene.h"
#include "workbench/film/FilmStamp.h"
#include "workbench/film/RecordingFile.h"
#include "workbench/view/IndexColors.h"

namespace {

constexpr double kLatitude = 40.0;

AnalysisRequest RequestInBeijing() {
    AnalysisRequest request;
    Place place;
    place.province = L"北京市";
    place.city = L"北京";
    place.longitude = 116.4;
    place.latitude = kLatitude;
    request.settings.place = place;
    Standard standard;
    standard.timeColors = {{0.0, 1}, {2.5, 3}};
    request.settings.standard = standard;
    request.terms.day = {2025, 12, 22};
    request.terms.declination = -23.4;
    return request;
}

// 2 m wide, on a wall that looks to the south, 3 m above the ground.
WindowResult SouthWindow() {
    WindowResult window;
    window.corners = {QcGePoint{1, 5, 3}, {3, 5, 3}, {3, 5, 4.5}, {1, 5, 4.5}};
    window.facing = 270.0;
    window.color = 3;
    return window;
}

}  // namespace

TEST(Film, HasAPictureForEachStepUpToTheEndOfTheSpan) {
    EXPECT_EQ(FilmMoments({8.0, 16.0}, 5).size(), 97U);
    EXPECT_EQ(FilmMoments({8.0, 16.0}, 60), (std::vector<double>{8, 9, 10, 11, 12, 13, 14, 15, 16}));
    EXPECT_EQ(FilmMoments({9.5, 11.0}, 60), (std::vector<double>{9.5, 10.5}));
    EXPECT_EQ(FilmMoments({9.0, 9.1}, 720), std::vector<double>{9.0});
    EXPECT_DOUBLE_EQ(FilmMoments({8.0, 16.0}, 5).back(), 16.0);
    EXPECT_TRUE(FilmMoments({9.0, NAN}, 5).empty());
}

TEST(RecordingFile, TakesWholeUnitsOfARowForEachPicture) {
    EXPECT_NEAR(static_cast<double>(RecordingBytes(1280, 720, 24, 97)), 97.0 * 1280 * 720 * 3, 20'000.0);
    // A row is filled up to 4 bytes.
    EXPECT_NEAR(static_cast<double>(RecordingBytes(322, 240, 24, 1000)), 1000.0 * 968 * 240, 50'000.0);
    EXPECT_NEAR(static_cast<double>(RecordingBytes(322, 240, 8, 1000)), 1000.0 * 324 * 240, 50'000.0);
    EXPECT_NEAR(static_cast<double>(RecordingBytes(322, 240, 32, 1000)), 1000.0 * 1288 * 240, 50'000.0);
}

TEST(Film, StandsWindowsACentimetreBeforeTheirWalls) {
    for (const double millimetres : {1.0, 1000.0}) {
        const double metre = 1000.0 / millimetres;
        const Scene marks = WindowMarks({SouthWindow()}, millimetres);
        ASSERT_EQ(marks.faces.size(), 1U);
        const QcGeFace3dEX& face = marks.faces[0];
        EXPECT_NEAR(face.m_pt[0].x, 1.0 * metre, 1e-9 * metre);
        EXPECT_NEAR(face.m_pt[0].y, 4.99 * metre, 1e-9 * metre);
        EXPECT_NEAR(face.m_pt[2].x, 3.0 * metre, 1e-9 * metre);
        EXPECT_NEAR(face.m_pt[2].z, 4.5 * metre, 1e-9 * metre);
        ASSERT_EQ(marks.entities.size(), 1U);
        EXPECT_EQ(marks.entities[0].colorIndex, 3);
        EXPECT_EQ(marks.entities[0].trueColor, -1);
    }
}

TEST(Film, ShowsWindowsWithoutASideOnBothInGrey) {
    WindowResult window = SouthWindow();
    window.facing.reset();
    const Scene marks = WindowMarks({window, SouthWindow()}, 1000.0);
    ASSERT_EQ(marks.faces.size(), 3U);
    EXPECT_NEAR(marks.faces[0].m_pt[0].y, 4.99, 1e-9);
    EXPECT_NEAR(marks.faces[1].m_pt[0].y, 5.01, 1e-9);
    EXPECT_EQ(marks.entities[0].trueColor, kNoSideColor);
    EXPECT_EQ(marks.entities[0].faceCount, 2U);
    EXPECT_EQ(marks.entities[1].firstFace, 2U);
}

TEST(Film, TurnsTheSunWithTrueNorth) {
    AnalysisRequest request = RequestInBeijing();
    // At noon it stands in the south, 90 - 40 - 23.4 degrees high.
    const double altitude = (90.0 - kLatitude - 23.4) * kRadiansPerDegree;
    for (const double north : {0.0, 30.0, -100.0}) {
        request.north = north;
        const QcGeVector3d sun = SunOfDrawing(request, 12.0).direction;
        // South lies opposite of north, which lies `north` degrees counter-clockwise of +Y.
        EXPECT_NEAR(sun.x, std::sin(north * kRadiansPerDegree) * std::cos(altitude), 1e-9) << north;
        EXPECT_NEAR(sun.y, -std::cos(north * kRadiansPerDegree) * std::cos(altitude), 1e-9) << north;
        EXPECT_NEAR(sun.z, std::sin(altitude), 1e-9);
    }
    request.north = 0.0;
    EXPECT_GT(SunOfDrawing(request, 9.0).direction.x, 0.5);  // in the morning in the east
}

TEST(Film, LooksFromWhereItIsTold) {
    FilmRequest request;
    const Scene marks = WindowMarks({SouthWindow()}, 1000.0);
    for (const double north : {0.0, 30.0}) {
        request.view = StandardView::South;
        const ViewCamera south = FilmCameraOf(request, Scene(), marks, north);
        // The eye is in true south.
        const QcGeVector3d way = south.GetEye() - south.GetTarget();
        EXPECT_NEAR(way.x, std::sin(north * kRadiansPerDegree) * south.GetDistance(), 1e-9);
        EXPECT_NEAR(way.y, -std::cos(north * kRadiansPerDegree) * south.GetDistance(), 1e-9);
        request.view = StandardView::Top;
        const ViewCamera top = FilmCameraOf(request, Scene(), marks, north);
        EXPECT_TRUE(top.IsParallel());
        EXPECT_NEAR(top.GetUp().y, 1.0, 1e-9);
    }
    request.camera = FilmCamera{-90.0, 20.0};
    const ViewCamera west = FilmCameraOf(request, Scene(), marks, 0.0);
    EXPECT_NEAR(west.GetAzimuth(), 270.0, 1e-9);
    EXPECT_NEAR(west.GetAltitude(), 20.0, 1e-9);
    // All of the window is seen.
    const auto left = west.Project({1, 5, 3});
    const auto right = west.Project({3, 5, 4.5});
    ASSERT_TRUE(left && right);
    for (const ViewPixel& pixel : {*left, *right})
        EXPECT_TRUE(pixel.x > 0 && pixel.x < 1280 && pixel.y > 0 && pixel.y < 720);
}

// Two places of a wide site, near and far, low and high.
TEST(Film, EnlargesThePictureFromWhereTheEyeIs) {
    const QcGePoint corners[4] = {{-500, -500, 0}, {500, -500, 0}, {500, 500, 20}, {-500, 500, 20}};
    Scene site;
    site.faces.emplace_back(corners, 4, true);
    site.least = corners[0];
    site.most = corners[2];
    for (const StandardView view : {StandardView::SouthEast, StandardView::South, StandardView::Top}) {
        FilmRequest request;
        request.view = view;
        const ViewCamera whole = FilmCameraOf(request, site, Scene(), 0.0);
        for (const double zoom : {0.1, 3.0, 100.0}) {
            request.zoom = zoom;
            const ViewCamera camera = FilmCameraOf(request, site, Scene(), 0.0);
            for (const QcGePoint& place : {QcGePoint(10, -400, 0), QcGePoint(-300, 450, 19)}) {
                const auto before = whole.Project(place);
                const auto after = camera.Project(place);
                ASSERT_TRUE(before && after);
                EXPECT_NEAR(after->x - 640.0, (before->x - 640.0) * zoom, 1e-6 * zoom);
                EXPECT_NEAR(after->y - 360.0, (before->y - 360.0) * zoom, 1e-6 * zoom);
            }
            EXPECT_NEAR((camera.GetEye() - whole.GetEye()).Length(), 0.0, 1e-9);
        }
    }
}

TEST(Film, WritesPlaceDayBothTimesAndTheSunOnEachPicture) {
    const AnalysisRequest request = RequestInBeijing();
    const AnalysisAnswer answer;
    const FilmStamp stamp(request, answer);
    const std::vector<QString> noon = stamp.LinesAt(12.0);
    ASSERT_EQ(noon.size(), 5U);
    EXPECT_EQ(noon[0], QString("北京市/北京"));
    EXPECT_TRUE(noon[1].contains("2025") && noon[1].contains("12") && noon[1].contains("22")) << noon[1].toStdString();
    EXPECT_EQ(noon[2], QString("真太阳时 12:00:00"));
    EXPECT_EQ(noon[3], QString("北京时间 12:14:24"));  // 3.6 degrees west of 120, at 4 minutes each
    EXPECT_EQ(noon[4], QString("太阳高度角 26.6°，方位角 180.0°"));
    EXPECT_EQ(stamp.LinesAt(2.0)[4], QString("夜间：太阳在地平线以下"));
}

TEST(Film, ExplainsTheColoursOfTheStandard) {
    AnalysisRequest request = RequestInBeijing();
    AnalysisAnswer answer;
    EXPECT_EQ(FilmStamp(request, answer).Legend().size(), 2U);  // lit and not
    WindowResult unknown = SouthWindow();
    unknown.facing.reset();
    answer.windows = {SouthWindow(), unknown};
    const auto rows = FilmStamp(request, answer).Legend();
    ASSERT_EQ(rows.size(), 6U);
    EXPECT_EQ(rows[2].rgb, -1);
    EXPECT_EQ(rows[3].rgb, 0xFF0000);
    EXPECT_EQ(rows[3].text, QString("≥ 0"));
    EXPECT_EQ(rows[4].rgb, 0x00FF00);
    EXPECT_EQ(rows[4].text, QString("≥ 2.5"));
    EXPECT_EQ(rows[5].rgb, kNoSideColor);
    request.need = 2.5;
    const auto marked = FilmStamp(request, answer).Legend();
    ASSERT_EQ(marked.size(), 7U);
    EXPECT_TRUE(marked[4].isMark) << "from 2.5 on it is enough";
    EXPECT_EQ(marked[5].text, rows[4].text);
}

TEST(RecordingFile, SaysWhyThereIsNoRoom) {
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / ("film-" + std::to_string(getpid()));
    std::filesystem::create_directory(folder);
    const CString file = FromUtf8((folder / "a.avi").string());
    EXPECT_TRUE(WhyNoRoom(file, 1000, L"advice").IsEmpty());
    // Nobody has a million terabytes.
    const CString none = WhyNoRoom(file, 1'000'000'000'000'000'000U, L"advice");
    EXPECT_GT(none.Find(L"1000000000000.0 MB"), 0);
    EXPECT_EQ(none.Right(6), L"advice");
    EXPECT_TRUE(std::filesystem::is_empty(folder));
    EXPECT_FALSE(WhyNoRoom(FromUtf8((folder / "missing" / "a.avi").string()), 1000, L"").IsEmpty());
    std::filesystem::remove(folder);
}
