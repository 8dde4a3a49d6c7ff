// Names that somebody may have meant.
#pragma once

#include <string>
#include <vector>

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// Up to three of the candidates that lie nearest to the name, nearest first and in their own order where equally near:
// those that hold the name or are held by it, then those of which at most half the characters differ (of the longer
// of the two). How far two names lie apart is how many characters have to be put in, left out or replaced to turn one
// into the other; ASCII letters count without case, and only the first 100 characters of each count. A name that
// several candidates share is given once.
ORVO_API std::vector<CString> NearestNames(const CString& name, const std::vector<CString>& candidates);

// The names with the separator of the language between them, made printable.
ORVO_API CString JoinNames(const std::vector<CString>& names);
