// The dictionary form of the current settings.
#include <cmath>

#include "frame/Resources.h"
#include "platform/base/QcDtDictionary.h"
#include "settings/OrvoDataSet.h"

namespace {

const wchar_t* const kSettings = L"CUR_SUNSETDATA";
const wchar_t* const kMark = L"SunStd";

QcDtDictItem* FindOfKind(QcDtDictionary& dict, const wchar_t* key, int kind) {
    QcDtDictItem* item = dict.FindItem(key);
    return item && item->GetType() == kind ? item : nullptr;
}

void PutText(QcDtDictionary& dict, const wchar_t* key, const CString& value, const wchar_t* localName = nullptr) {
    QcDtDictItem* item = dict.FindOrAddItem(key, QcDtKindString);
    if (!item)
        return;
    if (localName)
        item->SetAttributeValue(L"localname", TranslateText(localName));
    item->SetStringValue(value);
}

void PutDouble(QcDtDictionary& dict, const wchar_t* key, double value) {
    if (QcDtDictItem* item = dict.FindOrAddItem(key, QcDtKindDouble))
        item->SetDoubleValue(value);
}

}  // namespace

bool OrvoDataSet::SaveSunDataSetDict(QcDtDictionary* dict) const {
    if (!dict)
        return false;
    dict->RemoveAll();
    QcDtDictionary* settings = dict->FindOrAddDict(kSettings);
    if (!settings)
        return false;
    SaveSettings(*settings);
    SaveStandards(*dict);
    return true;
}

void OrvoDataSet::SaveSettings(QcDtDictionary& settings) const {
    const CString localName = TranslateText(L"当前日照设置数据");
    settings.SetLocalName(localName);
    settings.SetAttributeValue(L"localname", localName);
    PutText(settings, L"CUR_CITY", m_strCurCity, L"当前城市");
    PutDouble(settings, L"CUR_STARTTIME", m_dgStartTime.getDegree());
    PutDouble(settings, L"CUR_ENDTIME", m_dgEndTime.getDegree());
    PutDouble(settings, L"CUR_SPACE", m_dSpace);
    if (QcDtDictItem* item = settings.FindOrAddItem(L"CUR_STDINDEX", QcDtKindInteger))
        item->SetIntValue(m_nCurStd);
    PutText(settings, L"CUR_DATA", m_date.GetDateXmlString());
    PutText(settings, L"ANALYSISED_CITY", JoinCities());
}

CString OrvoDataSet::JoinCities() const {
    CString joined;
    bool isFirst = true;
    for (OrvoCity** slot = m_listCity.GetFirst(); slot; slot = m_listCity.GetNext(slot)) {
        if (!*slot)
            continue;
        if (!isFirst)
            joined += L"-";
        joined += (*slot)->m_strName;
        isFirst = false;
    }
    return joined;
}

void OrvoDataSet::SaveStandards(QcDtDictionary& root) const {
    int index = 0;
    for (OrvoStdSet** slot = m_listStd.GetFirst(); slot; slot = m_listStd.GetNext(slot), ++index) {
        const OrvoStdSet* standard = *slot;
        if (!standard)
            continue;
        if (QcDtDictionary* dict = root.FindOrAddDict(standard->m_strName)) {
            dict->SetAttributeValue(L"localname", TranslateText(standard->m_strName));
            dict->SetAttributeValue(L"date", standard->m_date.GetDateXmlString());
            dict->SetAttributeValue(L"type", kMark);
            standard->SaveToDict(dict);
        }
        if (index == m_nCurStd)
            PutText(root, L"CUR_SUNSETSTD", standard->m_strName, L"当前日照标准");
    }
}

bool OrvoDataSet::LoadSunDataSetDict(QcDtDictionary* dict) {
    m_listCity.Reset();
    m_listStd.Reset();
    if (!dict)
        return false;
    QcDtDictItem* settings = FindOfKind(*dict, kSettings, QcDtKindDictionary);
    if (!settings)
        return false;
    LoadSettings(static_cast<QcDtDictionary&>(*settings));
    LoadStandards(*dict);
    return true;
}

void OrvoDataSet::LoadSettings(QcDtDictionary& settings) {
    int second = 0;
    if (const QcDtDictItem* city = FindOfKind(settings, L"CUR_CITY", QcDtKindString))
        m_strCurCity = city->GetStringValue();
    if (const QcDtDictItem* start = FindOfKind(settings, L"CUR_STARTTIME", QcDtKindDouble)) {
        m_dgStartTime = start->GetDoubleValue();
        m_dgStartTime.getDegree(m_nStartHour, m_nStartMinute, second);
    }
    if (const QcDtDictItem* end = FindOfKind(settings, L"CUR_ENDTIME", QcDtKindDouble)) {
        m_dgEndTime = end->GetDoubleValue();
        m_dgEndTime.getDegree(m_nEndHour, m_nEndMinute, second);
    }
    if (const QcDtDictItem* step = FindOfKind(settings, L"CUR_SPACE", QcDtKindDouble))
        m_dSpace = std::trunc(step->GetDoubleValue());
    if (const QcDtDictItem* index = FindOfKind(settings, L"CUR_STDINDEX", QcDtKindInteger))
        m_nCurStd = index->GetIntValue();
    if (const QcDtDictItem* date = FindOfKind(settings, L"CUR_DATA", QcDtKindString))
        m_date.SetXmlDate(date->GetStringValue());
    if (const QcDtDictItem* cities = FindOfKind(settings, L"ANALYSISED_CITY", QcDtKindString)) {
        CStringArray names;
        CutStrToArr(cities->GetStringValue(), L"-", names);
        for (int i = 0; i < names.GetSize(); ++i)
            m_listCity.Append(new OrvoCity(names.GetAt(i)));
    }
}

void OrvoDataSet::LoadStandards(QcDtDictionary& root) {
    for (int i = 0; i < root.GetCount(); ++i) {
        QcDtDictItem* child = root.GetItem(i);
        if (child->GetAttributeValue(L"type").CompareNoCase(kMark) != 0)
            continue;
        OrvoStdSet* standard = new OrvoStdSet;
        standard->ReadFromDict(child->GetType() == QcDtKindDictionary ? static_cast<QcDtDictionary*>(child) : nullptr);
        m_listStd.Append(standard);
    }
}
