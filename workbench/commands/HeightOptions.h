// The heights of layers, as they are given on the command line.
#pragma once

#include <vector>

#include "platform/base/CString.h"
#include "scene/LayerHeight.h"

// Reads "LAYER=METRES" texts; the last = parts them, so that a layer may have one in its name. Gives an ExitCode; what
// is wrong has been said then: no layer, metres that are no number above 0 and up to 10000, a layer that is given
// twice.
int ReadHeights(const std::vector<CString>& texts, std::vector<LayerHeight>& heights);
