// Merges two trees of places: provinces by their names, and in each its cities.
#include "zone/ZoneMerge.h"

#include <memory>

#include "platform/base/QcDtDictionary.h"

namespace {

void Add(QcDtDictionary& target, const QcDtDictItem& item) {
    std::unique_ptr<QcDtDictItem> copy(item.Clone());
    if (target.AppendItem(copy.get()))
        copy.release();  // the target's now
}

// A position that the source does not have replaces none.
void UpdateAttribute(QcDtDictItem& city, const QcDtDictItem& source, const wchar_t* name) {
    if (source.HasAttribute(name))
        city.SetAttributeValue(name, source.GetAttributeValue(name));
}

void UpdateCity(QcDtDictItem& city, const QcDtDictItem& source) {
    city.SetTag(source.GetTag());
    city.SetName(source.GetName());
    UpdateAttribute(city, source, L"latitude");
    UpdateAttribute(city, source, L"longitude");
}

}  // namespace

void MergeZones(QcDtDictionary& target, const QcDtDictionary& source) {
    for (int i = 0; i < source.GetCount(); ++i) {
        const QcDtDictItem& item = *source.GetItem(i);
        QcDtDictItem* found = target.FindItem(item.GetName());
        if (found == nullptr)
            Add(target, item);
        else if (found->GetType() != item.GetType())
            continue;
        else if (item.GetType() == QcDtKindDictionary)
            MergeZones(static_cast<QcDtDictionary&>(*found), static_cast<const QcDtDictionary&>(item));
        else if (item.GetType() == QcDtKindString)
            UpdateCity(*found, item);
    }
}
