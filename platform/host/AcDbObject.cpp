// Counts and closes the objects of the open drawing that somebody has opened.
#include "platform/host/AcDbObject.h"

#include "platform/host/AcDbDatabase.h"

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
