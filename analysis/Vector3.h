// Points and directions in space, for computing with many of them.
#pragma once

#include <cmath>

struct Vector3 {
    // Millimetres in the drawing's axes, unless told otherwise; of directions the parts of a length.
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

// Component by component.
inline Vector3 operator+(const Vector3& a, const Vector3& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
// The way from b to a.
inline Vector3 operator-(const Vector3& a, const Vector3& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
// The other way round.
inline Vector3 operator-(const Vector3& a) {
    return {-a.x, -a.y, -a.z};
}
// So many times as long.
inline Vector3 operator*(const Vector3& a, double factor) {
    return {a.x * factor, a.y * factor, a.z * factor};
}
// The product of both lengths and the cosine between them.
inline double Dot(const Vector3& a, const Vector3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
// The right-handed cross product: x axis times y axis is the z axis.
inline Vector3 Cross(const Vector3& a, const Vector3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
// The root of the sum of the squares.
inline double Length(const Vector3& a) {
    return std::sqrt(Dot(a, a));
}
