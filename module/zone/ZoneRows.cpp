// Makes the rows of a grid from a tree of places and the tree from the rows, provinces first, then their cities.
#include "zone/ZoneRows.h"

#include <memory>

#include "calendar/OrvoDegree.h"
#include "frame/Resources.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/base/TextNumber.h"
#include "platform/window/QcUiGrid.h"

namespace {

void FillCity(QcUiGridTreeRow& row, const QcDtDictItem& city) {
    row.SetItemText(ZoneRows::kCity, city.GetName());
    row.SetItemText(ZoneRows::kLongitude, ZoneRows::FormatPosition(city.GetAttributeValue(L"longitude")));
    row.SetItemText(ZoneRows::kLatitude, ZoneRows::FormatPosition(city.GetAttributeValue(L"latitude")));
    row.SetItemText(ZoneRows::kComment, city.GetAttributeValue(L"comment"));
}

void FillProvince(QcUiGridTreeRow& row, const QcDtDictionary& province) {
    row.SetItemText(ZoneRows::kProvince, province.GetName());
    if (province.GetCount() == 0)
        row.AppendChild();
    for (int i = 0; i < province.GetCount(); ++i) {
        const QcDtDictItem& item = *province.GetItem(i);
        QcUiGridTreeRow& child = *row.AppendChild();  // one for every item, so that a province stays a province
        if (item.GetType() == QcDtKindString) {
            child.SetItemText(ZoneRows::kProvince, province.GetName());
            FillCity(child, item);
        } else if (item.GetType() == QcDtKindDictionary) {
            FillProvince(child, static_cast<const QcDtDictionary&>(item));
        }
    }
}

// What is neither a city nor a province is shown as a province without cities.
void FillRoot(QcUiGridTreeRow& row, const QcDtDictItem& item) {
    if (item.GetType() == QcDtKindString)
        FillCity(row, item);
    else if (item.GetType() == QcDtKindDictionary)
        FillProvince(row, static_cast<const QcDtDictionary&>(item));
    else
        FillProvince(row, QcDtDictionary(item.GetName()));
}

void WriteCity(const QcUiGridTreeRow& row, QcDtDictionary& parent) {
    const CString name = row.GetItemText(ZoneRows::kCity);
    auto city = std::make_unique<QcDtDictStringItem>(name);
    city->SetTag(name);
    city->SetAttributeValue(L"type", L"CITY");
    city->SetAttributeValue(L"longitude", ZoneRows::ParsePosition(row.GetItemText(ZoneRows::kLongitude).Trim()));
    city->SetAttributeValue(L"latitude", ZoneRows::ParsePosition(row.GetItemText(ZoneRows::kLatitude).Trim()));
    city->SetAttributeValue(L"comment", row.GetItemText(ZoneRows::kComment));
    if (parent.AppendItem(city.get()))
        city.release();  // the parent's now
}

void WriteProvince(const QcUiGridTreeRow& row, QcDtDictionary& parent) {
    const CString name = row.GetItemText(ZoneRows::kProvince);
    if (name.IsEmpty())
        return;
    auto owned = std::make_unique<QcDtDictionary>(name);
    QcDtDictionary& province = *owned;
    province.SetTag(name);
    province.SetAttributeValue(L"type", L"PROVINCE");
    if (!parent.AppendItem(owned.get()))
        return;
    owned.release();  // the parent's now
    for (int i = 0; i < row.GetChildNum(); ++i) {
        const QcUiGridTreeRow& child = *row.GetChild(i);
        if (child.IsParentRow())
            WriteProvince(child, province);
        else
            WriteCity(child, province);
    }
}

// The number in the two characters behind one word, provided that the next word follows somewhere.
int PartBehind(const CString& text, int word, wchar_t nextWord, int& next) {
    next = word < 0 ? -1 : text.Find(nextWord, word + 1);
    return next < 0 ? 0 : _wtoi(text.Mid(word + 1, 2));
}

bool IsWithin(int value, int maximum) {
    return value >= 0 && value <= maximum;
}

}  // namespace

CString ZoneRows::Placeholder() {
    return TranslateText(L"   度  分  秒");
}

void ZoneRows::Fill(QcUiGrid& grid, const QcDtDictionary& zones) {
    for (int i = 0; i < zones.GetCount(); ++i)
        FillRoot(*grid.AppendRow(), *zones.GetItem(i));
}

void ZoneRows::Write(const QcUiGrid& grid, QcDtDictionary& zones) {
    for (int i = 0; i < grid.GetRowCount(); ++i) {
        const QcUiGridTreeRow& row = *grid.GetRow(i);
        if (row.IsChildRow())
            continue;
        if (row.IsParentRow())
            WriteProvince(row, zones);
        else
            WriteCity(row, zones);
    }
}

CString ZoneRows::FormatPosition(CString decimal) {
    return OrvoDegree(_wtof(decimal.Trim())).Format(true);
}

CString ZoneRows::ParsePosition(const CString& text) {
    constexpr int kMostDegrees = 180;
    constexpr int kMostParts = 60;  // 60 itself is taken on purpose
    const int word = text.Find(L'度');
    if (word < 1)
        return text;
    const int degrees = _wtoi(text.Left(word));
    int minuteWord = -1;
    int secondWord = -1;
    const int minutes = PartBehind(text, word, L'分', minuteWord);
    const int seconds = PartBehind(text, minuteWord, L'秒', secondWord);
    if (!IsWithin(degrees, kMostDegrees) || !IsWithin(minutes, kMostParts) || !IsWithin(seconds, kMostParts))
        return text;
    CString decimal;
    decimal.Format(L"%14.10f", degrees + (minutes + seconds / 60.0) / 60.0);
    return decimal;
}
