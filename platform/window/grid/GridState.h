// How a grid is set up right now. For the sources of this room only.
#pragma once

#include "platform/window/QcUiGridOptions.h"

struct GridState {
    DWORD options = 0;
    int columnWidth = 0;  // of columns for which none is given
    bool hasTitles = true;
    bool isLastColumnFitted = false;
    bool isActiveShown = false;

    bool Has(DWORD option) const { return (options & option) != 0; }
    bool IsReadOnly() const { return Has(QCGRID_READONLY_MASK); }
};
