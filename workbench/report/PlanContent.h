// What a plan is drawn of.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "facts/Standard.h"
#include "platform/base/CString.h"
#include "platform/geometry/QcGePoint.h"

struct OccluderSet;
struct PointAnswer;

struct PlanWindow {
    std::array<QcGePoint, 4> corners;  // as WindowResult has them: metres, the drawing's axes
    CString name;
    std::string link;            // where a click leads, such as "#w12"; empty for nowhere
    double minutes = 0.0;        // that are judged
    bool isTold = true;          // whether its sun could be told at all
    std::optional<bool> passes;  // none without a need
};

struct PlanPicture {
    const OccluderSet& faces;            // what stands: StandingFaces.h
    double north = 0.0;                  // degrees: true north lies that far counter-clockwise of the drawing's y axis
    std::vector<TimeColor> colors = {};  // the standard's
    std::string id = {};                 // begins the names of the picture's own elements: unique in its page
    CString title = {};                  // for who cannot see it; empty for the usual one
    double width = 180.0;                // on paper, millimetres
    double height = 230.0;               // at most, with scale and legend
    bool withProject = true;             // else what is of a project is not there

    std::vector<PlanWindow> windows = {};
    const PointAnswer* points = nullptr;  // with outlines, shares and isolines
    double spacing = 1.0;                 // of the points, metres
    bool isElevation = false;             // of something upright: without north and roofs
};
