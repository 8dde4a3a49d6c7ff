// What a window's name tells: 3-402-1 is the window 1 of the flat 402 in the building 3.
#pragma once

#include "platform/base/CString.h"

// The last part is the window, the one before it the flat, everything before that the building; empty where there is
// no such part.
inline CString FlatOf(const CString& name) {
    const int window = name.ReverseFind(L'-');
    const CString rest = window < 0 ? CString() : name.Left(window);
    return rest.Mid(rest.ReverseFind(L'-') + 1);
}
inline CString BuildingOf(const CString& name) {
    const int window = name.ReverseFind(L'-');
    const CString rest = window < 0 ? CString() : name.Left(window);
    const int flat = rest.ReverseFind(L'-');
    return flat < 0 ? CString() : rest.Left(flat);
}
