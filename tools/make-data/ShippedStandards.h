// The named standards that the package ships.
#pragma once

#include "settings/OrvoStdSet.h"

// The standard at an index from 0; false when there is none. docs/standards.md says where each value comes from.
bool GetShippedStandard(int index, OrvoStdSet& standard);
