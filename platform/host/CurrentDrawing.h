// The two calls by which every drawing tells the host that it was read or closed: it may be the host's own.
#pragma once

class AcDbDatabase;

void OnDrawingRead(const AcDbDatabase* drawing);
void OnDrawingClosed(const AcDbDatabase* drawing);
