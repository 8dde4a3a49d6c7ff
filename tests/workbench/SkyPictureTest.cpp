// The sky of a window, read back from its markup and asked where the sun is.
#include "workbench/report/SkyPicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "SvgForTests.h"
#include "analysis/StandingFaces.h"
#include "analysis/WindowAnalysis.h"
#include "facts/SunDay.h"
#include "facts/SunPosition.h"
#include "settings/OrvoStdSet.h"
#include "support/DrawingForTests.h"

namespace {

constexpr double kLatitude = 31.2;

AnalysisRequest Winter() {
    AnalysisRequest request;
    request.settings.place = Place{L"P", L"Q", 120.0, kLatitude};
    Standard& standard = request.settings.standard.emplace();
    standard.start = 6.0;
    standard.end = 18.0;
    standard.step = 1.0;
    standard.fullWindow = 0;
    standard.validSunType = ORVO_SUN_CUSTOM;  // of 0: every sun before the wall
    request.terms.declination = -23.44;
    return request;
}

// A body over a rectangle in plan.
std::string House(int handle, double x1, double y1, double x2, double y2, double height, const char* layer = "0") {
    std::string text = "0\nLWPOLYLINE\n5\n" + std::to_string(handle) + "\n8\n" + layer + "\n90\n4\n70\n1\n39\n" +
                       std::to_string(height) + "\n";
    for (const auto& [x, y] : {std::pair(x1, y1), {x2, y1}, {x2, y2}, {x1, y2}})
        text += "10\n" + std::to_string(x) + "\n20\n" + std::to_string(y) + "\n";
    return text;
}

// A window of 1500 by 1500 in a south wall at y = 0, or in an east wall at x = 10000.
std::string Pane(bool isEast = false) {
    std::string text = "0\n3DFACE\n5\n99\n8\nWINDOW\n";
    const double from = -750.0, to = 750.0;
    int code = 10;
    for (const auto& [along, z] : {std::pair(from, 1000.0), {to, 1000.0}, {to, 2500.0}, {from, 2500.0}}) {
        const double x = isEast ? 10000.0 : along, y = isEast ? 4000.0 + along : 0.0;
        text += std::to_string(code) + "\n" + std::to_string(x) + "\n" + std::to_string(code + 10) + "\n" +
                std::to_string(y) + "\n" + std::to_string(code + 20) + "\n" + std::to_string(z) + "\n";
        ++code;
    }
    return text;
}

struct Asked {
    Asked(const std::string& entities, const AnalysisRequest& asked)
        : drawing("0\nSECTION\n2\nHEADER\n9\n$INSUNITS\n70\n4\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n" + entities +
                  "0\nENDSEC\n0\nEOF\n"),
          request(asked),
          answer(AnalyseWindows(drawing.Database(), request)),
          faces(StandingFaces(drawing.Database(), request)) {}
    const WindowResult& Window() const { return answer.windows.at(0); }
    std::vector<SvgElement> Draw() const { return ReadSvg(DrawSky({faces, request, answer, Window(), Window(), "s"})); }

