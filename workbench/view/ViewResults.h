// What an analysis found out, as the view shows it over the drawing: windows in colours, and lines.
// Why: docs/decisions/workbench.md
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

#include "scene/SceneLines.h"
#include "workbench/view/ScenePick.h"

// In the drawing's units; colours are 0xRRGGBB.
struct ResultQuad {
    std::array<QcGePoint, 4> corners;
    std::size_t window = 0;  // which one it is, to whoever made these
    int rgb = 0xFFFFFF;
    int edgeRgb = 0x303030;
};

struct ResultLine {
    SceneSegment segment;
    int rgb = 0;
};

struct ViewResults {
    std::vector<ResultQuad> quads;
    std::vector<ResultLine> lines;
};

// The window whose quadrilateral is seen along a ray, before every face that is shown; none for none.
std::optional<std::size_t> PickWindow(const ViewResults& results, const Scene& scene, const HiddenLayers& hidden,
                                      const ViewRay& ray);
// The quadrilateral of a window; null where it is not shown.
const ResultQuad* QuadOf(const ViewResults& results, std::size_t window);
QcGePoint MiddleOf(const ResultQuad& quad);
// Whether the middle of a quadrilateral is seen from before it, in the picture and with no face in between.
bool IsInSight(const ResultQuad& quad, const Scene& scene, const HiddenLayers& hidden, const ViewCamera& camera);

// Draws them over the picture, relative to an origin; the chosen window's edges broadly, and through what stands before
// it. Expects lighting to be off and the depths of the picture to be there.
void DrawResults(const ViewResults& results, std::optional<std::size_t> chosen, const QcGePoint& origin);
