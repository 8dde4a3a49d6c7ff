// Positions on the globe as a user types them, and as names of places that no list has.
#pragma once

#include <optional>

#include "facts/Place.h"
#include "platform/base/Api.h"
#include "platform/base/CString.h"

// What was typed for a position.
struct TypedPosition {
    std::optional<Place> place;  // its name is the position as PositionName gives it; without a province
    CString trouble;             // why it is no position on the globe, for people; empty when it is one
};

// Two decimal numbers with a comma between them, in degrees: longitude and latitude in this order, east and north
// positive; or in any order with E, W, N, S or 东经, 西经, 北纬, 南纬 before or behind them:
// 121.47,31.23, 31.23N,121.47E, 北纬31.23，东经121.47. None for a text that cannot have been meant as one, such as a
// name.
ORVO_API std::optional<TypedPosition> ParsePosition(const CString& text);

// "121.47E,31.23N": which ParsePosition reads, too.
ORVO_API CString PositionName(double longitude, double latitude);