    DrawingForTests drawing;
    AnalysisRequest request;
    AnalysisAnswer answer;
    OccluderSet faces;
};

const std::string kOwnHouse = House(10, -10000, 0, 10000, 8000, 30000);

SunDay DayOf(const AnalysisRequest& request) {
    return ComputeSunDay(request.terms, *request.settings.place);
}

// Where a place of the sky is on paper, found from the dots of 11 and 13 o'clock: as far as they are apart in degrees
// they are on paper, and their altitudes are the same.
class Paper {
public:
    Paper(const std::vector<SvgElement>& sky, const SunDay& day) : m_dots(Pick(sky, "circle", "dots")) {
        int before = 0;
        for (int hour = 0; hour < 11; ++hour)
            before += PositionOfSun(day, hour).altitude > 0.0 ? 1 : 0;
        const auto index = static_cast<std::size_t>(before);
        const SvgElement& left = m_dots.at(index);
        const SvgElement& right = m_dots.at(index + 2);
        const SunPosition eleven = PositionOfSun(day, 11.0), thirteen = PositionOfSun(day, 13.0);
        m_units = (right.Number("cx") - left.Number("cx")) / (thirteen.azimuth - eleven.azimuth);
        m_south = left.Number("cx") + (180.0 - eleven.azimuth) * m_units;
        m_horizon = left.Number("cy") + eleven.altitude * m_units;
    }
    SvgPoint At(const SunPosition& place) const {
        return {m_south + (place.azimuth - 180.0) * m_units, m_horizon - place.altitude * m_units};
    }
    double UnitsPerDegree() const { return m_units; }
    double Horizon() const { return m_horizon; }
    std::size_t DotCount() const { return m_dots.size(); }

private:
    std::vector<SvgElement> m_dots;
    double m_units = 1.0;
    double m_south = 0.0;
    double m_horizon = 0.0;
};

std::vector<SvgLine> LinesIn(const std::vector<SvgElement>& sky, const char* className) {
    std::vector<SvgLine> lines;
    for (const SvgElement& path : Pick(sky, "path", className))
        for (const SvgLine& line : LinesOf(path.Get("d")))
            lines.push_back(line);
    return lines;
}

double DistanceTo(const std::vector<SvgLine>& lines, SvgPoint point, bool areLoops) {
    double least = 1e9;
    for (const SvgLine& line : lines)
        for (std::size_t i = 0; i + (areLoops ? 0 : 1) < line.size(); ++i) {
            const SvgPoint a = line[i], b = line[(i + 1) % line.size()];
            const double x = b.x - a.x, y = b.y - a.y, length = std::max(x * x + y * y, 1e-9);
            const double along = std::clamp(((point.x - a.x) * x + (point.y - a.y) * y) / length, 0.0, 1.0);
            least = std::min(least, std::hypot(point.x - a.x - along * x, point.y - a.y - along * y));
        }
    return least;
}

}  // namespace

TEST(SkyPicture, HasTheSunInAnOutlineWheneverItIsHidden) {
    AnalysisRequest request = Winter();
    for (const double north : {0.0, 20.0}) {
        request.north = north;
        const Asked asked(kOwnHouse + House(20, -26000, -40000, -12000, -30000, 40000) +
                              House(30, 2000, -36000, 9000, -30000, 22000) + House(40, 1500, -900, 1700, 0, 9000) +
                              House(50, -300000, -400000, 300000, -390000, 60000) + Pane(),
                          request);
        ASSERT_FALSE(asked.Window().hidden.empty());
        const std::vector<SvgElement> sky = asked.Draw();
        const SunDay day = DayOf(request);
        const Paper paper(sky, day);
        std::vector<SvgLine> bodies = LinesIn(sky, "culprits");
        for (const SvgLine& line : LinesIn(sky, "others"))
            bodies.push_back(line);
        const std::vector<SvgLine> hiddenWay = LinesIn(sky, "hidden");
        const std::vector<SvgLine> litWay = LinesIn(sky, "lit");
        int hidden = 0, lit = 0;
        for (int minute = 6 * 60; minute <= 18 * 60; ++minute) {
            const double hours = minute / 60.0;
            const SunPosition sun = PositionOfSun(day, hours);
            const double toWall = std::abs(std::remainder(sun.azimuth - (180.0 - north), 360.0));
            const SvgPoint point = paper.At(sun);
            if (sun.altitude < 0.5 || toWall > 89.0 || DistanceTo(bodies, point, true) < 4.0)
                continue;
            const bool isHidden = std::any_of(
                asked.Window().hidden.begin(), asked.Window().hidden.end(),
                [&](const HiddenPeriod& each) { return each.period.start <= hours && hours <= each.period.end; });
            EXPECT_EQ(IsInside(bodies, point), isHidden) << hours << " north " << north;
            EXPECT_LT(DistanceTo(isHidden ? hiddenWay : litWay, point, false), 3.0) << hours;
            EXPECT_GT(DistanceTo(isHidden ? litWay : hiddenWay, point, false), 3.0) << hours;
            (isHidden ? hidden : lit) += 1;
        }
        EXPECT_GT(hidden, 60);
        EXPECT_GT(lit, 60);
    }
}

