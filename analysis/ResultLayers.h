// The layers that results are drawn on. To an analysis nothing is there: neither windows and areas nor shadows.
// Why: docs/decisions/analysis.md
#pragma once

#include "platform/base/CString.h"

// What the names of all of them begin with, in any case.
inline constexpr const wchar_t* kResultLayers = L"ORVO_RESULT";

inline bool IsResultLayer(CString name) {
    const CString prefix(kResultLayers);
    return name.Trim().Left(prefix.GetLength()).CompareNoCase(prefix) == 0;
}
