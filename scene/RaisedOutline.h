// A closed outline without a thickness, as a body of a height in the world wherever it is put.
// Why: docs/decisions/scene.md
#pragma once

#include <utility>

#include "scene/FlatPath.h"
#include "scene/OutlineBody.h"

class FaceList;
struct Placement;

class RaisedOutline {
public:
    explicit RaisedOutline(FlatPath path) : m_path(std::move(path)) {}

    // Adds the body where a placement puts the outline. It stands upwards along the outline's extrusion as that comes
    // to lie there, so many units high whatever the scale; where the extrusion is level, it goes along that. False, and
    // nothing added, when a corner lies beyond kFarthest, or so far away that the height is lost in the rounding, or
    // when no outline is left.
    bool AddBody(const Placement& placement, double height, ArcDivision& division, FaceList& faces);

private:
    bool Prepare(double stretch, ArcDivision& division);

    FlatPath m_path;
    OutlineBody m_body;
    double m_stretch = 0.0;  // for which the body has been prepared; 0 for none yet
    bool m_isSound = false;
    bool m_hasArcs = false;
};
