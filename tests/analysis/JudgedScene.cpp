// Writing the drawing's text, and remembering the faces.
#include "JudgedScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <utility>

#include "host/DrawingText.h"
#include "settings/OrvoStdSet.h"

namespace {

constexpr double kRadians = 3.14159265358979323846 / 180.0;
constexpr double kWindowOffset = 5.0;  // what the module's parameters say: g_nSunWinOffset, g_nSunDistPrec
constexpr double kPrecision = 0.05;
constexpr double kSecond = 1.0 / 3600.0;

SlowPoint Turned(const SlowPoint& point, double degrees) {
    const double s = std::sin(degrees * kRadians), c = std::cos(degrees * kRadians);
    return {point.x * c - point.y * s, point.x * s + point.y * c, point.z};
}

SlowPoint Placed(SlowPoint point, const Placement& placement) {
    if (placement.isMirrored)
        point.x = -point.x;
    point = Turned(point, placement.turn);
    return {(point.x + placement.moveX) / placement.millimetres, (point.y + placement.moveY) / placement.millimetres,
            point.z / placement.millimetres};
}

void WriteGroup(std::ostream& out, int code, double value) {
    out << code << '\n' << value << '\n';
}

// A closed polyline in a vertical plane: its own x axis is level, at right angles to the normal, and its y axis
// upright.
void WriteOutline(std::ostream& out, const std::string& groups, const std::vector<SlowPoint>& corners,
                  const Placement& placement) {
    const SlowPoint first = Placed(corners[0], placement), second = Placed(corners[1], placement);
    const double length = std::hypot(second.x - first.x, second.y - first.y);
    const double side = placement.windowsAsOutlines;
    const SlowPoint normal = {side * (second.y - first.y) / length, side * (first.x - second.x) / length, 0.0};
    out << "0\nLWPOLYLINE\n" << groups << "70\n1\n90\n4\n";
    WriteGroup(out, 38, normal.x * first.x + normal.y * first.y);
    for (const SlowPoint& corner : corners) {
        const SlowPoint at = Placed(corner, placement);
        WriteGroup(out, 10, normal.x * at.y - normal.y * at.x);
        WriteGroup(out, 20, at.z);
    }
    WriteGroup(out, 210, normal.x);
    WriteGroup(out, 220, normal.y);
    WriteGroup(out, 230, 0.0);
}

SlowTarget MovedOut(SlowTarget target, double from, double up) {
    const SlowPoint outward = {std::cos(target.facing * kRadians), std::sin(target.facing * kRadians), 0.0};
    target.lowerLeft.x += outward.x * kWindowOffset - outward.y * from;
    target.lowerLeft.y += outward.y * kWindowOffset + outward.x * from;
    target.lowerLeft.z += up;
    return target;
}

}  // namespace

SlowTarget PartOfWindow(const SlowTarget& drawn, double from, double width) {
    SlowTarget target = MovedOut(drawn, from + kPrecision, kPrecision);
    target.width = width - 2.0 * kPrecision;
    target.height -= 2.0 * kPrecision;
    return target;
}

SlowTarget SillOfWindow(const SlowTarget& drawn) {
    SlowTarget target = MovedOut(drawn, drawn.width / 2.0, kPrecision);
    target.width = 0.0;
    target.height = 0.0;
    return target;
}

void JudgedScene::StandOn(double x, double y, double degrees) {
    m_origin = {x, y, 0.0};
    m_degrees = degrees;
}

SlowPoint JudgedScene::Stand(double x, double y, double z) const {
    const SlowPoint turned = Turned({x, y, z}, m_degrees);
    return {turned.x + m_origin.x, turned.y + m_origin.y, z};
}

std::uint64_t JudgedScene::Add(Entity entity, std::string_view layer) {
    entity.handle = m_next;
    entity.layer = layer;
    entity.groups = m_extra + entity.groups;
    m_extra.clear();
    m_entities.push_back(std::move(entity));
    return m_next++;
}

void JudgedScene::MoveToLayer(std::uint64_t handle, std::string_view layer) {
    for (Entity& entity : m_entities)
        if (entity.handle == handle)
            entity.layer = layer;
}

