// Scenes made by hand, and a look at single pixels.
#pragma once

#include <algorithm>
#include <cstddef>

#include "platform/media/OffscreenGl.h"
#include "scene/Scene.h"

inline void AddFaces(Scene& scene, const std::vector<QcGeFace3dEX>& faces, int colorIndex, int trueColor = -1) {
    SceneEntity entity;
    entity.colorIndex = colorIndex;
    entity.trueColor = trueColor;
    entity.firstFace = scene.faces.size();
    entity.faceCount = faces.size();
    scene.entities.push_back(entity);
    for (QcGeFace3dEX face : faces) {
        for (int i = 0; i < face.GetPointNum(); ++i) {
            const QcGePoint pt = face.m_pt[i];
            if (scene.faces.empty() && i == 0)
                scene.least = scene.most = pt;
            scene.least = {std::min(scene.least.x, pt.x), std::min(scene.least.y, pt.y), std::min(scene.least.z, pt.z)};
            scene.most = {std::max(scene.most.x, pt.x), std::max(scene.most.y, pt.y), std::max(scene.most.z, pt.z)};
        }
        face.GetNormal();
        scene.faces.push_back(face);
    }
}

inline QcGeFace3dEX Quad(const QcGePoint& a, const QcGePoint& b, const QcGePoint& c, const QcGePoint& d) {
    return {a, b, c, d, true};
}

// Six faces, all with their fronts outwards.
inline void AddBox(Scene& scene, const QcGePoint& a, const QcGePoint& b, int colorIndex, int trueColor = -1) {
    AddFaces(scene,
             {Quad({a.x, a.y, a.z}, {a.x, b.y, a.z}, {b.x, b.y, a.z}, {b.x, a.y, a.z}),
              Quad({a.x, a.y, b.z}, {b.x, a.y, b.z}, {b.x, b.y, b.z}, {a.x, b.y, b.z}),
              Quad({a.x, a.y, a.z}, {b.x, a.y, a.z}, {b.x, a.y, b.z}, {a.x, a.y, b.z}),
              Quad({b.x, a.y, a.z}, {b.x, b.y, a.z}, {b.x, b.y, b.z}, {b.x, a.y, b.z}),
              Quad({b.x, b.y, a.z}, {a.x, b.y, a.z}, {a.x, b.y, b.z}, {b.x, b.y, b.z}),
              Quad({a.x, b.y, a.z}, {a.x, a.y, a.z}, {a.x, a.y, b.z}, {a.x, b.y, b.z})},
             colorIndex, trueColor);
}

struct Pixel {
    int r = 0;
    int g = 0;
    int b = 0;
    int GetSum() const { return r + g + b; }
    // Red, and nothing else to speak of.
    bool IsReddish() const { return r > 60 && r > 3 * g && r > 3 * b; }
    bool IsGreenish() const { return g > 60 && g > 3 * r && g > 3 * b; }
    // The sky, the haze and the ground are all pale.
    bool IsBackground() const { return std::min({r, g, b}) > 140; }
};

inline Pixel PixelAt(const GlPicture& picture, double x, double y) {
    const int column = std::clamp(static_cast<int>(x), 0, picture.width - 1);
    const int row = std::clamp(static_cast<int>(y), 0, picture.height - 1);
    const unsigned char* const p =
        picture.rgba.data() +
        (static_cast<std::size_t>(row) * static_cast<std::size_t>(picture.width) + static_cast<std::size_t>(column)) *
            4;
    return {p[0], p[1], p[2]};
}
