// Where a point or a face lies, seen from a plane or a face.
#pragma once

// The values are part of the interface; the gaps between them belong to relations that this module never gives.
enum RELATION3D {
    RELATION3D_UPPLANE = 2,     // a point on the positive side of a plane
    RELATION3D_DOWNPLANE = 3,   // a point on its negative side
    RELATION3D_ONPLANE = 4,     // a point in the plane
    RELATION3D_UPFACE = 5,      // a point, or every point of a face, on the side that the face's normal points to
    RELATION3D_DOWNFACE = 6,    // a point, or every point of a face, behind the face
    RELATION3D_ONFACE = 7,      // a point in the face's plane, or at its corner 0
    RELATION3D_CROSSFACE = 11,  // a face with points on both sides
};
