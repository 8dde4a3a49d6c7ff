// What an analysis of areas has to say of their outlines.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/base/CString.h"

// One thing to know: its kind, and of the others what that kind names.
struct AreaRemark {
    // What there is to know.
    enum class Kind {
        NoAreas,          // none on the layers that were asked for
        LayerMissing,     // `subject` is a layer that was asked for and that the drawing does not have
        LayerInvisible,   // `subject` is a layer of areas that is off or frozen: `count` entities were passed over
        NotAnOutline,     // the entity `handle` on a layer of areas is of a kind without an outline, or unsound
        Open,             // the entity `handle` does not come back to its start
        Empty,            // it encloses nothing, or nothing in plan where a level was asked for
        NotFlat,          // it lies in no plane
        Crossed,          // it crosses itself
        TooManyCorners,   // it has more than can be looked through
        TooManyInBlock,   // the INSERT `handle` would bring the areas beyond kMostAreas, and has none
        NoSide,           // which side of the upright outline `handle` is outside cannot be told: it has no points
        PointsInside,     // `count` points of the outline `handle` lie in a closed body, and have no sun
        TooManyIsolines,  // the lines of the outline `handle` would be too many to follow: it has none
    };
    Kind kind = Kind::NoAreas;  // which of the others hold something
    CString subject;            // a name as the drawing has it
    std::uint64_t handle = 0;   // of an entity; 0 for none
    std::size_t count = 0;      // of what the kind says
};
