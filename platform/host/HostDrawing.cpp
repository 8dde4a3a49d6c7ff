// Opening and closing drawings in the host.
#include "platform/host/HostDrawing.h"

#include "platform/host/AcDbDatabase.h"
#include "platform/host/HostMessages.h"
#include "platform/host/ModuleLoader.h"

HostDrawing::HostDrawing(AcDbDatabase& drawing) : m_drawing(drawing), m_before(acdbCurDwg()) {
    acdbSetCurDwg(&m_drawing);
    SendToPlugIns(AcRx::kLoadDwgMsg);
}

HostDrawing::~HostDrawing() {
    acdbSetCurDwg(&m_drawing);
    SendToPlugIns(AcRx::kUnloadDwgMsg);
    acdbSetCurDwg(m_before);
}
