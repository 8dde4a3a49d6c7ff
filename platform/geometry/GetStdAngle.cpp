// Brings an angle into one turn by one remainder instead of turns added one by one, so that huge angles end too.
#include "platform/geometry/GetStdAngle.h"

#include <cmath>
#include <numbers>

double GetStdAngle(double angle) {
    constexpr double kTurn = 2.0 * std::numbers::pi;
    if (!std::isfinite(angle))
        return 0.0;
    double rest = std::fmod(angle, kTurn);
    if (rest < 0.0)
        rest += kTurn;
    // The sum rounds to a whole turn when the rest is tiny; and a negative zero is a zero.
    return rest >= kTurn || rest == 0.0 ? 0.0 : rest;
}
