// A scene that a test makes twice: as the text of a drawing, and as faces for the slow caster.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "SlowCaster.h"
#include "analysis/WindowAnalysis.h"

// How the text lies against the test's own millimetres, which have x to the east and y to the north: first mirrored,
// then turned, then moved.
struct Placement {
    bool isMirrored = false;  // east and west
    double turn = 0.0;        // degrees, counter-clockwise
    double moveX = 0.0;       // millimetres
    double moveY = 0.0;
    int unit = 4;  // $INSUNITS
    double millimetres = 1.0;
    bool isBackwards = false;   // the last entity first
    int windowsAsOutlines = 0;  // 1 or -1: closed polylines whose normal points outside or inside, else 3DFACEs
};

// What is analysed of a window that is drawn so: a part of it from so far right of its left end on, or the point of its
// sill.
SlowTarget PartOfWindow(const SlowTarget& drawn, double from, double width);
SlowTarget SillOfWindow(const SlowTarget& drawn);

class JudgedScene {
public:
    // What stands on it: a point in plan and how far it is turned, counter-clockwise. All below is relative to it.
    void StandOn(double x, double y, double degrees);

    // Each gives the entity's handle. A closed outline with a thickness, whose first corner sees all others:
    std::uint64_t Prism(const std::vector<SlowPoint>& outline, double z0, double z1);
    std::uint64_t Box(double x0, double y0, double z0, double x1, double y1, double z1);
    // A flat 3DFACE; three corners repeat the last.
    std::uint64_t Face(const std::vector<SlowPoint>& corners);
    // A window that faces -y (south where nothing is turned): its lower left corner seen from there.
    std::uint64_t Window(double x, double y, double sill, double width, double height);
    // A TEXT on the windows' layer.
    void Name(std::string_view name, double x, double y, double z);
    // More groups for whatever comes next, as in "60\n1\n"; once.
    void With(std::string_view groups) { m_extra = groups; }
    // The layer of what comes next but windows and names.
    void OnLayer(std::string_view layer) { m_layer = layer; }
    // Groups of a record in the table of layers, such as "2\nNAME\n70\n1\n62\n7\n".
    void AddLayer(std::string_view groups) { m_layers += "0\nLAYER\n" + std::string(groups); }

    // Puts an entity on another layer; gives the scene without some entities, the others with their handles.
    void MoveToLayer(std::uint64_t handle, std::string_view layer);
    JudgedScene Without(const std::set<std::uint64_t>& handles) const;

    const std::vector<SlowFace>& Faces() const { return m_faces; }
    // What is analysed of the window of this handle: of all of it, of a part, or the point of its sill.
    SlowTarget TargetOf(std::uint64_t window) const;
    SlowTarget PartOf(std::uint64_t window, double from, double width) const;
    SlowTarget SillOf(std::uint64_t window) const;

    std::string Text(const Placement& placement = {}) const;

private:
    struct Entity {
        std::uint64_t handle = 0;
        std::string layer;
        bool isWindow = false;
        std::string kind;
        std::string groups;
        std::vector<SlowPoint> points;
        double thickness = 0.0;
    };

    SlowPoint Stand(double x, double y, double z) const;
    std::uint64_t Add(Entity entity, std::string_view layer);
    void Cast(std::uint64_t handle, std::vector<SlowPoint> corners) { m_faces.push_back({std::move(corners), handle}); }

    void Write(std::ostream& out, const Entity& entity, const Placement& placement) const;

    struct Drawn {
        std::uint64_t handle = 0;
        SlowTarget rectangle;
    };
    const SlowTarget& DrawnOf(std::uint64_t window) const;

    SlowPoint m_origin;
    double m_degrees = 0.0;
    std::string m_extra;
    std::string m_layer = "0";
    std::string m_layers;
    std::uint64_t m_next = 0x100;
    std::vector<Entity> m_entities;
    std::vector<SlowFace> m_faces;
    std::vector<Drawn> m_windows;
};

// A day at 120 degrees east without equation of time, all its hours in true solar time, every sun above the wall, whole
// windows of any width, a step of a minute, the total.
AnalysisRequest RequestFor(double latitude, double declination);

// The answer about the scene's drawing.
AnalysisAnswer Answer(const JudgedScene& scene, const AnalysisRequest& request, const Placement& placement = {});
// The only window of the answer, or the one with the handle; a failure and an empty window where there is none.
WindowResult Only(const AnalysisAnswer& answer);
WindowResult WindowOf(const AnalysisAnswer& answer, std::uint64_t handle);
bool HasNote(const WindowResult& window, WindowNote note);
bool HasRemark(const AnalysisAnswer& answer, AnalysisRemark::Kind kind);

// True solar times of the periods, within a second.
void ExpectPeriods(const std::vector<SunPeriod>& actual, const std::vector<SunPeriod>& expected);
std::string TextOf(const std::vector<SunPeriod>& periods);
