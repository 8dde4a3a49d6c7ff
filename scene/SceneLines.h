// The lines of a drawing: flat entities that give no faces, to orient oneself by. They cast no shadow.
// Why: docs/decisions/scene.md
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/geometry/QcGePoint.h"
#include "platform/host/AcDbObjectId.h"

struct SceneSegment {
    QcGePoint from, to;
};

// segments[first] and the count - 1 behind it, of one entity, layer and colour; an INSERT has several of these, all
// with the id of the outermost one, one behind the other.
struct SceneLineRun {
    AcDbObjectId id;
    std::uint32_t layer = 0;  // which of Scene::layers
    int colorIndex = 7;       // as those of SceneEntity
    int trueColor = -1;
    std::size_t first = 0;
    std::size_t count = 0;
};

// With more than these a picture is grey anyway, and memory at stake.
inline constexpr std::size_t kMostSceneSegments = 1'000'000;

struct SceneLines {
    std::vector<SceneSegment> segments;
    std::vector<SceneLineRun> runs;  // in the drawing's order
    QcGePoint least, most;           // the box around all of them; both at the origin when there are none
    std::size_t leftOutCount = 0;    // visible entities and INSERTs that were left out for the number of segments
};
