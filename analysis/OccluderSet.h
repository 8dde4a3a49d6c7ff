// What casts shadows: the faces of a drawing in millimetres, and the closed bodies among them.
// Why: docs/decisions/analysis.md
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/Vector3.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"

struct Scene;
class AcDbDatabase;

// A flat convex polygon of three or four corners.
struct Occluder {
    Vector3 corners[4];        // millimetres, the drawing's axes
    int count = 3;             // of corners: 3 or 4
    std::uint32_t entity = 0;  // which of OccluderSet::handles
    std::int32_t body = -1;    // the closed body that it bounds; -1 for a loose face
    // On which side of it, by its normal, the outside of its body is. Only of bodies that are one entity: whoever
    // asks for entities may pass over the others' faces as little as over loose ones.
    enum class Outside : std::int8_t {
        Unknown,  // of a loose face, or of a body that is several entities
        Before,   // where the normal points
        Behind,   // on the other side
    };
    Outside outside = Outside::Unknown;  // which it is
    std::int32_t joined = -1;  // of a loose face: which of the sets of loose faces that share corners; else -1

    // The mean of the corners.
    ORVO_API Vector3 Middle() const;
    // At right angles to it, of any length, to either side.
    ORVO_API Vector3 Normal() const;
};

// An entity is one of the drawing; where an INSERT shows something of a project and something else it is two, that of
// the project behind the other.
struct OccluderSet {
    std::vector<Occluder> faces;         // those of one entity together
    std::vector<std::uint64_t> handles;  // of the entities; 0 for one without
    // By entity; both are empty unless something is of a project.
    std::vector<bool> proposed;          // whether it is of the project
    std::vector<std::uint32_t> drawnAs;  // the first entity that is the same one of the drawing
    int bodyCount = 0;                   // how many closed bodies there are
    int joinedCount = 0;                 // how many sets of loose faces that share corners

    // Whether an entity is of the project.
    bool IsProposed(std::uint32_t entity) const { return !proposed.empty() && proposed[entity]; }
    // The first entity that is the same one of the drawing.
    std::uint32_t DrawnAs(std::uint32_t entity) const { return drawnAs.empty() ? entity : drawnAs[entity]; }
};

// The faces of a drawing's scene, save those of entities on the layers of windows (by these names, as WindowLayers
// takes them; what is in a block lies on a layer as in the scene). What lies on `proposedLayers` is the project.
// `millimetres` is one unit of the drawing.
OccluderSet MakeOccluders(const Scene& scene, const AcDbDatabase& drawing, const std::vector<CString>& windowLayers,
                          double millimetres, const std::vector<CString>& proposedLayers = {});

// Finds the closed bodies among faces whose `entity` is known, and the sets of loose ones that share corners.
//
// A closed body is a set of faces, joined by edges, of which an even number meets at every edge; how they are oriented
// does not matter. Corners closer than a tenth of a millimetre are one, and an edge may be divided by corners of
// others. It is looked for first among the faces of one entity of the drawing, then among all that are left, so that a
// building may be drawn as separate faces. A face with an edge of its own belongs to no body and does not open the one
// that it stands on. What lies in one plane, or is the same faces drawn twice, is no body. Of the faces of bodies that
// are one entity (of OccluderSet::handles) it tells where outside is.
void FindClosedBodies(OccluderSet& set);
