// When a window is in the shade, found the slow way: rays from a dense grid of its points to the sun, and the outline
// of each face's shadow on the window's plane. It shares no code and no vector with what it judges.
#pragma once

#include <cstdint>
#include <set>
#include <vector>

struct SlowPoint {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

// Three or four corners of a flat convex face, millimetres.
struct SlowFace {
    std::vector<SlowPoint> corners;
    std::uint64_t handle = 0;
};

// What is lit or not: a vertical rectangle as it is analysed, that is moved out and made smaller already. The point of
// a sill is one without a size.
struct SlowTarget {
    SlowPoint lowerLeft;  // seen from outside
    double facing = 0.0;  // degrees of the drawing, counter-clockwise from its x axis
    double width = 0.0;
    double height = 0.0;
};

// Degrees. True north lies `north` counter-clockwise of the drawing's y axis.
struct SlowSky {
    double latitude = 0.0;
    double declination = 0.0;
    double north = 0.0;
};

// Points of a target, its corners among them and no two neighbours farther from each other than `step` millimetres.
std::vector<SlowPoint> GridOn(const SlowTarget& target, double step);
// Whether a ray that begins at a point meets a triangle, from whichever side.
bool MeetsTriangle(const SlowPoint& from, const SlowPoint& way, const SlowPoint& a, const SlowPoint& b,
                   const SlowPoint& c);

// How much of a target is in a face's shadow: what touches it within a thousandth of a millimetre is unsure.
enum class Shade { None, Unsure, Some };

class SlowCaster {
public:
    // `step` is the grid's (GridOn), millimetres.
    SlowCaster(std::vector<SlowFace> faces, const SlowSky& sky, const SlowTarget& target, double step);

    // The direction to the sun at a true solar time, in the drawing's axes, of length 1.
    SlowPoint SunAt(double hours) const;
    double AltitudeAt(double hours) const;  // degrees
    bool IsUp(double hours) const { return AltitudeAt(hours) > 0.0; }
    bool IsBeforeWindow(double hours) const;
    // The sun is in the window's plane, all day at the equator on an equinox: rounding says on which side.
    bool IsInWindowsPlane(double hours) const;
    // Between the sun's direction in plan and the wall, degrees within [0, 90] where the sun is before the window.
    double AngleToWall(double hours) const;

    // Whether the ray of any of the grid's points meets a face.
    bool IsAnyRayStopped(double hours) const;
    // Whose faces stop any ray.
    std::set<std::uint64_t> StoppedBy(double hours) const;
    // By the outlines of the shadows: of all faces, and of one entity's.
    Shade ShadeAt(double hours) const;
    Shade ShadeOf(std::uint64_t handle, double hours) const;

private:
    bool IsStopped(const SlowPoint& from, const SlowPoint& sun, const SlowFace& face) const;
    Shade ShadeOf(const SlowFace& face, const SlowPoint& sun) const;

    std::vector<SlowFace> m_faces;
    SlowSky m_sky;
    SlowTarget m_target;
    SlowPoint m_right;
    SlowPoint m_outward;
    std::vector<SlowPoint> m_grid;
};
