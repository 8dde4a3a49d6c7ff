// The layers of an open drawing, as a list for people: one row for a layer, in however many spellings its name stands
// in the file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/base/CString.h"

class AcDbDatabase;
struct Scene;

struct LayerRow {
    CString name;      // as it stands where it is met first
    std::wstring key;  // the same for all its spellings
    int rgb = 0;
    bool isVisible = true;  // in the drawing: neither off nor frozen
    std::size_t faceCount = 0;
    std::size_t segmentCount = 0;
    std::vector<std::uint32_t> numbers;  // which of Scene::layers
};

// Those that show something, or would if the drawing had not turned them off; by name.
std::vector<LayerRow> LayerRowsOf(const Scene& scene, const AcDbDatabase& drawing);
