// The part of space that a list of planes bounds: for a face, the half-infinite prism from which light reaches it.
// Why: docs/decisions/geometry.md
#pragma once

#include "geometry/PlaneContainers.h"
#include "platform/base/Api.h"

class QcGeFace3dEX;

// A list of planes whose positive sides face inwards; with no planes it bounds nothing and everything is inside.
// QcGeFace3dEX::ContructLightHalfCylinder fills it.
class ORVO_API Cylinder : public QcList<Plane> {
public:
    // Without planes.
    Cylinder();
    Cylinder(const Cylinder&) = default;
    Cylinder& operator=(const Cylinder&) = default;
    ~Cylinder() override;

    // False when some plane has every corner of the face on its outer side or in it (a side of at most 1e-12): then no
    // part of the face lies inside. True otherwise, which is no proof of the contrary: near an edge of the prism no
    // single plane may separate a face that is outside all the same.
    //
    // The walk moves the list's cursor: afterwards it is out, or on the plane that separates.
    bool IsSomeFacePointIn(const QcGeFace3dEX& face);
};
