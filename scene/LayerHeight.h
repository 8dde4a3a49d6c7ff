// A height for the flat outlines of a layer: what is asked for, and what became of it.
#pragma once

#include <cstddef>

#include "platform/base/CString.h"

// The closed outlines without a thickness on a layer are to be bodies of this height. The layer's name is compared as a
// text, blanks at both ends aside, and without case (of ASCII letters). The number is the caller's to check: finite,
// and above 0.
struct LayerHeight {
    CString layer;        // its name
    double metres = 0.0;  // from the outline upwards
};

// What became of one such height.
struct LayerHeightUse {
    bool isLayerThere = false;  // the table of layers has it, or a visible entity lies on it
    std::size_t bodyCount = 0;  // visible outlines that got the height; in a block once for all of its INSERTs
    std::size_t openCount = 0;  // visible polylines that are not closed, lines and arcs there, all without a thickness
};
