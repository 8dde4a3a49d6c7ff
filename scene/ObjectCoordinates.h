// The coordinates that flat entities are drawn in: a plane that an extrusion direction turns in space.
#pragma once

#include "platform/geometry/QcGePoint.h"
#include "platform/geometry/QcGeVector3d.h"

class EntityGroups;

// The axes follow from the extrusion alone: x lies at right angles to it and to the world's y axis where the extrusion
// is within 1/64 of the world's z axis in both other components, else to the world's z axis. The three axes are
// right-handed for every extrusion, so that what runs counter-clockwise seen from the extrusion's end stays so.
class ObjectCoordinates {
public:
    // The world's axes.
    ObjectCoordinates() = default;
    // False, and nothing changed, for an extrusion without a direction (shorter than 1e-12).
    bool SetExtrusion(const QcGeVector3d& extrusion);

    // A point in the world. With the world's own axes the numbers stay as they are.
    QcGePoint ToWorld(const QcGePoint& point) const;
    // The other way round.
    QcGePoint FromWorld(const QcGePoint& point) const;

private:
    QcGeVector3d m_xAxis{1.0, 0.0, 0.0};
    QcGeVector3d m_yAxis{0.0, 1.0, 0.0};
    QcGeVector3d m_zAxis{0.0, 0.0, 1.0};
};

// The axes of an entity (groups 210, 220 and 230; without them the world's). False when the direction cannot be read or
// is none.
bool ReadExtrusion(const EntityGroups& entity, ObjectCoordinates& axes);
