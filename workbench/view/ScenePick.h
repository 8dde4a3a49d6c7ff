// Finds what of a scene is under a pixel.
#pragma once

#include <array>
#include <cmath>
#include <optional>
#include <vector>

#include "scene/Scene.h"
#include "workbench/view/ViewCamera.h"

// The nearest point where the ray meets a face, from either side; none when it meets nothing.
std::optional<QcGePoint> PickScene(const Scene& scene, const ViewRay& ray);

// Which of Scene::layers are not shown; those beyond the end are.
using HiddenLayers = std::vector<bool>;

inline bool IsHidden(const HiddenLayers& hidden, std::size_t layer) {
    return layer < hidden.size() && hidden[layer];
}

// The nearest face of what is shown that a ray meets, from either side.
struct MetFace {
    double distance = INFINITY;  // along the ray
    AcDbObjectId entity;         // null for none
    std::size_t face = 0;        // of Scene::faces
};
MetFace MeetScene(const Scene& scene, const HiddenLayers& hidden, const ViewRay& ray);
// How far along the ray it meets a flat quadrilateral; infinite when it does not.
double MeetQuad(const ViewRay& ray, const std::array<QcGePoint, 4>& corners);

// The entity whose face is seen at a pixel, or whose line passes it within a few pixels and not behind that face: a
// thin line is hit by nobody's hand. Null for none.
AcDbObjectId PickEntity(const Scene& scene, const HiddenLayers& hidden, const ViewCamera& camera, double x, double y);
