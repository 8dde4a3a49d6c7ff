// Which colour is how many hours of sun, and from which one on there are enough.
#pragma once

#include <optional>
#include <vector>

#include "facts/Standard.h"
#include "workbench/view/Plate.h"

// The colours of a standard's table. What is needed stands as a mark before the first colour that is wholly enough: the
// one before it may be so in part. None where no hours are needed.
std::vector<PlateRow> HoursLegend(const std::vector<TimeColor>& colors, std::optional<double> need);
