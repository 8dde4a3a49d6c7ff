// Names of table records.
#include "platform/host/AcDbSymbolTableRecord.h"

#include <algorithm>
#include <vector>

#include "platform/host/AcDbDatabase.h"

AcDbSymbolTableRecord::~AcDbSymbolTableRecord() = default;

AcDbSymbolTableRecord* AcDbSymbolTableRecord::cast(AcRxObject* object) {
    return dynamic_cast<AcDbSymbolTableRecord*>(object);
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(const wchar_t*& name) const {
    constexpr int kName = 2;
    name = nullptr;
    const AcDbDatabase* drawing = acdbCurDwg();
    std::vector<DxfGroup> groups;
    if (!drawing || !drawing->GetGroups(objectId(), groups))
        return Acad::eKeyNotFound;
    const auto group = std::find_if(groups.begin(), groups.end(), [](const DxfGroup& g) { return g.code == kName; });
    if (group == groups.end())
        return Acad::eKeyNotFound;
    m_name = drawing->Decode(group->value);
    name = m_name;
    return Acad::eOk;
}
