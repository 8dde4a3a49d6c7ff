// What of a scene is marked in the picture, because somebody picked it.
#pragma once

#include <vector>

#include "scene/Scene.h"
#include "workbench/view/ScenePick.h"

struct MarkedShapes {
    std::vector<QcGeFace3dEX> faces;
    std::vector<SceneSegment> lines;
};

// All that an entity shows on layers that are not hidden.
MarkedShapes ShapesOf(const Scene& scene, const HiddenLayers& hidden, AcDbObjectId id);

// Draws them over the picture, relative to an origin: faces in a bright colour, their edges and the lines broadly in a
// dark one. Expects lighting to be off and the depths of the picture to be there.
void DrawMarked(const MarkedShapes& marked, const QcGePoint& origin);
