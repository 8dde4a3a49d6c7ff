// The groups of an object, gathered into the values that callers see: the x, y and z of a point are one.
// Why: docs/decisions/host.md
#pragma once

#include <cstddef>
#include <vector>

#include "platform/base/Api.h"
#include "platform/host/DxfGroup.h"

// One value: the group at `first`, and for a point the y and z groups that follow it.
struct GroupItem {
    int code;           // of the first group
    std::size_t first;  // index in the object's groups
    std::size_t count;  // 1 to 3
};

// All groups in their order. A y follows its x at once, with the code 10 above, and a z its y; coordinates that stand
// elsewhere are values of their own. So 38 is the z of a point 18 that it follows, and everywhere else the elevation.
ORVO_API std::vector<GroupItem> GatherGroups(const std::vector<DxfGroup>& groups);
