// What drawing files of a version ask of the objects in them.
#pragma once

class DxfDrawing;

struct DxfTraits {
    bool hasHandles = false;        // from R13 on, before where $HANDLING is 1
    bool hasSubclasses = false;     // markers 100, from R13 on
    bool hasFlatPolylines = false;  // LWPOLYLINE, from R14 on; before, a POLYLINE with its VERTEX
    bool hasOwners = false;         // 330, from R2000 on, as are line weights
    bool hasTrueColors = false;     // 420, from R2004 on
    bool hasLongNames = false;      // more than 31 characters, from R2000 on
};

// A drawing that does not tell its version is one of R12.
DxfTraits TraitsOf(const DxfDrawing& drawing);
