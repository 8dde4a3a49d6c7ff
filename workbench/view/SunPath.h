// The sun's way over the scene: the day's arc, its hours, and the sun where it stands.
// Why: docs/decisions/workbench.md
#pragma once

#include <QRectF>
#include <optional>
#include <vector>

#include "workbench/view/ViewCamera.h"

class QFont;
class QPainter;
struct ViewSun;

// An hour's number beside the arc, in the painter's units.
struct PathLabel {
    int hour = 0;
    QRectF room;
};

// The arc stands around the middle of a box, on its ground, and is as wide as the box. Nothing hides it.
class SunPath {
public:
    SunPath(const ViewCamera& camera, const ViewBox& box) : m_camera(camera), m_box(box) {}

    // The day's arc above the horizon, in the drawing's units: what a camera has to show besides the box.
    static std::vector<QcGePoint> ArcAround(const ViewBox& box, const ViewSun& sun);
    // Where the sun of a moment is seen, in the camera's pixels; none when it is not before the eye.
    std::optional<ViewPixel> PlaceOf(const ViewSun& sun, double trueSolarTime) const;
    // The numbers that have room: beside their points, in the picture, over no other one, not over the sun and nothing
    // of what is `taken`. That of the hour nearest to the moment has the first choice, and stays wherever it is.
    std::vector<PathLabel> LabelsOf(const ViewSun& sun, double scale, const QFont& font,
                                    const std::vector<QRectF>& taken) const;
    // Into a picture with the camera's pixels, `scale` of which are one of the painter's. Nothing while the sun does
    // not rise at all.
    void Draw(QPainter& painter, const ViewSun& sun, double scale, const std::vector<QRectF>& taken) const;

private:
    void DrawArc(QPainter& painter, const ViewSun& sun, double scale) const;
    void DrawDisc(QPainter& painter, const ViewSun& sun, double scale) const;
    void DrawHours(QPainter& painter, const ViewSun& sun, double scale, const std::vector<QRectF>& taken) const;

    const ViewCamera& m_camera;
    ViewBox m_box;
};