TEST(SkyPicture, TellsThoseThatHideTheSunFromOthers) {
    // One in the way at noon, one to the side below the sun's way.
    const Asked asked(kOwnHouse + House(20, -3000, -30000, 4000, -25000, 40000) +
                          House(30, -90000, -30000, -70000, -20000, 4000) + Pane(),
                      Winter());
    const std::vector<SvgElement> sky = asked.Draw();
    ASSERT_EQ(LinesIn(sky, "culprits").size(), 1U);
    EXPECT_EQ(LinesIn(sky, "others").size(), 1U);
    const std::vector<SvgElement> handles = Pick(sky, "text", "handles");
    ASSERT_EQ(handles.size(), 1U);
    EXPECT_EQ(handles[0].text, "20");
    // 25 to 30 m away and 40 m high: its upper edge is seen at atan(39 / 25) at most, but the frame ends before.
    const Paper paper(sky, DayOf(asked.request));
    const SvgLine tower = LinesIn(sky, "culprits")[0];
    const auto top = std::min_element(tower.begin(), tower.end(), [](SvgPoint a, SvgPoint b) { return a.y < b.y; });
    EXPECT_NEAR((paper.Horizon() - top->y) / paper.UnitsPerDegree(),
                std::atan((40.0 - 1.0) / 25.0) * 180.0 / 3.14159265, 0.1);
}

TEST(SkyPicture, LeavesOutWhatIsWhollyBehindSomethingNearer) {
    // All to the south-west of the sun's way at the end of the span, which is at noon.
    AnalysisRequest request = Winter();
    request.settings.standard->end = 12.0;
    const std::string near = House(20, -60000, -32000, -40000, -30000, 9000);
    const std::string low = House(30, -100000, -62000, -90000, -60000, 9000);
    const std::string high = House(40, -100000, -62000, -90000, -60000, 40000);
    EXPECT_EQ(LinesIn(Asked(kOwnHouse + near + Pane(), request).Draw(), "others").size(), 1U);
    EXPECT_EQ(LinesIn(Asked(kOwnHouse + near + low + Pane(), request).Draw(), "others").size(), 1U);
    EXPECT_EQ(LinesIn(Asked(kOwnHouse + near + high + Pane(), request).Draw(), "others").size(), 2U);
}

TEST(SkyPicture, HatchesWhatIsBehindTheWall) {
    const Asked asked(kOwnHouse + Pane(true), Winter());
    ASSERT_TRUE(asked.Window().facing.has_value());
    const std::vector<SvgElement> sky = asked.Draw();
    const Paper paper(sky, DayOf(asked.request));
    const std::vector<SvgLine> behind = LinesIn(sky, "behind");
    ASSERT_EQ(behind.size(), 1U);
    // An east wall sees from north to south: all that is west of south is behind it.
    EXPECT_TRUE(IsInside(behind, paper.At({10.0, 182.0})));
    EXPECT_TRUE(IsInside(behind, paper.At({10.0, 260.0})));
    EXPECT_FALSE(IsInside(behind, paper.At({10.0, 178.0})));
    EXPECT_FALSE(IsInside(behind, paper.At({10.0, 95.0})));
}

TEST(SkyPicture, NamesEachHourOfTheSunTwice) {
    AnalysisRequest request = Winter();
    request.settings.place->longitude = 105.0;  // an hour behind
    const Asked asked(kOwnHouse + Pane(), request);
    const std::vector<SvgElement> sky = asked.Draw();
    std::vector<QString> hours, beijing;
    for (const SvgElement& text : Pick(sky, "text", "hours"))
        hours.push_back(text.text);
    for (const SvgElement& text : Pick(sky, "text", "beijing"))
        beijing.push_back(text.text);
    // cos H = tan 31.2 tan 23.44: the sun is up from 7:01 to 16:59.
    EXPECT_EQ(Paper(sky, DayOf(request)).DotCount(), 9U);
    EXPECT_EQ(std::count(hours.begin(), hours.end(), "12:00"), 1);
    EXPECT_EQ(std::count(beijing.begin(), beijing.end(), "13:00"), 1);
    EXPECT_EQ(hours.front(), "8:00");
}

