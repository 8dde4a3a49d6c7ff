// A drawing for as long as it is open in the host.
// Why: docs/decisions/host.md
#pragma once

#include "platform/base/Api.h"

class AcDbDatabase;

// Several may be open one within the other; the newest one goes first.
class ORVO_API HostDrawing {
public:
    // Makes a drawing that has been read the host's (acdbCurDwg), and tells the plug-ins that it was opened.
    explicit HostDrawing(AcDbDatabase& drawing);
    // Tells the plug-ins that it is being closed, while it is still the host's; then the one before is that again.
    ~HostDrawing();
    HostDrawing(const HostDrawing&) = delete;
    HostDrawing& operator=(const HostDrawing&) = delete;

private:
    AcDbDatabase& m_drawing;
    AcDbDatabase* m_before;
};
