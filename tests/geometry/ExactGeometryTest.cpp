// Random faces, points and lights against arithmetic without rounding: every double is a fraction, and GMP's fractions
// are exact. Where the exact value is clear of the tolerance by more than rounding can move it, the face must agree.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "Bits.h"
#include "ExactVector.h"
#include "geometry/Cylinder.h"
#include "geometry/QcGeFace3dEX.h"

namespace {

// The direction of the exact normal: not of unit length, which no fraction could give.
ExactVector ExactNormal(const QcGeFace& face) {
    const ExactVector p0 = ToExact(face.m_pt[0]);
    return Cross(ToExact(face.m_pt[1]) - p0, ToExact(face.m_pt[2]) - p0);
}

// Well-shaped enough that its normal is good to about 1e-13: half of the relative error that thin triangles suffer.
bool IsWellShaped(const QcGeFace& face) {
    const ExactVector p0 = ToExact(face.m_pt[0]);
    const ExactVector e1 = ToExact(face.m_pt[1]) - p0;
    const ExactVector e2 = ToExact(face.m_pt[2]) - p0;
    return Length(Cross(e1, e2)) > 0.01 * Length(e1) * Length(e2);
}

constexpr double kClear = 1e-9;  // further from the tolerance than all rounding together

class ExactGeometry : public testing::TestWithParam<double> {
protected:
    QcGeFace3dEX RandomFace(int count) {
        for (;;) {
            const QcGePoint corners[] = {m_random.Point(GetParam()), m_random.Point(GetParam()),
                                         m_random.Point(GetParam()), m_random.Point(GetParam())};
            const QcGeFace3dEX face(corners, count, true);
            if (IsWellShaped(face))
                return face;
        }
    }
    // A flat, convex quadrilateral or triangle, counter-clockwise seen from its normal.
    QcGeFace3dEX FlatFace(int count) {
        QcGeFace3dEX face = RandomFace(3);
        if (count == 4) {
            const QcGePoint& a = face.m_pt[0];
            const QcGePoint& b = face.m_pt[1];
            const QcGePoint& c = face.m_pt[2];
            const QcGePoint p[] = {a, b, c};
            face.SetPoint(p[0], p[1], p[2],
                          {p[0].x + p[2].x - p[1].x, p[0].y + p[2].y - p[1].y, p[0].z + p[2].z - p[1].z});
        }
        return face;
    }
    RandomNumbers m_random{20};
};

INSTANTIATE_TEST_SUITE_P(Sizes, ExactGeometry, testing::Values(1e-3, 1.0, 100.0, 1e7, 1e40, 1e-4 * 0x1p10),
                         [](const auto& size) { return "Number" + std::to_string(size.index); });

TEST_P(ExactGeometry, SidesOfPoints) {
    int judged = 0;
    for (int i = 0; i < 2000; ++i) {
        QcGeFace3dEX face = RandomFace(3 + i % 2);
        const QcGePoint point = m_random.Point(GetParam() * 2);
        const double cosine = Cosine(ToExact(point) - ToExact(face.m_pt[0]), ExactNormal(face));
        if (std::fabs(cosine) < kClear)
            continue;
        ++judged;
        ASSERT_EQ(face.CompareWithPoint(point), cosine > 0 ? RELATION3D_UPFACE : RELATION3D_DOWNFACE) << cosine;
        ASSERT_TRUE(face.IsPosLightOn(point));
    }
    EXPECT_GT(judged, 1900);
}

// Points made to lie in the plane, or hardly off it: the answer has to change within rounding of the tolerance.
TEST_P(ExactGeometry, SidesOfPointsNearThePlane) {
    int on = 0;
    int off = 0;
    for (int i = 0; i < 2000; ++i) {
        QcGeFace3dEX face = RandomFace(3);
        const QcGeVector3dEX n = face.GetNormal();
        const QcGeVector3d e1 = face.m_pt[1] - face.m_pt[0];
        const QcGeVector3d e2 = face.m_pt[2] - face.m_pt[0];
        const double s = m_random.Next(-3, 3);
        const double t = m_random.Next(-3, 3);
        const double height = GetParam() * std::pow(10.0, m_random.Next(-18, -6)) * (i % 2 == 0 ? 1 : -1);
        const QcGePoint p0 = face.m_pt[0];
        const QcGePoint point(p0.x + s * e1.x + t * e2.x + height * n.x, p0.y + s * e1.y + t * e2.y + height * n.y,
                              p0.z + s * e1.z + t * e2.z + height * n.z);
        const double cosine = Cosine(ToExact(point) - ToExact(p0), ExactNormal(face));
        if (std::fabs(cosine) > kClear) {
            ++off;
            ASSERT_EQ(face.CompareWithPoint(point), cosine > 0 ? RELATION3D_UPFACE : RELATION3D_DOWNFACE);
        } else if (std::fabs(cosine) < 1e-16) {
            ++on;
            // Rounding alone may carry it over 1e-12 only when the face is badly shaped, which it is not.
            ASSERT_NE(face.CompareWithPoint(point), cosine > 0 ? RELATION3D_DOWNFACE : RELATION3D_UPFACE);
        }
    }
    EXPECT_GT(off, 300);
    EXPECT_GT(on, 30);
}

TEST_P(ExactGeometry, Sunlight) {
    int judged = 0;
    for (int i = 0; i < 2000; ++i) {
        QcGeFace3dEX face = RandomFace(3 + i % 2);
        const QcGePoint light = m_random.Point(1);
        const double cosine = Cosine(ToExact(light), ExactNormal(face));
        if (std::fabs(cosine) < kClear)
            continue;
        ++judged;
        ASSERT_EQ(face.IsSunLightOn(light, true), cosine < 0) << cosine;
    }
    EXPECT_GT(judged, 1900);
}

TEST_P(ExactGeometry, SidesOfPlanes) {
    int judged = 0;
    for (int i = 0; i < 2000; ++i) {
        const QcGePoint n = m_random.Point(1);
        const double d = m_random.Next(-1, 1) * GetParam();
        const QcGePoint point = m_random.Point(GetParam());
        const Plane plane(n.x, n.y, n.z, d);
        const Exact side = Dot(ToExact(n), ToExact(point)) + Exact(d);
        const double error = 1e-15 * (3 * GetParam() + std::fabs(d)) + 1e-12;
        if (std::fabs(side.get_d()) < 2 * error)
            continue;
        ++judged;
        const bool isUp = side > 0;
        ASSERT_EQ(plane.IsUpPlane(point), isUp);
        ASSERT_EQ(plane.IsDownPlane(point), !isUp);
        ASSERT_FALSE(plane.IsInPlane(point));
        ASSERT_EQ(plane.GetPointPlaneRelation(point), isUp ? RELATION3D_UPPLANE : RELATION3D_DOWNPLANE);
    }
    EXPECT_GT(judged, 1900);
}

// A point above the face towards the sun is inside every plane of the prism, one beside it outside some: by exact
// projection along the light onto the face's plane and exact edges there.
TEST_P(ExactGeometry, HalfPrismsHoldWhatShadesTheirFace) {
    int inside = 0;
    int outside = 0;
    for (int i = 0; i < 1500; ++i) {
        QcGeFace3dEX face = FlatFace(3 + i % 2);
        QcGePoint light = m_random.Point(1);
        const ExactVector n = ExactNormal(face);
        double slope = Cosine(ToExact(light), n);
        if (slope > 0) {
            light = {-light.x, -light.y, -light.z};
            slope = -slope;
        }
        if (slope > -0.05)
            continue;
        Cylinder cylinder;
        face.ContructLightHalfCylinder(cylinder, light);

        // A small occluder around a point.
        const QcGePoint middle = m_random.Point(1.5 * GetParam());
        const double half = 1e-3 * GetParam();
        QcGeFace3dEX occluder({middle.x - half, middle.y, middle.z}, {middle.x + half, middle.y + half, middle.z},
                              {middle.x, middle.y - half, middle.z + half}, true);

        // Its corners by exact planes; each side measured in lengths.
        const ExactVector l = ToExact(light);
        const int count = face.GetPointNum();
        bool isSeparated = false;
        bool isClear = true;
        for (int k = -1; k < count; ++k) {
            const QcGePoint& at = face.m_pt[k < 0 ? 0 : k];
            const ExactVector normal = k < 0 ? n : Cross(ToExact(face.m_pt[(k + 1) % count]) - ToExact(at), l);
            const double length = Length(normal);
            bool isOut = true;
            for (int c = 0; c < 3; ++c) {
                const Exact side = Dot(normal, ToExact(occluder.m_pt[c]) - ToExact(at));
                const double distance = side.get_d() / length;
                isClear = isClear && std::fabs(distance) > 1e-6 * GetParam();
                isOut = isOut && side <= 0;
            }
            isSeparated = isSeparated || isOut;
        }
        if (!isClear)
            continue;
        ++(isSeparated ? outside : inside);
        ASSERT_EQ(cylinder.IsSomeFacePointIn(occluder), !isSeparated) << i;
    }
    EXPECT_GT(inside, 10);
    EXPECT_GT(outside, 500);
}

// Every point on the way from the face to the sun is let in.
TEST_P(ExactGeometry, HalfPrismsLetInEverythingBetweenFaceAndSun) {
    for (int i = 0; i < 1000; ++i) {
        QcGeFace3dEX face = FlatFace(3);
        QcGePoint light = m_random.Point(1);
        if (Cosine(ToExact(light), ExactNormal(face)) > 0)
            light = {-light.x, -light.y, -light.z};
        if (Cosine(ToExact(light), ExactNormal(face)) > -0.05)
            continue;
        // Well inside the triangle, and up towards the sun by up to three sizes.
        const double u = m_random.Next(0.1, 0.4);
        const double v = m_random.Next(0.1, 0.4);
        const double way = m_random.Next(0.1, 3) * GetParam();
        const QcGePoint* p = face.m_pt;
        const auto mix = [&](double a, double b, double c, double l) {
            return a + u * (b - a) + v * (c - a) - way * l;
        };
        const QcGePoint spot(mix(p[0].x, p[1].x, p[2].x, light.x), mix(p[0].y, p[1].y, p[2].y, light.y),
                             mix(p[0].z, p[1].z, p[2].z, light.z));
        const QcGeFace3dEX speck(spot, spot, spot, true);
        Cylinder cylinder;
        face.ContructLightHalfCylinder(cylinder, light);
        ASSERT_TRUE(cylinder.IsSomeFacePointIn(speck)) << i;
    }
}

// The shadow of a point lies in the plane, and on the ray of light through the point.
TEST_P(ExactGeometry, ShadowMatrixProjectsAlongTheLightOntoThePlane) {
    for (int i = 0; i < 1000; ++i) {
        QcGeFace3dEX face = RandomFace(3);
        const QcGePoint light = m_random.Point(1);
        const ExactVector n = ExactNormal(face);
        if (std::fabs(Cosine(ToExact(light), n)) < 0.05)
            continue;
        float m[4][4];
        face.CreateShadowMatrix(m, light, true);
        const QcGePoint point = m_random.Point(GetParam());
        const double in[] = {point.x, point.y, point.z, 1};

        // The exact shadow: P - L * (n . (P - P0)) / (n . L).
        const ExactVector p = ToExact(point);
        const Exact way = Dot(n, p - ToExact(face.m_pt[0])) / Dot(n, ToExact(light));
        const ExactVector l = ToExact(light);
        for (std::size_t j = 0; j < 3; ++j) {
            double shadow = 0;
            double size = 0;  // of the terms, to which the matrix' rounding to float is relative
            for (std::size_t k = 0; k < 4; ++k) {
                shadow += static_cast<double>(m[k][j]) * in[k];
                size += std::fabs(static_cast<double>(m[k][j]) * in[k]);
            }
            const Exact exact = p[j] - l[j] * way;
            // A float keeps 24 bits of each element; one plus a small quotient loses no more than the one's own.
            ASSERT_NEAR(shadow, exact.get_d(), (size + GetParam()) * 0x1p-22) << i;
        }
        double w = 0;
        for (std::size_t k = 0; k < 4; ++k)
            w += static_cast<double>(m[k][3]) * in[k];
        ASSERT_EQ(w, 1.0);
    }
}

}  // namespace
