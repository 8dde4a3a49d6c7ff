// Reading, and telling what came with it.
#include "workbench/commands/DrawingFile.h"

#include "platform/host/AcDbDatabase.h"
#include "platform/host/ExitCode.h"
#include "workbench/terminal/Complaint.h"

int ReadDrawing(AcDbDatabase& drawing, const CString& file) {
    CString message;
    if (drawing.dxfIn(file, &message) != Acad::eOk)
        return Refuse(kExitFailed, message);
    if (const CString warning = drawing.GetReadWarning(); !warning.IsEmpty())
        Complain(warning);
    return kExitOk;
}
