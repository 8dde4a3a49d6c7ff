// What an analysis has to say beside its answer, in words.
#pragma once

#include <cstddef>
#include <vector>

#include "analysis/WindowAnalysis.h"

// Each remark, and each window's notes with its handle, as one message. Where more than ten say the same of one thing
// each, the others are told together, by their handles.
std::vector<CString> MessagesOf(const AnalysisRequest& request, const AnalysisAnswer& answer);

// One remark as a message.
CString RemarkText(const AnalysisRemark& remark, const AnalysisRequest& request);

// Why there is no answer, unless there are too many points.
CString FailureText(const DayRequest& request, const DayAnswer& answer);

// What was left out on request.
CString LeftOutByScopeText(std::size_t entities);
CString LeftOutByAltitudeText(double degrees);

// The layers on which windows were looked for, as a list for people.
CString WindowLayersText(const AnalysisRequest& request);