JudgedScene JudgedScene::Without(const std::set<std::uint64_t>& handles) const {
    JudgedScene rest = *this;
    std::erase_if(rest.m_entities, [&](const Entity& entity) { return handles.contains(entity.handle); });
    std::erase_if(rest.m_faces, [&](const SlowFace& face) { return handles.contains(face.handle); });
    return rest;
}

std::uint64_t JudgedScene::Prism(const std::vector<SlowPoint>& outline, double z0, double z1) {
    Entity entity;
    entity.kind = "LWPOLYLINE";
    entity.groups = "70\n1\n";
    entity.thickness = z1 - z0;
    for (const SlowPoint& point : outline)
        entity.points.push_back(Stand(point.x, point.y, z0));
    const std::vector<SlowPoint> low = entity.points;
    std::vector<SlowPoint> high = low;
    for (SlowPoint& point : high)
        point.z = z1;
    const std::uint64_t handle = Add(std::move(entity), m_layer);
    for (std::size_t i = 0; i < low.size(); ++i) {
        const std::size_t next = (i + 1) % low.size();
        Cast(handle, {low[i], low[next], high[next], high[i]});
    }
    for (std::size_t i = 1; i + 1 < low.size(); ++i) {
        Cast(handle, {low[0], low[i], low[i + 1]});
        Cast(handle, {high[0], high[i], high[i + 1]});
    }
    return handle;
}

std::uint64_t JudgedScene::Box(double x0, double y0, double z0, double x1, double y1, double z1) {
    return Prism({{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}}, z0, z1);
}

std::uint64_t JudgedScene::Face(const std::vector<SlowPoint>& corners) {
    Entity entity;
    entity.kind = "3DFACE";
    for (const SlowPoint& corner : corners)
        entity.points.push_back(Stand(corner.x, corner.y, corner.z));
    const std::vector<SlowPoint> cast = entity.points;
    while (entity.points.size() < 4)
        entity.points.push_back(entity.points.back());
    const std::uint64_t handle = Add(std::move(entity), m_layer);
    Cast(handle, cast);
    return handle;
}

std::uint64_t JudgedScene::Window(double x, double y, double sill, double width, double height) {
    Entity entity;
    entity.isWindow = true;
    entity.kind = "3DFACE";
    entity.points = {Stand(x, y, sill), Stand(x + width, y, sill), Stand(x + width, y, sill + height),
                     Stand(x, y, sill + height)};
    SlowTarget target = {entity.points[0], m_degrees - 90.0, width, height};
    const std::uint64_t handle = Add(std::move(entity), "WINDOW");
    m_windows.push_back({handle, target});
    return handle;
}

void JudgedScene::Name(std::string_view name, double x, double y, double z) {
    Entity entity;
    entity.kind = "TEXT";
    entity.groups = "40\n250\n1\n" + std::string(name) + "\n";
    entity.points = {Stand(x, y, z)};
    Add(std::move(entity), "WINDOW");
}

const SlowTarget& JudgedScene::DrawnOf(std::uint64_t window) const {
    return std::find_if(m_windows.begin(), m_windows.end(), [&](const Drawn& drawn) { return drawn.handle == window; })
        ->rectangle;
}

SlowTarget JudgedScene::TargetOf(std::uint64_t window) const {
    return PartOf(window, 0.0, DrawnOf(window).width);
}

SlowTarget JudgedScene::PartOf(std::uint64_t window, double from, double width) const {
    return PartOfWindow(DrawnOf(window), from, width);
}

SlowTarget JudgedScene::SillOf(std::uint64_t window) const {
    return SillOfWindow(DrawnOf(window));
}

