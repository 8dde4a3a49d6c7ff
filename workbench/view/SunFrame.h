// How the sun sees a scene: the axes of its depth map, and what of the scene the map has to show.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "workbench/view/ViewCamera.h"

// A map on which the sun looks down, in parallel: across and along it from 0 to 1, and in depth from 0 (close to the
// sun) to 1. A plain value.
struct SunFrame {
    QcGeVector3d toSun, right, up;  // of length 1, at right angles to each other
    double leastRight = 0.0, mostRight = 0.0;
    double leastUp = 0.0, mostUp = 0.0;
    double leastToSun = 0.0, mostToSun = 0.0;

    // From coordinates relative to `origin` into the map, column by column, as OpenGL takes it.
    std::array<double, 16> GetMatrix(const QcGePoint& origin) const;
};

// The frame that shows where both something that casts shadows (within `casters`) and something that is seen are; none
// where nothing that is seen can be shaded. `toSun` has the length 1 and goes upwards.
std::optional<SunFrame> FrameSun(const QcGeVector3d& toSun, const ViewBox& casters, const std::vector<QcGePoint>& seen);
