// The unit of length of the host's drawing.
#pragma once

#include "platform/base/Api.h"

class AcDbDatabase;

// Whether a drawing is in metres, that is whether its header variable $INSUNITS is 6. False for null.
ORVO_API bool IsDrawingInMetres(const AcDbDatabase* drawing);

// Nonzero when the drawing that is open in the host (acdbCurDwg) is in metres, that is when its header variable
// $INSUNITS is 6; 0 otherwise, and without a drawing.
ORVO_API int QcDbGetDrawUnit();

// The same as a flag. It is set whenever a drawing becomes the host's, the host's drawing is read anew or goes away.
ORVO_API extern bool g_bMeterUnitDraw;
