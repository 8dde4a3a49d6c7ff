// Opens and closes objects of the open drawing.
#include "platform/host/AcDbObject.h"

#include <new>
#include <vector>

#include "platform/host/AcDbDatabase.h"
#include "platform/host/AcDbSymbolTableRecord.h"

namespace {

constinit int g_openCount = 0;

}  // namespace

AcDbObject::AcDbObject(AcDbObjectId id) : m_id(id) {
    ++g_openCount;
}

AcDbObject::~AcDbObject() {
    --g_openCount;
}

std::uint64_t AcDbObject::handle() const {
    const AcDbDatabase* drawing = acdbCurDwg();
    return drawing ? drawing->GetHandle(m_id) : 0;
}

Acad::ErrorStatus AcDbObject::close() {
    delete this;
    return Acad::eOk;
}

int AcDbObject::OpenCount() {
    return g_openCount;
}

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