TEST(SkyPicture, WritesHoursBesideTheSunsWay) {
    const Asked asked(kOwnHouse + Pane(), Winter());
    const std::vector<SvgElement> sky = asked.Draw();
    const std::vector<SvgLine> way = LinesOf(Pick(sky, "path", "way").at(0).Get("d"));
    const std::vector<SvgElement> texts = Pick(sky, "text", "hours");
    ASSERT_GT(texts.size(), 5U);
    for (const SvgElement& text : texts) {
        // A digit is half as wide as its size and seven tenths as high.
        const double half = 0.25 * 220.0 * static_cast<double>(text.text.size());
        for (const SvgLine& line : way)
            for (const SvgPoint& point : line)
                EXPECT_FALSE(std::abs(point.x - text.Number("x")) < half && point.y < text.Number("y") &&
                             point.y > text.Number("y") - 150.0)
                    << text.text.toStdString();
    }
}

TEST(SkyPicture, LeavesTheProjectOutBefore) {
    AnalysisRequest request = Winter();
    request.proposedLayers = {L"NEW"};
    const Asked asked(kOwnHouse + House(20, -3000, -30000, 4000, -25000, 40000, "NEW") + Pane(), request);
    ASSERT_TRUE(asked.Window().before.has_value());
    EXPECT_EQ(LinesIn(asked.Draw(), "culprits").size(), 1U);
    const std::vector<SvgElement> before = ReadSvg(
        DrawSky({asked.faces, asked.request, asked.answer, asked.Window(), *asked.Window().before, "s", {}, false}));
    EXPECT_TRUE(LinesIn(before, "culprits").empty());
    EXPECT_TRUE(LinesIn(before, "others").empty());
}

TEST(SkyPicture, StandsOnItsOwnAndEscapesItsTitle) {
    const Asked asked(kOwnHouse + Pane(), Winter());
    const std::string svg =
        DrawSky({asked.faces, asked.request, asked.answer, asked.Window(), asked.Window(), "s", L"<script>&\""});
    EXPECT_EQ(svg.find("<script"), std::string::npos);
    const std::vector<SvgElement> sky = ReadSvg(svg);
    EXPECT_EQ(sky.at(1).text, "<script>&\"");
    EXPECT_EQ(svg.find("http"), svg.find("http://www.w3.org/2000/svg"));
}

TEST(SkyPicture, IsNoneWithoutASide) {
    const Asked asked(kOwnHouse + Pane(), Winter());
    WindowResult window = asked.Window();
    window.facing.reset();
    EXPECT_EQ(DrawSky({asked.faces, asked.request, asked.answer, window, window, "s"}), "");
}

TEST(SkyPicture, HoldsTheSunOfAnyLatitude) {
    for (const double latitude : {-80.0, -31.0, 0.0, 23.44, 60.0, 85.0, 90.0})
        for (const double declination : {-23.44, 0.0, 23.44}) {
            AnalysisRequest request = Winter();
            request.settings.place->latitude = latitude;
            request.settings.standard->start = 0.0;
            request.settings.standard->end = 24.0;
            request.terms.declination = declination;
            const Asked asked(kOwnHouse + House(20, -3000, -30000, 4000, -25000, 40000) + Pane(), request);
            const std::vector<SvgElement> sky = asked.Draw();
            const SvgElement frame = Pick(sky, "rect", "frame").at(0);
            for (const SvgElement& dot : Pick(sky, "circle", "dots")) {
                EXPECT_GE(dot.Number("cx"), frame.Number("x")) << latitude << ' ' << declination;
                EXPECT_LE(dot.Number("cx"), frame.Number("x") + frame.Number("width"));
                EXPECT_GE(dot.Number("cy"), frame.Number("y"));
                EXPECT_LE(dot.Number("cy"), frame.Number("y") + frame.Number("height"));
            }
        }
}
