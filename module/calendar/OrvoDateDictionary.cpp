// Saving and loading a date's tables of terms in a dictionary.
#include <memory>

#include "calendar/OrvoDate.h"
#include "platform/base/QcDtDictionary.h"

namespace {

const wchar_t* const kLeapTerms = L"闰年节气";
const wchar_t* const kCommonTerms = L"常年节气";

void SaveTerms(const QcPDList<OrvoSTerm>& terms, QcDtDictionary& dict) {
    for (OrvoSTerm* const* slot = terms.GetFirst(); slot; slot = terms.GetNext(slot)) {
        const OrvoSTerm* term = *slot;
        if (!term)
            continue;
        QcDtDictItem* item = dict.FindOrAddItem(term->m_strName, QcDtKindString);
        if (!item)
            continue;
        item->SetAttributeValue(L"type", L"Sterm");
        term->SaveToXml(item);
    }
}

bool LoadTerms(QcDtDictionary& dict, QcPDList<OrvoSTerm>& terms) {
    for (int index = 0; index < dict.GetCount(); ++index) {
        auto term = std::make_unique<OrvoSTerm>();
        if (!term->ReadFromXml(dict.GetItem(index)))
            return false;
        terms.Append(term.release());
    }
    return true;
}

}  // namespace

bool OrvoDate::SaveTermDatatoDict(QcDtDictionary* dict) const {
    QcDtDictionary* leapTerms = dict ? dict->FindOrAddDict(kLeapTerms) : nullptr;
    QcDtDictionary* commonTerms = dict ? dict->FindOrAddDict(kCommonTerms) : nullptr;
    if (!leapTerms || !commonTerms)
        return false;
    leapTerms->RemoveAll();
    commonTerms->RemoveAll();
    SaveTerms(m_listTerm, *commonTerms);
    SaveTerms(m_listLeapTerm, *leapTerms);
    return true;
}

bool OrvoDate::LoadTermDataFromDict(QcDtDictionary* dict) {
    QcDtDictionary* leapTerms = dict ? dict->FindDict(kLeapTerms) : nullptr;
    QcDtDictionary* commonTerms = dict ? dict->FindDict(kCommonTerms) : nullptr;
    return leapTerms && commonTerms && LoadTerms(*commonTerms, m_listTerm) && LoadTerms(*leapTerms, m_listLeapTerm);
}
