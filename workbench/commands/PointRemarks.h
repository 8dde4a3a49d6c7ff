// What an analysis of points has to say beside its answer, in words.
#pragma once

#include <vector>

#include "analysis/PointAnalysis.h"

// Each remark as one message. Where more than ten say the same of one thing each, the others are told together, by
// their handles.
std::vector<CString> MessagesOf(const PointRequest& request, const PointAnswer& answer);

// Why there is no answer.
CString PointFailureText(const PointRequest& request, const PointAnswer& answer);
