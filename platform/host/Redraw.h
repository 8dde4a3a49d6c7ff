// Makes a change in an open drawing.
#pragma once

#include "platform/base/CString.h"
#include "platform/host/ErrorStatus.h"

class DxfDrawing;
struct DrawingChange;

// All of it, or on failure, which the message tells, nothing.
Acad::ErrorStatus RedrawDrawing(DxfDrawing& drawing, const DrawingChange& change, CString& message);
