// A scene in the sun: the sun's map is drawn first, then the picture by it.
// Why: docs/decisions/workbench.md
#pragma once

#include <optional>

#include "workbench/view/SeenSpace.h"
#include "workbench/view/SunFrame.h"
#include "workbench/view/SunMap.h"
#include "workbench/view/SunShader.h"

struct DrawnScene;

// Belongs to the context that is current when Aim is first called, which has to be current in all calls, the destructor
// included.
class SunPicture {
public:
    // Finds out what is seen, and draws the map of it, a fine one or one that is soon drawn. False where the graphics
    // cannot.
    bool Aim(const ViewCamera& camera, const QcGeVector3d& direction, const DrawnScene& scene, bool isFine);
    // Draws what was aimed at into the context's current buffer: sky, ground, faces, what lies on them, and edges.
    bool Draw(const ViewCamera& camera, const DrawnScene& scene, bool edges);

private:
    bool DrawMap(const DrawnScene& scene, int size);
    void DrawFaces(const DrawnScene& scene);
    void DrawGround(const QcGePoint& origin);

    QcGeVector3d m_toSun;
    ViewBox m_ground;  // flat
    bool m_hasGround = false;
    SeenSpace m_seen;
    std::optional<SunFrame> m_frame;
    SunMap m_map;
    SunShader m_shader;
};
