// The data of an INSERT: which block, where, how large, and how often.
#pragma once

#include <string>

#include "platform/geometry/QcGePoint.h"
#include "scene/ObjectCoordinates.h"
#include "scene/Placement.h"

class EntityGroups;

struct BlockInsert {
    std::string name;  // of the block, as it stands in the file
    QcGePoint point;   // in object coordinates
    QcGePoint scale{1.0, 1.0, 1.0};
    double degrees = 0.0;
    int columns = 1;
    int rows = 1;
    double columnStep = 0.0;
    double rowStep = 0.0;
    ObjectCoordinates axes;

    double CountCopies() const { return static_cast<double>(columns) * static_cast<double>(rows); }
    // Where the copy in a column and row puts a block with this base point.
    Placement At(const QcGePoint& base, int column, int row) const;
};

// False when the data are unsound: no name, no point, a number that cannot be read, a scale of 0, less than no columns
// or rows (none is one, as programs write it), an extrusion without a direction.
bool ReadInsert(const EntityGroups& entity, BlockInsert& insert);
