// The root class names itself; its other operations are for derived classes to fill.
#include "platform/media/CObject.h"

const CRuntimeClass CObject::classCObject = {"CObject", static_cast<int>(sizeof(CObject)), nullptr};

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* other) const {
    for (const CRuntimeClass* known = this; known != nullptr; known = known->m_pBaseClass)
        if (known == other)
            return true;
    return false;
}

CObject::~CObject() = default;

const CRuntimeClass* CObject::GetRuntimeClass() const {
    return &classCObject;
}

void CObject::Serialize(CArchive& /*archive*/) {}

void CObject::AssertValid() const {}

void CObject::Dump(CDumpContext& /*context*/) const {}

bool CObject::IsKindOf(const CRuntimeClass* runtimeClass) const {
    return GetRuntimeClass()->IsDerivedFrom(runtimeClass);
}
