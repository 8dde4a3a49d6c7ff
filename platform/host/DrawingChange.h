// What can be changed of a drawing in one step: entities on layers of one's own, removed and made anew.
// Why: docs/decisions/host.md
#pragma once

#include <array>
#include <vector>

#include "platform/base/CString.h"

// What an entity has that takes its layer's colour.
inline constexpr int kColorByLayer = 256;

// A layer that is wanted. One that the drawing has already, whatever the case of its letters, is taken as it is.
struct NewLayer {
    CString name;        // 1 to 255 characters (31 in drawings before R2000), none of <>/\":;?*|,=` nor a control one
    int colorIndex = 7;  // 1 to 255
};

// An entity at the end of model space.
struct NewEntity {
    // What it is.
    enum class Kind {
        Line,      // two points
        Face,      // a 3DFACE of three or four points
        Polyline,  // a flat one, of two points at least that have the same z
        Text,      // one point
    };
    // x, y, z.
    using Point = std::array<double, 3>;

    Kind kind = Kind::Line;          // which of the others count
    CString layer;                   // layer 0, one of the drawing's, or one that comes with the same change
    int colorIndex = kColorByLayer;  // 0 to 256
    // 0xRRGGBB, or negative for none; left out in drawings before R2004, which know only the index.
    int trueColor = -1;
    // Finite numbers in the drawing's unit. Of Line and Face points in the world, of Polyline and Text in the plane
    // that the extrusion turns in space, as drawing files have it: what lies flat has the world's x and y.
    std::vector<Point> points;
    Point extrusion = {0.0, 0.0, 1.0};  // of Polyline and Text; any length but 0
    bool isClosed = false;              // of Polyline
    CString text;                       // of Text: one line, not empty
    double height = 0.0;                // of Text: above 0
    double rotation = 0.0;              // of Text: degrees, counter-clockwise
    bool isCentred = false;             // of Text: whether the point is the text's middle; else its lower left end
};

// Done in this order.
struct DrawingChange {
    // The entities of model space on these layers go, whatever the case of the names' letters; those that belong to
    // them (VERTEX, ATTRIB, SEQEND) with them. What lies in blocks or in paper space stays, and the layers do.
    std::vector<CString> emptiedLayers;
    // Then these layers come, and then these entities.
    std::vector<NewLayer> layers;
    std::vector<NewEntity> entities;
};
