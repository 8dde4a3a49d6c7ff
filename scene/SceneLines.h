// The lines of a drawing: flat entities that give no faces, to orient oneself by. They cast no shadow.
// Why: docs/decisions/scene.md
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/geometry/QcGePoint.h"
#include "platform/host/AcDbObjectId.h"

// A straight line, in the drawing's units.
struct SceneSegment {
    QcGePoint from;  // where it begins
    QcGePoint to;    // where it ends
};

// segments[first] and the count - 1 behind it, of one entity, layer and colour; an INSERT has several of these, all
// with the id of the outermost one, one behind the other.
struct SceneLineRun {
    AcDbObjectId id;          // the entity's, in the drawing that was read
    std::uint32_t layer = 0;  // which of Scene::layers
    int colorIndex = 7;       // as those of SceneEntity
    int trueColor = -1;       // likewise
    std::size_t first = 0;    // of SceneLines::segments
    std::size_t count = 0;    // at least 1
};

// With more than these a picture is grey anyway, and memory at stake.
inline constexpr std::size_t kMostSceneSegments = 1'000'000;

// All of them.
struct SceneLines {
    std::vector<SceneSegment> segments;  // run by run
    std::vector<SceneLineRun> runs;      // in the drawing's order
    QcGePoint least;                     // lowest corner of the box around all of them; the origin when there are none
    QcGePoint most;                      // highest corner of the same box
    std::size_t leftOutCount = 0;        // visible entities and INSERTs that were left out for the number of segments
};
