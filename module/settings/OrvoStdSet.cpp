// Defaults and copying of a sunlight standard, and its dictionary form.
#include "settings/OrvoStdSet.h"

#include "frame/Resources.h"
#include "platform/base/QcDtDictionary.h"

namespace {

const wchar_t* const kMark = L"SunStd";
const wchar_t* const kColors = L"SUNCOLORTABLE";

// One item of the dictionary form. Exactly one of the three members is set.
struct Field {
    const wchar_t* key;
    int kind;
    int OrvoStdSet::*integer;
    double OrvoStdSet::*real;
    OrvoDegree OrvoStdSet::*angle;

    void Store(const OrvoStdSet& standard, QcDtDictItem& item) const;
    void Fetch(OrvoStdSet& standard, const QcDtDictItem& item) const;
};

constexpr Field Number(const wchar_t* key, int kind, int OrvoStdSet::*field) {
    return {key, kind, field, nullptr, nullptr};
}
constexpr Field Real(const wchar_t* key, double OrvoStdSet::*field) {
    return {key, QcDtKindDouble, nullptr, field, nullptr};
}
constexpr Field Time(const wchar_t* key, OrvoDegree OrvoStdSet::*field) {
    return {key, QcDtKindDouble, nullptr, nullptr, field};
}

// The items in the order in which they stand in the dictionary.
constexpr Field kFields[] = {
    Number(L"FullWin", QcDtKindFlag, &OrvoStdSet::m_nFullWin),
    Number(L"LimitWidth", QcDtKindFlag, &OrvoStdSet::m_nLimitWidth),
    Number(L"MaxContinue", QcDtKindFlag, &OrvoStdSet::m_nMaxContinue),
    Number(L"BJTime", QcDtKindFlag, &OrvoStdSet::m_nBJTime),
    Number(L"AllMaxContinueTime", QcDtKindFlag, &OrvoStdSet::m_nAllMaxContinueTime),
    Real(L"MaxWidth", &OrvoStdSet::m_dMaxWidth),
    Real(L"MinWidth", &OrvoStdSet::m_dMinWidth),
    Real(L"Space", &OrvoStdSet::m_dSpace),
    Time(L"StartTime", &OrvoStdSet::m_dgStartTime),
    Time(L"EndTime", &OrvoStdSet::m_dgEndTime),
    Number(L"MinValidAngle", QcDtKindInteger, &OrvoStdSet::m_nMinValidAngle),
    Number(L"MinValidTime", QcDtKindInteger, &OrvoStdSet::m_nMinValidTime),
    Number(L"MinMaxValidTime", QcDtKindInteger, &OrvoStdSet::m_nMinMaxValidTime),
    Number(L"MinContinueTime", QcDtKindInteger, &OrvoStdSet::m_nMinContinueTime),
    Number(L"ValidSunType", QcDtKindInteger, &OrvoStdSet::m_nValidSunType),
    Number(L"TotalTimeType", QcDtKindInteger, &OrvoStdSet::m_nTotalTimeType),
};

void Field::Store(const OrvoStdSet& standard, QcDtDictItem& item) const {
    if (integer)
        item.SetIntValue(standard.*integer);
    else if (real)
        item.SetDoubleValue(standard.*real);
    else
        item.SetDoubleValue((standard.*angle).getDegree());
}

void Field::Fetch(OrvoStdSet& standard, const QcDtDictItem& item) const {
    if (integer)
        standard.*integer = item.GetIntValue();
    else if (real)
        standard.*real = item.GetDoubleValue();
    else
        (standard.*angle).setDegree(item.GetDoubleValue());
}

bool IsMarked(const QcDtDictionary& dict) {
    return dict.GetAttributeValue(L"type").CompareNoCase(kMark) == 0;
}

// The date attribute as OrvoDate::SetDate reads it: the first "-" becomes 年, the second 月, and 日 ends it. A third
// "-" stays; one at the very start ends the rewriting.
CString DateTextOf(CString text) {
    for (const wchar_t* unit : {L"年", L"月"}) {
        const int dash = text.Find(L'-');
        if (dash < 1)
            break;
        text.Delete(dash);
        text.Insert(dash, TranslateText(unit));
    }
    return text + TranslateText(L"日");
}

}  // namespace

OrvoStdSet::OrvoStdSet() {
    Reset();
}

OrvoStdSet::OrvoStdSet(const OrvoStdSet& other) {
    *this = other;
}

OrvoStdSet& OrvoStdSet::operator=(const OrvoStdSet& other) {
    m_strName = other.m_strName;
    for (const Field& field : kFields)
        if (field.integer)
            this->*field.integer = other.*field.integer;
        else if (field.real)
            this->*field.real = other.*field.real;
        else
            this->*field.angle = other.*field.angle;
    m_date = other.m_date;
    return *this;
}

void OrvoStdSet::Reset() {
    m_strName = TranslateText(L"上海标准");
    m_nFullWin = 1;
    m_nLimitWidth = 0;
    m_nMaxContinue = ORVO_COUNT_LONGEST;
    m_nBJTime = ORVO_TRUE_SOLAR_TIME;
    m_nAllMaxContinueTime = 0;
    m_dMaxWidth = 2400.0;
    m_dMinWidth = 1200.0;
    m_dSpace = 10.0;
    m_nValidSunType = ORVO_SUN_SHANGHAI;
    m_nMinValidAngle = 0;
    m_nMinValidTime = 0;
    m_nTotalTimeType = ORVO_TOTAL_ALL;
    m_nMinMaxValidTime = 0;
    m_nMinContinueTime = 60;
    m_date.SetDate(TranslateText(L"12月22日"));
}

bool OrvoStdSet::SaveToDict(QcDtDictionary* dict) const {
    if (!dict)
        return false;
    dict->RemoveAll();
    if (!IsMarked(*dict))
        return true;
    dict->SetName(m_strName);
    dict->SetAttributeValue(L"date", m_date.GetDateXmlString());
    if (QcDtDictionary* colors = dict->FindOrAddDict(kColors))
        m_colors.SaveToXml(colors);
    for (const Field& field : kFields) {
        QcDtDictItem* item = dict->FindOrAddItem(field.key, field.kind);
        if (!item)
            continue;
        if (item->GetType() != field.kind)
            return false;
        field.Store(*this, *item);
    }
    return true;
}

bool OrvoStdSet::ReadFromDict(QcDtDictionary* dict) {
    if (!dict || !IsMarked(*dict))
        return false;
    m_strName = dict->GetName();
    m_date.SetDate(DateTextOf(dict->GetAttributeValue(L"date")));
    if (QcDtDictItem* colors = dict->FindItem(kColors))
        m_colors.ReadFromXml(colors);
    for (const Field& field : kFields) {
        const QcDtDictItem* item = dict->FindItem(field.key);
        if (!item)
            continue;
        if (item->GetType() != field.kind)
            return false;
        field.Fetch(*this, *item);
    }
    return true;
}
