// A scene in the sun: the sun's map is drawn first, then the picture by it.
// Why: docs/decisions/workbench.md
#pragma once

#include <optional>

#include "workbench/view/SeenSpace.h"
#include "workbench/view/SunFrame.h"
#include "workbench/view/SunMap.h"
#include "workbench/view/SunShader.h"

class SceneLists;

// Belongs to the context that is current when Aim is first called, which has to be current in all calls, the destructor
// included.
class SunPicture {
public:
    // Finds out what is seen of the scene and the marks (null for none), and draws the map of it, a fine one or one
    // that is soon drawn. False where the graphics cannot.
    bool Aim(const ViewCamera& camera, const QcGeVector3d& direction, const SceneLists& scene, const SceneLists* marks,
             bool isFine);
    // Draws what was aimed at into the context's current buffer: sky, ground, faces, marks and edges.
    bool Draw(const ViewCamera& camera, const SceneLists& scene, const SceneLists* marks, bool edges);

private:
    bool DrawMap(const SceneLists& scene, int size);
    void DrawFaces(const SceneLists& scene, const SceneLists* marks);
    void DrawGround(const QcGePoint& origin);

    QcGeVector3d m_toSun;
    ViewBox m_ground;  // flat
    bool m_hasGround = false;
    SeenSpace m_seen;
    std::optional<SunFrame> m_frame;
    SunMap m_map;
    SunShader m_shader;
};
