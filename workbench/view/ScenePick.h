// Finds the point of a scene that is under a pixel.
#pragma once

#include <optional>

#include "scene/Scene.h"
#include "workbench/view/ViewCamera.h"

// The nearest point where the ray meets a face, from either side; none when it meets nothing.
std::optional<QcGePoint> PickScene(const Scene& scene, const ViewRay& ray);
