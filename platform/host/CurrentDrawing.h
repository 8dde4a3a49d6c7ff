// What a drawing tells the host when it may be the host's own.
#pragma once

class AcDbDatabase;

void OnDrawingRead(const AcDbDatabase* drawing);
void OnDrawingClosed(const AcDbDatabase* drawing);
