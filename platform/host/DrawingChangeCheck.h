// What keeps a change from being made in a drawing.
#pragma once

#include "platform/base/CString.h"
#include "platform/host/ErrorStatus.h"

class DxfDrawing;
struct DrawingChange;

// eOk; else the cause in `message`: eInvalidInput (a record is not sound), eKeyNotFound (an entity on a layer that is
// neither in the drawing nor in the change).
Acad::ErrorStatus CheckDrawingChange(const DxfDrawing& drawing, const DrawingChange& change, CString& message);
