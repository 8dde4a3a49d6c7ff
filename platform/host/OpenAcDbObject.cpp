// Opens objects of the open drawing, each as what it is: the one place that knows all of their classes.
#include <new>
#include <vector>

#include "platform/host/AcDbDatabase.h"
#include "platform/host/AcDbObject.h"
#include "platform/host/AcDbSymbolTableRecord.h"

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode) {
    object = nullptr;
    if (id.isNull() || mode != AcDb::kForRead)
        return Acad::eInvalidInput;
    const AcDbDatabase* drawing = acdbCurDwg();
    std::vector<DxfGroup> groups;
    if (!drawing || !drawing->GetGroups(id, groups))
        return Acad::eKeyNotFound;
    if (drawing->IsSymbolTableRecord(id))
        object = new (std::nothrow) AcDbSymbolTableRecord(id);
    else
        object = new (std::nothrow) AcDbObject(id);
    return object ? Acad::eOk : Acad::eOutOfMemory;
}