void JudgedScene::Write(std::ostream& out, const Entity& entity, const Placement& placement) const {
    std::ostringstream head;
    head << "5\n" << std::hex << std::uppercase << entity.handle << "\n8\n" << entity.layer << '\n' << entity.groups;
    if (entity.isWindow && placement.windowsAsOutlines != 0) {
        WriteOutline(out, head.str(), entity.points, placement);
        return;
    }
    out << "0\n" << entity.kind << '\n' << head.str();
    if (entity.kind == "LWPOLYLINE") {
        WriteGroup(out, 90, static_cast<double>(entity.points.size()));
        WriteGroup(out, 38, entity.points[0].z / placement.millimetres);
        WriteGroup(out, 39, entity.thickness / placement.millimetres);
    }
    for (std::size_t i = 0; i < entity.points.size(); ++i) {
        const SlowPoint at = Placed(entity.points[i], placement);
        const int code = entity.kind == "3DFACE" ? 10 + static_cast<int>(i) : 10;
        WriteGroup(out, code, at.x);
        WriteGroup(out, code + 10, at.y);
        if (entity.kind != "LWPOLYLINE")
            WriteGroup(out, code + 20, at.z);
    }
}

std::string JudgedScene::Text(const Placement& placement) const {
    std::ostringstream out;
    out.precision(17);
    if (placement.isBackwards)
        for (auto entity = m_entities.rbegin(); entity != m_entities.rend(); ++entity)
            Write(out, *entity, placement);
    else
        for (const Entity& entity : m_entities)
            Write(out, entity, placement);
    const std::string header = "9\n$ACADVER\n1\nAC1027\n9\n$INSUNITS\n70\n" + std::to_string(placement.unit) + "\n";
    return DrawingOf(Section("HEADER", header) +
                     Section("TABLES", "0\nTABLE\n2\nLAYER\n70\n1\n" + m_layers + "0\nENDTAB\n") +
                     Section("ENTITIES", out.str()));
}

AnalysisRequest RequestFor(double latitude, double declination) {
    AnalysisRequest request;
    Place place;
    place.longitude = 120.0;
    place.latitude = latitude;
    request.settings.UsePlace(place);
    Standard standard;
    standard.start = 0.0;
    standard.end = 24.0;
    standard.step = 1.0;
    standard.fullWindow = 1;
    standard.maxContinue = ORVO_COUNT_TOTAL;
    standard.beijingTime = ORVO_TRUE_SOLAR_TIME;
    standard.validSunType = ORVO_SUN_CUSTOM;
    standard.totalTimeType = ORVO_TOTAL_ALL;
    request.settings.standard = standard;
    request.terms.declination = declination;
    request.terms.equationOfTime = 0.0;
    return request;
}

AnalysisAnswer Answer(const JudgedScene& scene, const AnalysisRequest& request, const Placement& placement) {
    const OpenDrawing drawing(scene.Text(placement));
    return AnalyseWindows(drawing.database, request);
}

WindowResult Only(const AnalysisAnswer& answer) {
    EXPECT_EQ(answer.windows.size(), 1U);
    return answer.windows.size() == 1 ? answer.windows[0] : WindowResult();
}

WindowResult WindowOf(const AnalysisAnswer& answer, std::uint64_t handle) {
    for (const WindowResult& window : answer.windows)
        if (window.handle == handle)
            return window;
    ADD_FAILURE() << "no window " << std::hex << handle << " among " << answer.windows.size();
    return {};
}

bool HasNote(const WindowResult& window, WindowNote note) {
    return std::find(window.notes.begin(), window.notes.end(), note) != window.notes.end();
}

bool HasRemark(const AnalysisAnswer& answer, AnalysisRemark::Kind kind) {
    return std::any_of(answer.remarks.begin(), answer.remarks.end(),
                       [&](const AnalysisRemark& remark) { return remark.kind == kind; });
}

void ExpectPeriods(const std::vector<SunPeriod>& actual, const std::vector<SunPeriod>& expected) {
    ASSERT_EQ(actual.size(), expected.size()) << TextOf(actual) << "instead of " << TextOf(expected);
    for (std::size_t i = 0; i < actual.size(); ++i) {
        EXPECT_NEAR(actual[i].start, expected[i].start, kSecond) << "start of period " << i;
        EXPECT_NEAR(actual[i].end, expected[i].end, kSecond) << "end of period " << i;
    }
}

std::string TextOf(const std::vector<SunPeriod>& periods) {
    std::ostringstream out;
    out.precision(10);
    for (const SunPeriod& period : periods)
        out << period.start << " to " << period.end << "; ";
    return out.str();
}
