// Finding standards in the settings.
#pragma once

#include <vector>

#include "platform/base/Api.h"
#include "platform/base/CString.h"

class OrvoDataSet;
class OrvoStdSet;

// The index that stands for no standard.
inline constexpr int kNoStandard = -1;

// In the order of the list.
ORVO_API std::vector<CString> NamesOfStandards(const OrvoDataSet& settings);

// The standard at an index, which may point beyond the list; null for none. It belongs to the settings.
ORVO_API const OrvoStdSet* StandardAt(const OrvoDataSet& settings, int index);
// The standard of a name; null for none.
ORVO_API const OrvoStdSet* FindStandard(const OrvoDataSet& settings, const CString& name);

// Whether the settings have a current standard at all: their index may point beyond the list.
ORVO_API bool HasCurrentStandard(const OrvoDataSet& settings);

// What to say about a name that no standard bears: which names there are that come near, or all of them.
ORVO_API CString UnknownStandardText(const OrvoDataSet& settings, const CString& name);
