// A place as a user types it: its name, where it lies, or its name in Latin letters.
// Why: docs/decisions/facts.md
#pragma once

#include <optional>

#include "facts/Place.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"

struct TypedPlace {
    // How a place is typed.
    enum class Kind {
        Named,     // by its name, in whatever letters
        Position,  // by where it lies
    };

    std::optional<Place> place;  // none when nothing fits
    Kind kind = Kind::Named;     // what was typed, also where it gave no place
    CString trouble;             // why there is none, for people
};

// The first of these that fits:
// - a name or "PROVINCE/NAME", by FindPlace;
// - a position, by ParsePosition;
// - the same in Latin letters (platform/base/LatinNames.h), of the whole name or of the name without what kind of place
//   it is ("pudong" for 浦东新区, "enshi" for 恩施土家族苗族自治州), where this fits one place alone. Where it fits
//   several ones, none is taken, and they are named.
ORVO_API TypedPlace FindTypedPlace(const CString& text);
