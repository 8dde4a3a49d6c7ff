// Comparing numbers bit for bit, and random numbers whose products and sums always round.
#pragma once

#include <bit>
#include <cstdint>
#include <random>

#include "platform/geometry/QcGePoint.h"

inline std::uint64_t Bits(double value) {
    return std::bit_cast<std::uint64_t>(value);
}

inline bool SameBits(const QcGePoint& left, const QcGePoint& right) {
    return Bits(left.x) == Bits(right.x) && Bits(left.y) == Bits(right.y) && Bits(left.z) == Bits(right.z);
}

// Always the same sequence: a test that fails fails again.
class RandomNumbers {
public:
    explicit RandomNumbers(unsigned seed) : m_engine(seed) {}
    double Next(double least, double most) {
        const double unit = static_cast<double>(m_engine() >> 11) * 0x1p-53;
        return least + (most - least) * unit;
    }
    QcGePoint Point(double size) { return {Next(-size, size), Next(-size, size), Next(-size, size)}; }
    int Below(int count) { return static_cast<int>(m_engine() % static_cast<std::uint64_t>(count)); }

private:
    std::mt19937_64 m_engine;
};
