// The VERTEX entities that follow a POLYLINE, as numbers.
#pragma once

#include <vector>

#include "platform/geometry/QcGePoint.h"
#include "platform/host/AcDbObjectId.h"

class AcDbDatabase;
class EntityGroups;

// Bits of a vertex's flags (group 70).
inline constexpr int kVertexOfSpline = 8;
inline constexpr int kFramePoint = 16;
inline constexpr int kPolyfaceLocation = 64;
inline constexpr int kPolyfacePart = 128;

struct PolylineVertex {
    int flags = 0;
    bool hasPoint = false;  // whether there is a point; a face record needs none
    QcGePoint point;
    double bulge = 0.0;
    int corners[4] = {0, 0, 0, 0};  // of a face record: 1 and more, negative for an invisible edge, 0 for none
};

// False when a number cannot be read.
bool ReadPolylineVertex(const EntityGroups& entity, PolylineVertex& vertex);

// The vertices of a POLYLINE, which stand behind it: up to SEQEND, or up to whatever stands there instead. False when a
// number cannot be read.
bool ReadPolylineVertices(const AcDbDatabase& drawing, AcDbObjectId polyline, std::vector<PolylineVertex>& vertices);
