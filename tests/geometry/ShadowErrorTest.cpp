// How far planes, normals and shadow matrices are off in drawings that lie far from their origin: the bounds that the
// headers state, against arithmetic without rounding. Lengths are millimetres.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "Bits.h"
#include "ExactVector.h"
#include "geometry/QcGeFace3dEX.h"

namespace {

constexpr double kCity = 5e8;   // 500 km
constexpr double kSite = 1e5;   // 100 m
constexpr double kReach = 5e4;  // 50 m, of the scene around a face
constexpr int kFaces = 4000;

enum class Lie { Level, Upright, Sloping };

ExactVector ExactNormal(const QcGeFace& face) {
    const ExactVector p0 = ToExact(face.m_pt[0]);
    return Cross(ToExact(face.m_pt[1]) - p0, ToExact(face.m_pt[2]) - p0);
}

// A triangle of some ten metres, as far away as `from` says.
QcGeFace3dEX FaceAt(RandomNumbers& random, double from, Lie lie) {
    const QcGePoint p(random.Next(from / 2, from), random.Next(from / 2, from), 0);
    const double turn = random.Next(0, 2 * std::numbers::pi);
    const QcGePoint along(p.x + 1e4 * std::cos(turn), p.y + 1e4 * std::sin(turn), 0);
    if (lie == Lie::Upright)
        return {p, along, {along.x, along.y, 9e3}, true};
    const double rise = lie == Lie::Level ? 0.0 : random.Next(1e3, 2e4);
    return {p, along, {p.x - 1e4 * std::sin(turn), p.y + 1e4 * std::cos(turn), rise}, true};
}

// Light that comes down with 6 degrees or more to the face, from before or behind it.
QcGeVector3dEX LightOn(RandomNumbers& random, const QcGeFace& face) {
    for (;;) {
        const double azimuth = random.Next(0, 2 * std::numbers::pi);
        const double altitude = random.Next(0.05, 1.5);
        const QcGeVector3dEX light(std::cos(altitude) * std::cos(azimuth), std::cos(altitude) * std::sin(azimuth),
                                   -std::sin(altitude));
        if (std::fabs(Cosine(ToExact(light), ExactNormal(face))) >= 0.1)
            return light;
    }
}

// How far the matrix, applied in double, puts points from where the light takes them. Each coordinate is checked
// against what the rounding of the elements to float allows; what doubles lose comes on top.
double WorstShadow(unsigned seed, double from, Lie lie) {
    RandomNumbers random(seed);
    double worst = 0.0;
    for (int i = 0; i < kFaces; ++i) {
        QcGeFace3dEX face = FaceAt(random, from, lie);
        const QcGeVector3dEX light = LightOn(random, face);
        const QcGePoint& p0 = face.m_pt[0];
        const QcGePoint point(p0.x + random.Next(-kReach, kReach), p0.y + random.Next(-kReach, kReach),
                              random.Next(0, kReach));
        float m[4][4];
        face.CreateShadowMatrix(m, light, true);
        const ExactVector n = ExactNormal(face);
        const ExactVector p = ToExact(point);
        const ExactVector l = ToExact(light);
        const Exact way = Dot(n, p - ToExact(p0)) / Dot(n, l);
        const double in[] = {point.x, point.y, point.z, 1.0};
        for (std::size_t j = 0; j < 3; ++j) {
            double shadow = 0.0;
            double size = 0.0;
            for (std::size_t k = 0; k < 4; ++k) {
                shadow += static_cast<double>(m[k][j]) * in[k];
                size += std::fabs(static_cast<double>(m[k][j]) * in[k]);
            }
            const Exact exact = p[j] - l[j] * way;
            const double error = std::fabs(Exact(Exact(shadow) - exact).get_d());
            EXPECT_LE(error, size * 0x1p-24 + from * 1e-13) << i;
            worst = std::max(worst, error);
        }
    }
    return worst;
}

TEST(ShadowError, NearTheOriginIsATenthOfAMillimetre) {
    EXPECT_LE(WorstShadow(51, kSite, Lie::Upright), 0.1);
    EXPECT_LE(WorstShadow(52, kSite, Lie::Sloping), 0.1);
    EXPECT_LE(WorstShadow(53, kSite, Lie::Level), 0.1);
}

TEST(ShadowError, OnWallsAndSlopesFarAwayIsTenthsOfAMetre) {
    for (const Lie lie : {Lie::Upright, Lie::Sloping}) {
        const double worst = WorstShadow(54, kCity, lie);
        EXPECT_GT(worst, 200.0);
        EXPECT_LE(worst, 1000.0);
    }
}

TEST(ShadowError, OnLevelFacesDoesNotGrowWithTheDistance) {
    EXPECT_LE(WorstShadow(55, kCity, Lie::Level), 0.1);
}

TEST(PlaneError, OfASideIsAPartOfTheCoordinates) {
    RandomNumbers random(56);
    double worst = 0.0;
    for (int i = 0; i < kFaces; ++i) {
        QcGeVector3dEX normal = random.Point(1);
        if (!normal.Normalize())
            continue;
        const QcGePoint at = random.Point(kCity);
        const QcGePoint point(at.x + random.Next(-kReach, kReach), at.y + random.Next(-kReach, kReach), at.z);
        const Exact exact = Dot(ToExact(normal), ToExact(point) - ToExact(at));
        worst = std::max(worst, std::fabs(Exact(Exact(Plane(normal, at).GetSide(point)) - exact).get_d()));
    }
    EXPECT_LE(worst, kCity * 1e-15);
    EXPECT_GT(worst, 1e-12) << "far above the tolerance";
}

TEST(NormalError, IsThatOfItsEdges) {
    for (const double from : {kSite, kCity}) {
        RandomNumbers random(57);
        for (int i = 0; i < kFaces; ++i) {
            const QcGePoint p = random.Point(from);
            const auto near = [&] {
                const QcGePoint way = random.Point(1e4);
                return QcGePoint(p.x + way.x, p.y + way.y, p.z + way.z);
            };
            QcGeFace3dEX face(p, near(), near(), false);
            const ExactVector n = ExactNormal(face);
            const ExactVector p0 = ToExact(p);
            const double edges = Length(ToExact(face.m_pt[1]) - p0) * Length(ToExact(face.m_pt[2]) - p0);
            const double sine = Length(n) / edges;
            const QcGeVector3dEX normal = face.GetNormal();
            const double got[] = {normal.x, normal.y, normal.z};
            const mpf_class square(Dot(n, n), 256);
            const mpf_class length = sqrt(square);
            for (std::size_t j = 0; j < 3; ++j) {
                const mpf_class error = mpf_class(got[j], 256) - mpf_class(n[j], 256) / length;
                EXPECT_LE(std::fabs(error.get_d()) * sine, 1e-15) << from << ' ' << i;
            }
        }
    }
}

}  // namespace
