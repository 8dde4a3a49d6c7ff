// Windows as quadrilaterals before their walls, isolines as segments.
#include "workbench/panel/ResultShapes.h"

#include "workbench/commands/AnalysisReport.h"
#include "workbench/commands/PointsReport.h"
#include "workbench/view/IndexColors.h"

namespace {

constexpr double kMillimetresPerMetre = 1000.0;
constexpr int kFails = 0xD01010;
constexpr int kPasses = 0x303030;
constexpr int kUntold = 0x808080;

QcGePoint Placed(const QcGePoint& metres, const QcGePoint& away, double unitsPerMetre) {
    return {(metres.x + away.x) * unitsPerMetre, (metres.y + away.y) * unitsPerMetre,
            (metres.z + away.z) * unitsPerMetre};
}

// A window may be drawn within its wall, as far behind the face as windows are thick: so far it is moved outwards, in
// metres. Where its outside is not known it stays.
QcGePoint Outwards(const WindowResult& window, double metres) {
    const QcGePoint& left = window.corners[0];
    const QcGePoint& right = window.corners[1];
    const double length = std::hypot(right.x - left.x, right.y - left.y);
    if (!window.facing || !(length > 0.0))
        return {};
    return {(right.y - left.y) / length * metres, (left.x - right.x) / length * metres, 0.0};
}

void AddWindow(const WindowResult& window, std::size_t index, const WindowHours& hours, double thickness,
               double unitsPerMetre, ViewResults& shapes) {
    ResultQuad quad;
    quad.window = index;
    const QcGePoint away = Outwards(window, thickness);
    for (std::size_t i = 0; i < quad.corners.size(); ++i)
        quad.corners[i] = Placed(window.corners[i], away, unitsPerMetre);
    quad.rgb = window.facing ? RgbOfColorIndex(hours.color) : kUntold;
    quad.edgeRgb = hours.passes == false ? kFails : kPasses;
    shapes.quads.push_back(quad);
}

void AddLine(const Isoline& line, int rgb, double unitsPerMetre, ViewResults& shapes) {
    const std::size_t count = line.points.size();
    for (std::size_t i = 0; i + (line.isClosed ? 0 : 1) < count; ++i)
        shapes.lines.push_back(
            {{Placed(line.points[i], {}, unitsPerMetre), Placed(line.points[(i + 1) % count], {}, unitsPerMetre)},
             rgb});
}

}  // namespace

std::shared_ptr<const ViewResults> ShapesOf(const AnalysisReport* windows, const PointsReport* points,
                                            bool isWithProject, double millimetres) {
    auto shapes = std::make_shared<ViewResults>();
    const double unitsPerMetre = kMillimetresPerMetre / millimetres;
    if (windows) {
        const double thickness = windows->request.tuning.windowThickness / kMillimetresPerMetre;
        const bool isBefore = IsCompared(*windows) && !isWithProject;
        for (std::size_t i = 0; i < windows->answer.windows.size(); ++i) {
            const WindowResult& window = windows->answer.windows[i];
            if (!isBefore)
                AddWindow(window, i, window, thickness, unitsPerMetre, *shapes);
            else if (window.before)
                AddWindow(window, i, *window.before, thickness, unitsPerMetre, *shapes);
        }
    }
    if (points)
        for (const Isoline& line : points->answer.isolines)
            AddLine(line, RgbOfLine(points->request.settings.standard->TimeColorOf(line.hours), -1), unitsPerMetre,
                    *shapes);
    return shapes;
}
