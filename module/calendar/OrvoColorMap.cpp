// Saving and loading one row of the colour table as a dictionary item.
#include "calendar/OrvoColorMap.h"

#include "platform/base/QcDtDictionary.h"

namespace {

bool IsColorMap(const QcDtDictItem* item) {
    return item && item->GetAttributeValue(L"type").CompareNoCase(L"colormap") == 0;
}

}  // namespace

bool OrvoColorMap::SaveToXml(QcDtDictItem* item) const {
    if (IsColorMap(item)) {
        item->SetDoubleValue(m_dValue);
        item->SetAttributeInt(L"name", m_nColor);
    }
    return false;
}

bool OrvoColorMap::ReadFromXml(QcDtDictItem* item) {
    if (IsColorMap(item)) {
        m_dValue = item->GetDoubleValue();
        m_nColor = item->GetAttributeInt(L"name");
    }
    return false;
}
