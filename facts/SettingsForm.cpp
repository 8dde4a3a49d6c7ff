// Compares and copies the dictionary forms of settings and standards, value by value.
#include "facts/SettingsForm.h"

#include <cmath>
#include <string_view>

#include "settings/OrvoDataSet.h"

namespace {

const wchar_t* const kMark = L"SunStd";
const wchar_t* const kDate = L"date";

bool IsSameValue(const QcDtDictItem& left, const QcDtDictItem& right) {
    const double a = left.GetDoubleValue();
    const double b = right.GetDoubleValue();
    return left.GetIntValue() == right.GetIntValue() && (a == b || (std::isnan(a) && std::isnan(b))) &&
           left.GetStringValue() == right.GetStringValue();
}

bool HasSameAttributes(const QcDtDictItem& left, const QcDtDictItem& right) {
    if (left.GetAttributeCount() != right.GetAttributeCount())
        return false;
    for (int i = 0; i < left.GetAttributeCount(); ++i)
        if (left.GetAttributeName(i) != right.GetAttributeName(i) ||
            left.GetAttributeText(i) != right.GetAttributeText(i))
            return false;
    return true;
}

bool HasSameItems(const QcDtDictionary& left, const QcDtDictionary& right) {
    if (left.GetCount() != right.GetCount())
        return false;
    for (int i = 0; i < left.GetCount(); ++i)
        if (!IsSameItem(left.GetItem(i), right.GetItem(i)))
            return false;
    return true;
}

bool IsDate(const StandardField& field) {
    return std::wstring_view(field.key) == kDate;
}

}  // namespace

const std::vector<StandardField>& StandardFields() {
    static const std::vector<StandardField> fields = {
        {kDate, "date", L"分析日期"},
        {L"SUNCOLORTABLE", "colors", L"颜色"},
        {L"FullWin", "fullWindow", L"日照窗"},
        {L"LimitWidth", "limitWidth", L"限定宽度"},
        {L"MaxContinue", "maxContinue", L"判断依据"},
        {L"BJTime", "beijingTime", L"时间基准"},
        {L"AllMaxContinueTime", "allMaxContinueTime", L"累计超过下限的时间段"},
        {L"MaxWidth", "maxWidth", L"最大宽度"},
        {L"MinWidth", "minWidth", L"最小宽度"},
        {L"Space", "step", L"计算精度"},
        {L"StartTime", "start", L"分析时段的开始"},
        {L"EndTime", "end", L"分析时段的结束"},
        {L"MinValidAngle", "minValidAngle", L"最小有效角"},
        {L"MinValidTime", "minValidTime", L"有效时间段下限"},
        {L"MinMaxValidTime", "minMaxValidTime", L"最长连续时间段下限"},
        {L"MinContinueTime", "minContinueTime", L"累计的下限"},
        {L"ValidSunType", "validSunType", L"有效日照规定"},
        {L"TotalTimeType", "totalTimeType", L"累计方式"},
    };
    return fields;
}

std::unique_ptr<QcDtDictionary> FormOf(const OrvoDataSet& settings) {
    auto form = std::make_unique<QcDtDictionary>();
    settings.SaveSunDataSetDict(form.get());
    return form;
}

std::unique_ptr<QcDtDictionary> FormOf(const OrvoStdSet& standard) {
    auto form = std::make_unique<QcDtDictionary>(standard.m_strName);
    form->SetAttributeValue(L"type", kMark);
    standard.SaveToDict(form.get());
    return form;
}

std::vector<const QcDtDictionary*> StandardsIn(const QcDtDictionary& settings) {
    std::vector<const QcDtDictionary*> standards;
    for (int i = 0; i < settings.GetCount(); ++i) {
        const QcDtDictItem& item = *settings.GetItem(i);
        if (item.GetType() == QcDtKindDictionary && item.GetAttributeValue(L"type").CompareNoCase(kMark) == 0)
            standards.push_back(static_cast<const QcDtDictionary*>(&item));
    }
    return standards;
}

const QcDtDictionary* FindStandardIn(const QcDtDictionary& settings, const CString& name) {
    for (const QcDtDictionary* standard : StandardsIn(settings))
        if (standard->GetName() == name)
            return standard;
    return nullptr;
}

bool IsSameItem(const QcDtDictItem* left, const QcDtDictItem* right) {
    if (!left || !right)
        return left == right;
    if (left->GetType() != right->GetType() || left->GetName() != right->GetName() ||
        !HasSameAttributes(*left, *right) || !IsSameValue(*left, *right))
        return false;
    return left->GetType() != QcDtKindDictionary ||
           HasSameItems(static_cast<const QcDtDictionary&>(*left), static_cast<const QcDtDictionary&>(*right));
}

std::unique_ptr<QcDtDictItem> FieldValue(const QcDtDictionary& standard, const StandardField& field) {
    if (IsDate(field)) {
        auto date = std::make_unique<QcDtDictStringItem>(kDate);
        date->SetStringValue(standard.GetAttributeValue(kDate));
        return date;
    }
    const QcDtDictItem* item = standard.FindItem(field.key);
    return std::unique_ptr<QcDtDictItem>(item ? item->Clone() : nullptr);
}

void SetFieldValue(QcDtDictionary& standard, const StandardField& field, const QcDtDictItem* value) {
    if (!value)
        return;
    if (IsDate(field)) {
        standard.SetAttributeValue(kDate, value->GetStringValue());
        return;
    }
    standard.RemoveItem(standard.FindItem(field.key));
    standard.AppendItem(value->Clone());
}

std::vector<const StandardField*> DifferingFields(const OrvoStdSet& left, const OrvoStdSet& right) {
    const std::unique_ptr<QcDtDictionary> leftForm = FormOf(left);
    const std::unique_ptr<QcDtDictionary> rightForm = FormOf(right);
    std::vector<const StandardField*> fields;
    for (const StandardField& field : StandardFields())
        if (!IsSameItem(FieldValue(*leftForm, field).get(), FieldValue(*rightForm, field).get()))
            fields.push_back(&field);
    return fields;
}
