// What stands around in an analysis, for pictures of it.
#pragma once

#include "analysis/OccluderSet.h"
#include "platform/base/Api.h"

class AcDbDatabase;
struct AnalysisRequest;
struct PointRequest;

// The faces that cast shadows in the answer to a request about this drawing, made anew. None when the drawing's unit is
// none that lengths are measured in.
//
// To be called on any thread, while nobody changes the drawing. Throws std::bad_alloc, and nothing else.
ORVO_API OccluderSet StandingFaces(const AcDbDatabase& drawing, const AnalysisRequest& request);
ORVO_API OccluderSet StandingFaces(const AcDbDatabase& drawing, const PointRequest& request);
