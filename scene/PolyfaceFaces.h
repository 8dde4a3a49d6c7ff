// Faces of POLYLINE entities that are meshes.
// Why: docs/decisions/scene.md
#pragma once

#include <vector>

#include "scene/PolylineVertex.h"

class EntityGroups;
class FaceList;

// A polyface mesh: vertices that are locations, and others that are faces of up to four of them. The counts that the
// POLYLINE gives are not asked. False when the data are unsound.
bool AddPolyface(const std::vector<PolylineVertex>& vertices, FaceList& faces);

// A mesh of M rows of N vertices, closed in either direction or not. Of a smoothed one the vertices that the smoothing
// made count (there are as many as its densities say), not the control points. A face runs from a vertex to the next in
// its row, on to the next row, and back. False when the data are unsound.
bool AddPolygonMesh(const EntityGroups& polyline, const std::vector<PolylineVertex>& vertices, FaceList& faces);
