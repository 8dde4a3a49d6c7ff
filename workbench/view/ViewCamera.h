// The camera of the 3-D view: an eye that circles a target, and what it sees where.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "platform/geometry/QcGePoint.h"
#include "platform/geometry/QcGeVector3d.h"

// What lies farther away than this, in the drawing's units, is not shown.
inline constexpr double kFarthestCoordinate = 1e15;

struct ViewBox {
    QcGePoint least, most;
};

// Pixels from the left and from the top edge of the picture; whole numbers lie on the edges of pixels. The depth is
// measured from the eye along the line of sight, in the drawing's units; in a parallel view it may be negative.
struct ViewPixel {
    double x = 0.0;
    double y = 0.0;
    double depth = 0.0;
};

struct ViewRay {
    QcGePoint start;
    QcGeVector3d direction;  // of length 1
};

enum class StandardView { Top, South, East, North, West, SouthEast, SouthWest };

// Pure computing, in doubles. The drawing's +X is east, +Y north, +Z up.
//
// The eye stands at a distance from the target, in the direction of an azimuth (degrees clockwise from north, as seen
// from the target) and an altitude (degrees above the horizon). A view from the south thus has the azimuth 180. All
// views are in perspective but the one from the top, which is a plan: parallel, north up, until it is turned. With
// SetParallel all are parallel.
//
// Everything it answers is a finite number whatever it is given: arguments that are not finite change nothing, boxes
// are cut to 1e15 units around the origin, a box turned inside out is turned back, and a picture has at least 1 pixel.
class ViewCamera {
public:
    // Looks from the south-east at a box of one unit around the origin, into a picture of 1 pixel.
    ViewCamera();

    // What there is to see: Fit shows it, and the nearest and the farthest depth come from it. Nothing moves.
    void SetBox(const ViewBox& box);
    // What else there is around it. The depths reach so far, but no farther than 100 times the box's radius from it,
    // so that one stray line far away does not take the depths from all the others. SetBox forgets it.
    void SetSurroundings(const ViewBox& box);
    void SetViewport(int width, int height);
    int GetWidth() const { return m_width; }
    int GetHeight() const { return m_height; }

    // Turns the eye around the target. Look cuts the altitude to -89..89 degrees.
    void Look(double azimuth, double altitude);
    void Look(StandardView view);
    // Whether lines that are parallel in the drawing stay so in every view. What is at the target's depth keeps its
    // size and place.
    void SetParallel(bool isParallel);
    // From where the eye stands, by so many degrees clockwise (seen from above) and upwards. A plan becomes a view in
    // perspective.
    void Orbit(double azimuth, double altitude);
    // Moves the picture by so many pixels to the right and down, exactly so at the target's depth.
    void Pan(double dx, double dy);
    // Makes everything `factor` times as large; what is at this pixel at the target's depth stays there. Stops at
    // distances that are absurd for the box. Factors that are not above 0 change nothing.
    void Zoom(double factor, double x, double y);
    // Makes everything `factor` times as large about the picture's middle, as a longer lens does: the eye stays where
    // it is, so that it never comes behind or below what is looked at. Factors that are not above 0 change nothing.
    void Magnify(double factor);
    // Moves target and distance so that the whole box is seen, and some points besides, as large as a margin of 2.5 %
    // on each side lets it.
    void Fit(const std::vector<QcGePoint>& besides = {});
    // Moves the target, and the eye with it. A point that is not finite changes nothing.
    void Aim(const QcGePoint& point);
    // Moves the target along the line of sight to this point's depth, which changes nothing in the picture, but pan and
    // zoom hold on to that depth from now on. A point that is not before the eye changes nothing.
    void TakeDepthOf(const QcGePoint& point);

    double GetAzimuth() const { return m_azimuth; }    // from 0 to less than 360
    double GetAltitude() const { return m_altitude; }  // 90 only in a plan
    double GetDistance() const { return m_distance; }
    bool IsParallel() const { return m_isParallel; }
    QcGePoint GetTarget() const { return m_target; }
    QcGePoint GetEye() const;
    // Of length 1, at right angles to each other: to the right and up in the picture, and away from the viewer.
    QcGeVector3d GetRight() const;
    QcGeVector3d GetUp() const;
    QcGeVector3d GetForward() const;
    // Between which depths the picture shows something; the nearest is above 0 in perspective.
    void GetDepths(double& nearest, double& farthest) const;

    // Column by column, as OpenGL takes them. The view matrix is for coordinates relative to `origin`: the large
    // differences are taken here, in doubles, so that small numbers reach the single precision of the graphics.
    std::array<double, 16> GetViewMatrix(const QcGePoint& origin) const;
    std::array<double, 16> GetProjectionMatrix() const;

    // Where a point is seen, be that in the picture or beside it. None for points that are not before the eye.
    std::optional<ViewPixel> Project(const QcGePoint& point) const;
    QcGePoint GetPointAt(const ViewPixel& pixel) const;
    ViewRay GetRayAt(double x, double y) const;

private:
    double GetUnitsPerPixel(double depth) const;
    double DepthOf(const QcGePoint& point) const;
    void MoveTarget(double right, double up, double forward);
    void SetDistance(double distance);

    QcGePoint m_least, m_most;
    ViewBox m_around;  // with that
    double m_radius = 1.0;
    QcGePoint m_target;
    double m_azimuth = 135.0;
    double m_altitude = 35.0;
    double m_distance = 3.0;
    double m_halfFieldTangent = 0.36397023426620234;  // 20 degrees to the upper edge of the picture
    bool m_isParallel = false;
    bool m_isAlwaysParallel = false;
    int m_width = 1;
    int m_height = 1;
};
