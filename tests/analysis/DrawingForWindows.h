// Small drawings of walls and windows, made by hand, for the tests of the analysis.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include "analysis/DrawnWindows.h"
#include "analysis/OccluderSet.h"
#include "analysis/WindowFloors.h"
#include "analysis/WindowSides.h"
#include "scene/Scene.h"
#include "scene/SceneForTests.h"

// Where a part of a drawing lies: turned around the z axis, then moved.
struct Site {
    double degrees = 0.0;
    Vector3 origin;

    Vector3 operator()(double x, double y, double z) const {
        const double angle = degrees * std::numbers::pi / 180.0;
        const double c = std::cos(angle), s = std::sin(angle);
        return origin + Vector3{c * x - s * y, s * x + c * y, z};
    }
};

inline std::string At(const Vector3& point, int code = 10) {
    return At(point.x, point.y, point.z, code);
}

inline std::string Face(const std::string& groups, const Vector3& a, const Vector3& b, const Vector3& c,
                        const Vector3& d) {
    return Entity("3DFACE", groups + " " + At(a) + At(b, 11) + At(c, 12) + At(d, 13));
}

// A wall or a window over a line in plan, from one height to another.
inline std::string Upright(const std::string& groups, const Site& site, double x1, double y1, double x2, double y2,
                           double low, double high) {
    return Face(groups, site(x1, y1, low), site(x2, y2, low), site(x2, y2, high), site(x1, y1, high));
}
inline std::string Level(const std::string& groups, const Site& site, double x1, double y1, double x2, double y2,
                         double z) {
    return Face(groups, site(x1, y1, z), site(x2, y1, z), site(x2, y2, z), site(x1, y2, z));
}

// A box of six 3DFACEs, half of them looking inwards.
inline std::string LooseBox(const Site& site, double x1, double y1, double x2, double y2, double low, double high) {
    const std::string groups = "8=WALL";
    return Upright(groups, site, x1, y1, x2, y1, low, high) + Upright(groups, site, x2, y2, x2, y1, low, high) +
           Upright(groups, site, x1, y2, x2, y2, low, high) + Upright(groups, site, x1, y1, x1, y2, low, high) +
           Level(groups, site, x1, y1, x2, y2, low) + Level(groups, site, x1, y1, x2, y2, high);
}

// A body of one entity over an outline in plan.
inline std::string Extruded(const Site& site, const std::vector<std::pair<double, double>>& outline, double low,
                            double high, const std::string& groups = "8=WALL") {
    std::string all = groups + " 70=1 ";
    std::ostringstream text;
    text.precision(17);
    text << "38=" << site.origin.z + low << " 39=" << high - low << ' ';
    for (const auto& [x, y] : outline) {
        const Vector3 point = site(x, y, 0);
        text << "10=" << point.x << " 20=" << point.y << ' ';
    }
    return Entity("LWPOLYLINE", all + text.str());
}

// A ring around a courtyard, its outline joined to the inner one by a slit.
inline std::string Courtyard(const Site& site) {
    return Extruded(site,
                    {{0, 0},
                     {20000, 0},
                     {20000, 20000},
                     {0, 20000},
                     {0, 0},
                     {5000, 5000},
                     {5000, 15000},
                     {15000, 15000},
                     {15000, 5000},
                     {5000, 5000}},
                    0, 9000);
}
inline std::string Block(const Site& site, double x1, double y1, double x2, double y2, double low, double high) {
    return Extruded(site, {{x1, y1}, {x2, y1}, {x2, y2}, {x1, y2}}, low, high);
}

inline OccluderSet OccludersIn(const std::string& entities) {
    const OpenDrawing drawing(DrawingWith(entities));
    return MakeOccluders(BuildScene(drawing.database), drawing.database, {}, 1.0);
}

inline WindowsOfDrawing WindowsIn(const std::string& entities, const std::string& layers = {},
                                  const std::vector<CString>& names = {}, double millimetres = 1.0) {
    const OpenDrawing drawing(DrawingWith(entities, layers));
    return FindWindows(drawing.database, names, millimetres, 200.0);
}

inline std::size_t CountOf(const WindowsOfDrawing& found, AnalysisRemark::Kind kind) {
    std::size_t count = 0;
    for (const AnalysisRemark& remark : found.remarks)
        count += remark.kind == kind ? 1 : 0;
    return count;
}
