// Whether lines of equal hours are true: against the hours of a dense grid, asked of something else than what drew
// them.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

#include "analysis/Isolines.h"

using MinutesAt = std::function<double(const FlatPoint&)>;
using IsWithinArea = std::function<bool(const FlatPoint&)>;

inline double DistanceToLine(const FlatPoint& place, const FlatIsoline& line) {
    double least = INFINITY;
    const std::size_t count = line.points.size();
    for (std::size_t i = line.isClosed ? 0 : 1; i < count; ++i) {
        const FlatPoint& a = line.points[(i + count - 1) % count];
        const FlatPoint& b = line.points[i];
        const double x = b.x - a.x, y = b.y - a.y;
        const double part = std::clamp(((place.x - a.x) * x + (place.y - a.y) * y) / (x * x + y * y), 0.0, 1.0);
        least = std::min(least, std::hypot(place.x - a.x - part * x, place.y - a.y - part * y));
    }
    return least;
}

// Of places along all lines, a quarter of the allowance apart, those that have no place with fewer hours, or none with
// enough, within the allowance (a tenth of the spacing): looked for in a disc of it, a tenth of it apart.
inline std::size_t PlacesOff(const std::vector<FlatIsoline>& lines, double allowed, const MinutesAt& minutesAt,
                             const IsWithinArea& isWithin) {
    std::size_t off = 0;
    const auto isTrue = [&](const FlatPoint& place, int hours) {
        bool has[2] = {false, false};
        for (int x = -10; x <= 10; ++x)
            for (int y = -10; y <= 10; ++y) {
                const FlatPoint near{place.x + 0.1 * x * allowed, place.y + 0.1 * y * allowed};
                if (x * x + y * y > 100 || !isWithin(near))
                    continue;
                has[minutesAt(near) >= hours * 60.0 ? 1 : 0] = true;
                if (has[0] && has[1])
                    return true;
            }
        return false;
    };
    for (const FlatIsoline& line : lines) {
        const std::size_t count = line.points.size();
        for (std::size_t i = line.isClosed ? 0 : 1; i < count; ++i) {
            const FlatPoint& a = line.points[(i + count - 1) % count];
            const FlatPoint& b = line.points[i];
            const int parts = 1 + static_cast<int>(4.0 * std::hypot(b.x - a.x, b.y - a.y) / allowed);
            for (int k = 0; k <= parts; ++k)
                off += isTrue({a.x + (b.x - a.x) * k / parts, a.y + (b.y - a.y) * k / parts}, line.hours) ? 0 : 1;
        }
    }
    return off;
}

struct DenseChanges {
    std::size_t count = 0;
    std::size_t withoutLine = 0;
};

// The changes between neighbours of a dense grid, and of these the ones with no line of theirs within the allowance.
inline DenseChanges ChangesIn(const FlatPoint& low, const FlatPoint& high, double step, double allowed, int mostHours,
                              const std::vector<FlatIsoline>& lines, const MinutesAt& minutesAt,
                              const IsWithinArea& isWithin) {
    const auto columns = static_cast<std::size_t>((high.x - low.x) / step) + 1;
    const auto rows = static_cast<std::size_t>((high.y - low.y) / step) + 1;
    const auto placeOf = [&](std::size_t x, std::size_t y) {
        return FlatPoint{low.x + step * static_cast<double>(x), low.y + step * static_cast<double>(y)};
    };
    std::vector<double> minutes(columns * rows, -1.0);
    for (std::size_t y = 0; y < rows; ++y)
        for (std::size_t x = 0; x < columns; ++x)
            if (isWithin(placeOf(x, y)))
                minutes[y * columns + x] = minutesAt(placeOf(x, y));
    DenseChanges changes;
    const auto look = [&](const FlatPoint& a, const FlatPoint& b, double of, double next) {
        for (int hours = 1; hours <= mostHours && of >= 0.0 && next >= 0.0; ++hours)
            if ((of >= hours * 60.0) != (next >= hours * 60.0)) {
                ++changes.count;
                const FlatPoint middle{0.5 * (a.x + b.x), 0.5 * (a.y + b.y)};
                changes.withoutLine += std::none_of(lines.begin(), lines.end(), [&](const FlatIsoline& line) {
                    return line.hours == hours && DistanceToLine(middle, line) <= allowed;
                });
            }
    };
    for (std::size_t y = 0; y < rows; ++y)
        for (std::size_t x = 0; x < columns; ++x) {
            const double of = minutes[y * columns + x];
            if (x + 1 < columns)
                look(placeOf(x, y), placeOf(x + 1, y), of, minutes[y * columns + x + 1]);
            if (y + 1 < rows)
                look(placeOf(x, y), placeOf(x, y + 1), of, minutes[(y + 1) * columns + x]);
        }
    return changes;
}
