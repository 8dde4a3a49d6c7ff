// Which boxes the sun can stand behind, seen from a target, in some hours.
#pragma once

#include "analysis/ShadowHull.h"
#include "analysis/TangentSpan.h"
#include "analysis/WideTree.h"

// The sun's path in the axes of a sector (DaySector.h).
struct SunCurve {
    double tangent = 0.0;  // of the declination
    Vector3 up;            // upright, of length 1
    double widest = 1.0;   // the greatest tangent, to either side
};

// Children of a node.
struct SeenBoxes {
    unsigned lanes = 0;  // a bit for each that is seen
    // Between which tangents each lies, of those that are asked about.
    float least[WideNode::kWidth];
    float most[WideNode::kWidth];
};

// The path is
//
//     z/x = tan d * sqrt(1 + (y/x)^2)
//
// which rises or falls with |y/x|, so that its least and greatest z/x over the y/x of a box are found at once. Besides,
// it climbs over what is low: on the way to the box's nearest x it rises at least so much. All in single precision,
// rounded so that more boxes are seen and never less.
class SkyWindow {
public:
    SkyWindow(const SunTarget& target, const SunCurve& curve);

    // The hours that are still asked about.
    void Want(TangentSpan wanted);
    // All children through which the sun may be seen in a wanted hour; eight at once where the processor can.
    SeenBoxes Look(const WideNode& node) const;
    // The same, to the bit, without what only some processors have.
    SeenBoxes LookPlainly(const WideNode& node) const;

    // What looking needs, as plain numbers.
    struct Numbers {
        float least[3];  // the target with all its points
        float most[3];
        float outward[3];
        float up[3];   // so that up . (1, u, w) is the rise for each unit of x
        float lowest;  // of the target, upright
        float chord;   // w <= 1 + chord |u|
        float square;  // of the tangent
        bool isBelow;  // the path lies on the side of -z, and is looked at turned over
        bool isFar;    // the target is too far away for single precision: everything is seen
        float from;
        float to;
    };

private:
    Numbers m_numbers;
};
