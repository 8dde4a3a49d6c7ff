// Towns of plain houses for benchmarks, and points on their walls.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "analysis/OccluderSet.h"

// A place on a wall, a little before it.
struct WallPoint {
    Vector3 place;
    Vector3 right;
    Vector3 outward;
};

struct Town {
    OccluderSet occluders;
    std::vector<WallPoint> points;
};

// So many houses on a grid of 42 m, each a box of its own size, height and direction, with `pointCount` points on walls
// of the middle of the town and around; millimetres. The same for the same numbers.
inline Town MakeTown(std::size_t houses, std::size_t pointCount) {
    constexpr double kPitch = 42'000.0;
    constexpr double kOffset = 10.0;
    std::mt19937 engine(17);
    const auto between = [&](double least, double most) {
        return least + (most - least) * (static_cast<double>(engine()) / 4294967296.0);
    };
    struct House {
        std::array<Vector3, 4> ground;
        double height;
    };
    std::vector<House> all;
    Town town;
    const auto columns = static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(houses))));
    for (std::size_t i = 0; i < houses; ++i) {
        const double x = static_cast<double>(i % columns) * kPitch + between(-3000.0, 3000.0);
        const double y = static_cast<double>(i / columns) * kPitch + between(-3000.0, 3000.0);
        const double length = between(6000.0, 16'000.0);
        const double depth = between(5000.0, 8000.0);
        const double turn = between(-0.3, 0.3);
        House house;
        house.height = between(0.0, 1.0) < 0.2 ? between(40'000.0, 100'000.0) : between(6000.0, 30'000.0);
        const double c = std::cos(turn);
        const double s = std::sin(turn);
        const double corners[4][2] = {{-length, -depth}, {length, -depth}, {length, depth}, {-length, depth}};
        for (std::size_t k = 0; k < 4; ++k)
            house.ground[k] = {x + c * corners[k][0] - s * corners[k][1], y + s * corners[k][0] + c * corners[k][1],
                               0.0};
        all.push_back(house);
        const Vector3 up{0.0, 0.0, house.height};
        const auto add = [&](Vector3 a, Vector3 b, Vector3 c3, Vector3 d) {
            Occluder face;
            face.count = 4;
            face.entity = static_cast<std::uint32_t>(i);
            face.corners[0] = a;
            face.corners[1] = b;
            face.corners[2] = c3;
            face.corners[3] = d;
            town.occluders.faces.push_back(face);
        };
        const auto& g = house.ground;
        for (std::size_t k = 0; k < 4; ++k)
            add(g[k], g[(k + 1) % 4], g[(k + 1) % 4] + up, g[k] + up);
        add(g[3], g[2], g[1], g[0]);
        add(g[0] + up, g[1] + up, g[2] + up, g[3] + up);
        town.occluders.handles.push_back(i + 1);
    }
    FindClosedBodies(town.occluders);
    while (town.points.size() < pointCount) {
        const House& house = all[engine() % all.size()];
        const std::size_t wall = engine() % 4;
        const Vector3 from = house.ground[wall];
        const Vector3 way = house.ground[(wall + 1) % 4] - from;
        WallPoint point;
        point.right = way * (1.0 / Length(way));
        point.outward = {point.right.y, -point.right.x, 0.0};
        point.place = from + way * between(0.1, 0.9) + point.outward * kOffset;
        point.place.z = between(0.02, 0.95) * house.height;
        town.points.push_back(point);
    }
    return town;
}
