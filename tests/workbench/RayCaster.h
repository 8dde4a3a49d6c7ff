// Where rays meet a scene and its ground, by trying every triangle.
#pragma once

#include <cmath>
#include <optional>
#include <vector>

#include "scene/Scene.h"
#include "workbench/view/ViewCamera.h"

class RayCaster {
public:
    struct Hit {
        double distance = 0.0;
        int face = 0;  // -1 for the ground
        QcGePoint point;
        QcGeVector3d normal;  // of length 1, to the side that the ray came from
    };

    // The ground is level and lies at the scene's lowest corner.
    explicit RayCaster(const Scene& scene) : m_ground(scene.least.z) {
        for (std::size_t i = 0; i < scene.faces.size(); ++i)
            for (int k = 2; k < scene.faces[i].GetCornerCount(); ++k)
                m_triangles.push_back({{scene.faces[i].m_pt[0], scene.faces[i].m_pt[k - 1], scene.faces[i].m_pt[k]},
                                       static_cast<int>(i)});
    }

    std::optional<Hit> Cast(const QcGePoint& from, const QcGeVector3d& way) const {
        std::optional<Hit> nearest;
        for (const Triangle& triangle : m_triangles)
            if (const double distance = Meet(triangle, from, way); distance > 0.0 && IsNearer(nearest, distance))
                nearest = Hit{distance, triangle.face, {}, NormalOf(triangle)};
        if (way.z < 0.0 && from.z > m_ground && IsNearer(nearest, (m_ground - from.z) / way.z))
            nearest = Hit{(m_ground - from.z) / way.z, -1, {}, {0.0, 0.0, 1.0}};
        if (!nearest)
            return nearest;
        nearest->point = {from.x + way.x * nearest->distance, from.y + way.y * nearest->distance,
                          from.z + way.z * nearest->distance};
        if (Scalar(nearest->normal, way) > 0.0)
            nearest->normal = {-nearest->normal.x, -nearest->normal.y, -nearest->normal.z};
        return nearest;
    }

    // Whether the side that was hit looks to the sun and nothing stands between.
    bool IsLit(const Hit& hit, const QcGeVector3d& toSun) const {
        if (toSun.z <= 0.0 || Scalar(hit.normal, toSun) <= 0.0)
            return false;
        const double off = 1e-6 * hit.distance;
        const QcGePoint from(hit.point.x + hit.normal.x * off, hit.point.y + hit.normal.y * off,
                             hit.point.z + hit.normal.z * off);
        for (const Triangle& triangle : m_triangles)
            if (triangle.face != hit.face && Meet(triangle, from, toSun) > 0.0)
                return false;
        return true;
    }

    static double Scalar(const QcGeVector3d& a, const QcGeVector3d& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }

private:
    struct Triangle {
        QcGePoint corners[3];
        int face;
    };

    static bool IsNearer(const std::optional<Hit>& hit, double distance) { return !hit || distance < hit->distance; }
    static QcGeVector3d NormalOf(const Triangle& triangle) {
        const QcGeVector3d normal =
            (triangle.corners[1] - triangle.corners[0]) * (triangle.corners[2] - triangle.corners[0]);
        const double length = normal.Length();
        return {normal.x / length, normal.y / length, normal.z / length};
    }
    // The distance along the ray in units of its way; 0 for a miss.
    static double Meet(const Triangle& triangle, const QcGePoint& from, const QcGeVector3d& way) {
        const QcGeVector3d a = triangle.corners[1] - triangle.corners[0];
        const QcGeVector3d b = triangle.corners[2] - triangle.corners[0];
        const QcGeVector3d p = way * b;
        const double determinant = Scalar(a, p);
        if (determinant == 0.0)
            return 0.0;
        const QcGeVector3d t = from - triangle.corners[0];
        const double u = Scalar(t, p) / determinant;
        const QcGeVector3d q = t * a;
        const double v = Scalar(way, q) / determinant;
        return u < 0.0 || v < 0.0 || u + v > 1.0 ? 0.0 : Scalar(b, q) / determinant;
    }

    double m_ground;
    std::vector<Triangle> m_triangles;
};
