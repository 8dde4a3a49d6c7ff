// Chinese names in Latin letters, so that a keyboard without Chinese can find them: the pronunciation (pinyin) without
// tones, and the spellings under which maps elsewhere know a place.
// Why: docs/decisions/base.md
#pragma once

#include <vector>

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// What somebody typed in Latin letters, made comparable: small letters and digits only; blanks, apostrophes, hyphens,
// points and the marks over letters are left out, ü is v ("Xi'an" and "Xī Ān" give "xian"). Empty for a text that holds
// anything else, such as Chinese.
ORVO_API CString FoldLatin(const CString& text);

// How a name may be written, in the form that FoldLatin gives; the pronunciation comes first. Characters with several
// readings are read as in names of places. A letter that is not Chinese stands for itself. Empty for a name that holds
// what no Latin letter stands for.
ORVO_API std::vector<CString> LatinNames(const CString& name);

// Whether one of these begins with a text that FoldLatin gave, which must not be empty.
ORVO_API bool BeginsInLatin(const CString& name, const CString& folded);
