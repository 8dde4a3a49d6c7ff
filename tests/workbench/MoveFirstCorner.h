// A change to the drawing that the host has open, as an analysis makes one.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "platform/host/AcDbDatabase.h"

// Sets the x of the first entity's first corner to 1.5.
inline void MoveFirstCorner() {
    ASSERT_NE(acdbCurDwg(), nullptr);
    AcDbDatabase& drawing = *acdbCurDwg();
    std::vector<DxfGroup> groups;
    ASSERT_TRUE(drawing.GetGroups(drawing.GetEntityId(0), groups));
    for (DxfGroup& group : groups)
        if (group.code == 10)
            group.value = "1.5";
    ASSERT_TRUE(drawing.SetGroups(drawing.GetEntityId(0), groups));
}
