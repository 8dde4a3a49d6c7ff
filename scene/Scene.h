// The scene of a drawing: the faces of its entities, which cast and catch shadows, in the drawing's units.
// Why: docs/decisions/scene.md
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "geometry/QcGeFace3dEX.h"
#include "platform/base/CString.h"
#include "platform/geometry/QcGePoint.h"
#include "platform/host/AcDbObjectId.h"
#include "scene/HiddenEdge.h"
#include "scene/KindCounts.h"
#include "scene/LayerHeight.h"
#include "scene/SceneLines.h"
#include "scene/SceneProgress.h"

class AcDbDatabase;

// Faces of one entity: faces[firstFace] and the faceCount - 1 behind it. All of them, save for an INSERT: what it shows
// has one of these for each run of faces of one layer and colour, all with the id of the outermost INSERT, one behind
// the other.
struct SceneEntity {
    AcDbObjectId id;          // the entity's, in the drawing that was read
    std::uint32_t layer = 0;  // which of Scene::layers
    int colorIndex = 7;       // 1 to 255, by-layer and by-block already resolved
    // 0xRRGGBB where the entity has a true colour of its own, or its layer when the entity's colour is the layer's; it
    // then counts instead of the index. Else -1.
    int trueColor = -1;
    std::size_t firstFace = 0;  // of Scene::faces
    std::size_t faceCount = 0;  // at least 1
};

// The most faces: an INSERT that would bring a scene beyond this is left out.
inline constexpr std::size_t kMostSceneFaces = 5'000'000;

// An INSERT whose block is an external reference, or inserts one.
struct ExternalInsert {
    AcDbObjectId id;   // of the INSERT in the model space
    std::string name;  // the reference's, as it stands in the file; of several the first
};

// What is wanted of a drawing.
struct SceneOptions {
    std::size_t mostFaces = kMostSceneFaces;  // beyond it INSERTs are left out
    std::vector<LayerHeight> heights;         // each layer once; of several for one the first counts
    // Layers whose names begin so, whatever the case, are as good as frozen; empty: none.
    CString unseenLayers = {};
    bool hasLines = false;                          // whether flat entities give lines, which shadows do not need
    std::size_t mostSegments = kMostSceneSegments;  // of lines, beyond which what would bring more is left out
    SceneProgress* progress = nullptr;              // told how far it is, and asked whether to leave off, unless null
    // Asked now and then, in the thread that makes the scene, unless null: once it is false the scene is of no use.
    std::function<bool()> goOn = nullptr;
};

// How one of Scene::layers looks in the drawing.
struct SceneLayer {
    bool isVisible = true;  // neither off nor frozen
    int colorIndex = 7;     // 1 to 255
    int trueColor = -1;     // 0xRRGGBB, which then counts instead of the index; -1 for none
};

// A value: it keeps nothing of the drawing but the ids.
//
// Faces have no material, and their normals are stored and ready: asking for one only reads, so that several threads
// may ask at once. A face is a triangle or a flat convex quadrilateral; no three of its corners are in one line, and no
// two are closer than g_fZero.
struct Scene {
    std::vector<QcGeFace3dEX> faces;    // in the drawing's units, entity by entity
    std::vector<SceneEntity> entities;  // in the drawing's order; only those with faces
    std::vector<std::string> layers;    // names as they stand in the file
    std::vector<SceneLayer> looks;      // one for each of these
    SceneLines lines;                   // only where they were asked for
    QcGePoint least;                    // lowest corner of the box around all faces; the origin when there are none
    QcGePoint most;                     // highest corner of the same box
    // Visible entities of kinds that have no faces, the most frequent first, then by type. An INSERT is one of them
    // when it shows no face.
    std::vector<KindCount> passedOver;
    // How many of these are closed outlines that a height would make bodies, and do not stand upright.
    std::size_t flatOutlineCount = 0;
    std::vector<LayerHeightUse> heights;   // one for each of SceneOptions::heights
    std::size_t faultyCount = 0;           // visible entities of kinds with faces whose data give none
    std::vector<AcDbObjectId> faulty;      // entities of the model space that are, or INSERTs that show some of these
    std::vector<AcDbObjectId> tooLarge;    // every INSERT that was left out for its number of faces
    std::vector<ExternalInsert> external;  // whose content is, at least in part, in another drawing
};

// Reads every visible entity of the drawing's model space. Throws std::bad_alloc, and nothing else.
//
// Faces come of 3DFACE, MESH (the base cage, whatever its subdivision level), POLYLINE that is a polyface or polygon
// mesh, SOLID and TRACE; and with a thickness of LWPOLYLINE, two-dimensional POLYLINE, LINE, ARC and CIRCLE: a wall for
// each segment, and where the outline is closed a bottom and a top. The faces of a closed outline face outwards, the
// walls of an open one to the right of the path; all others have their corners in the drawing's order. VERTEX, ATTRIB
// and SEQEND are parts of the entity before them and not counted. What is invisible (group 60, a layer that is off or
// frozen, paper space) is not counted either.
//
// An INSERT shows the faces of its block, moved, scaled, turned and repeated, and those of the blocks that are inserted
// there; where it mirrors, their corners are turned round. In a block what lies on layer 0 lies on the INSERT's layer,
// and what has its colour by block has the INSERT's colour. A frozen layer hides an INSERT with all of its block, a
// layer that is off only what lies on it. ATTDEF is nothing. What is faulty or passed over in a block counts once,
// however often the block is inserted.
//
// An entity whose data are unsound - a number that cannot be read or lies beyond 1e50, a missing corner, counts that
// are not what follows, an index without a vertex - is faulty as a whole; so is an INSERT without a block, with a scale
// of 0, of a block that leads back to itself or holds blocks more than 64 deep. Faces without an area are left out, and
// so are polygons of more than four corners that cross themselves or have more than 4096 corners; an entity that has no
// face left is faulty. An extruded outline that crosses itself, or has more than 4096 corners with its arcs divided,
// keeps its walls and has neither bottom nor top.
//
// Arcs become chords that stray at most 50 mm from them, 4 to 64 for each arc, by the drawing's unit (UnitOf;
// one that has no millimetres is taken for them). Beyond 250,000 chords in a drawing each further arc has 4.
//
// A layer's height makes bodies of what lies on it and is closed (by its flag, or because it ends where it began)
// without a thickness: LWPOLYLINE, two-dimensional POLYLINE, CIRCLE, SOLID, TRACE, and three-dimensional POLYLINE that
// is level. They are so high in the world, whatever the scales of the INSERTs that show them, and stand upwards along
// their extrusion; one whose extrusion is level goes along that. In a block the layer is the one that the outline lies
// on as it is inserted. As a body an outline is faulty when its data are unsound.
//
// Lines come of what EntityLines.h lists, in INSERTs too, where it gives no faces; by block is there the outermost
// INSERT's colour. An entity or INSERT that would bring them beyond `mostSegments` is left out.
//
// An INSERT that would bring the scene beyond `mostFaces` is left out, and so is each further one once four times as
// many entities and faces of blocks have been worked on, those left out included.
Scene BuildScene(const AcDbDatabase& drawing, const SceneOptions& options = {});
