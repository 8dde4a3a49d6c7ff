// The sun's way over the scene: the day's arc, its hours, and the sun where it stands.
// Why: docs/decisions/workbench.md
#pragma once

#include <optional>

#include "workbench/view/ViewCamera.h"

class QPainter;
struct ViewSun;

// The arc stands around the middle of a box, on its ground, and is as wide as the box. Nothing hides it.
class SunPath {
public:
    SunPath(const ViewCamera& camera, const ViewBox& box) : m_camera(camera), m_box(box) {}

    // Where the sun of a moment is seen, in the camera's pixels; none when it is not before the eye.
    std::optional<ViewPixel> PlaceOf(const ViewSun& sun, double trueSolarTime) const;
    // Into a picture with the camera's pixels, `scale` of which are one of the painter's. Nothing while the sun does
    // not rise at all.
    void Draw(QPainter& painter, const ViewSun& sun, double scale) const;

private:
    QcGePoint GetMiddle() const;
    void DrawArc(QPainter& painter, const ViewSun& sun, double scale) const;
    void DrawDisc(QPainter& painter, const ViewSun& sun, double scale) const;
    void DrawHours(QPainter& painter, const ViewSun& sun, double scale) const;

    const ViewCamera& m_camera;
    ViewBox m_box;
};
