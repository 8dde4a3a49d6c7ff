// Small drawings for the tests of a scene, and what can be measured of the faces that come of them.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "host/DrawingText.h"
#include "scene/Scene.h"

// An entity of groups that are given as "code=value" with blanks between them.
inline std::string Entity(const std::string& type, const std::string& groups) {
    std::string text = "0\n" + type + "\n";
    std::istringstream words(groups);
    for (std::string word; words >> word;) {
        const std::size_t sign = word.find('=');
        text += word.substr(0, sign) + "\n" + word.substr(sign + 1) + "\n";
    }
    return text;
}

// "10=x 20=y 30=z " with the codes that belong to the first one.
inline std::string At(double x, double y, double z, int code = 10) {
    std::ostringstream text;
    text.precision(17);
    text << code << '=' << x << ' ' << code + 10 << '=' << y << ' ' << code + 20 << '=' << z << ' ';
    return text.str();
}

inline std::string DrawingWith(const std::string& entities, const std::string& layers = {}, int unit = 4) {
    return DrawingOf(Section("HEADER", "9\n$ACADVER\n1\nAC1027\n9\n$INSUNITS\n70\n" + std::to_string(unit) + "\n") +
                     Section("TABLES", "0\nTABLE\n2\nLAYER\n70\n1\n" + layers + "0\nENDTAB\n") +
                     Section("ENTITIES", entities));
}

inline Scene SceneOf(const std::string& entities, const std::string& layers = {}, int unit = 4) {
    const OpenDrawing drawing(DrawingWith(entities, layers, unit));
    return BuildScene(drawing.database);
}

// A triangle of some layer, colour and so on, for tests that are not about its shape.
inline std::string Triangle(const std::string& groups) {
    return Entity("3DFACE", groups + " " + At(0, 0, 0) + At(1, 0, 0, 11) + At(0, 1, 0, 12) + At(0, 1, 0, 13));
}

inline std::size_t OtherCount(const Scene& scene) {
    std::size_t total = 0;
    for (const KindCount& kind : scene.passedOver)
        total += kind.count;
    return total;
}

// What stands there for a faulty entity.
inline void ExpectFaulty(const std::string& entities, const char* why) {
    const Scene scene = SceneOf(entities);
    EXPECT_EQ(scene.faultyCount, 1U) << why;
    EXPECT_EQ(OtherCount(scene), 0U) << why;
    EXPECT_TRUE(scene.faces.empty()) << why;
    EXPECT_TRUE(scene.entities.empty()) << why;
}

using Vector = std::array<double, 3>;

inline Vector CrossOf(const QcGePoint& o, const QcGePoint& a, const QcGePoint& b) {
    const double ax = a.x - o.x, ay = a.y - o.y, az = a.z - o.z;
    const double bx = b.x - o.x, by = b.y - o.y, bz = b.z - o.z;
    return {ay * bz - az * by, az * bx - ax * bz, ax * by - ay * bx};
}

// Area times normal of one face, from its corners.
inline Vector AreaVectorOf(const QcGeFace3dEX& face) {
    Vector sum{};
    for (int i = 1; i + 1 < face.GetPointNum(); ++i) {
        const Vector cross = CrossOf(face[0], face[i], face[i + 1]);
        for (std::size_t k = 0; k < 3; ++k)
            sum[k] += cross[k] / 2.0;
    }
    return sum;
}
inline double AreaOf(const QcGeFace3dEX& face) {
    const Vector v = AreaVectorOf(face);
    return std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
}

// The sum over all faces: zero for a closed surface.
inline Vector TotalAreaVector(const std::vector<QcGeFace3dEX>& faces) {
    Vector sum{};
    for (const QcGeFace3dEX& face : faces) {
        const Vector v = AreaVectorOf(face);
        for (std::size_t k = 0; k < 3; ++k)
            sum[k] += v[k];
    }
    return sum;
}

// By the divergence theorem: positive for a closed surface that faces outwards.
inline double VolumeOf(const std::vector<QcGeFace3dEX>& faces) {
    double six = 0.0;
    for (const QcGeFace3dEX& face : faces)
        for (int i = 1; i + 1 < face.GetPointNum(); ++i) {
            const Vector cross = CrossOf(QcGePoint(), face[i], face[i + 1]);
            six += face[0].x * cross[0] + face[0].y * cross[1] + face[0].z * cross[2];
        }
    return six / 6.0;
}

inline std::vector<QcGeFace3dEX> FacesOf(const Scene& scene, std::size_t entity) {
    const auto first = scene.faces.begin() + static_cast<std::ptrdiff_t>(scene.entities[entity].firstFace);
    return {first, first + static_cast<std::ptrdiff_t>(scene.entities[entity].faceCount)};
}

// A closed surface that faces outwards and holds this volume.
inline void ExpectBody(const std::vector<QcGeFace3dEX>& faces, double volume) {
    double area = 0.0;
    for (const QcGeFace3dEX& face : faces)
        area += AreaOf(face);
    for (const double part : TotalAreaVector(faces))
        EXPECT_NEAR(part, 0.0, 1e-9 * area);
    EXPECT_NEAR(VolumeOf(faces), volume, 1e-9 * std::fabs(volume));
}

// The area of the faces that look straight up (or down, for -1).
inline double LevelArea(const std::vector<QcGeFace3dEX>& faces, int side) {
    double area = 0.0;
    for (const QcGeFace3dEX& face : faces) {
        const Vector v = AreaVectorOf(face);
        if (std::fabs(v[2]) > 0.999999 * AreaOf(face) && (v[2] > 0.0) == (side > 0))
            area += AreaOf(face);
    }
    return area;
}

inline void ExpectCorners(const QcGeFace3dEX& face, const std::vector<QcGePoint>& corners) {
    ASSERT_EQ(face.GetPointNum(), static_cast<int>(corners.size()));
    for (int i = 0; i < face.GetPointNum(); ++i)
        EXPECT_TRUE(face[i] == corners[static_cast<std::size_t>(i)])
            << "corner " << i << " is at " << face[i].x << ", " << face[i].y << ", " << face[i].z;
}

inline std::string FlagsOf(const QcGeFace3dEX& face) {
    std::string text;
    for (const unsigned char flag : face.m_flag)
        text += flag == kHiddenEdge ? 'h' : flag == 0 ? '-' : '?';
    return text;
}

// What a scene promises, whatever the drawing was.
inline void ExpectSound(const Scene& scene) {
    std::size_t next = 0;
    for (const SceneEntity& entity : scene.entities) {
        ASSERT_EQ(entity.firstFace, next);
        ASSERT_GT(entity.faceCount, 0U);
        ASSERT_GE(entity.colorIndex, 1);
        ASSERT_LE(entity.colorIndex, 255);
        next += entity.faceCount;
    }
    ASSERT_EQ(next, scene.faces.size());
    for (const QcGeFace3dEX& face : scene.faces) {
        ASSERT_TRUE(face.GetPointNum() == 3 || face.GetPointNum() == 4);
        ASSERT_NEAR(face.Normal().Length(), 1.0, 1e-6);
    }
}

inline std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}
