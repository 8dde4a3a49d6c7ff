// The sequence of items of a dictionary and the look-up by name. Trees may be of any depth: nothing here recurses.
#include "platform/base/QcDtDictionary.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/base/QcDtNameIndex.h"

namespace {

// Up to this many items a walk over them is as fast as a table, and costs no memory.
constexpr std::size_t kMostItemsWithoutIndex = 16;

std::wstring_view ViewOf(const wchar_t* text) {
    return text ? std::wstring_view(text) : std::wstring_view();
}

}  // namespace

QcDtDictionary::QcDtDictionary(const wchar_t* name, const wchar_t* localName) : QcDtDictItem(name) {
    SetLocalName(localName);
}

QcDtDictionary::~QcDtDictionary() {
    RemoveAll();
}

QcDtDictionary* QcDtDictionary::Clone() const {
    auto copy = std::make_unique<QcDtDictionary>();
    copy->CopyNamesAndAttributes(*this);
    std::vector<std::pair<const QcDtDictionary*, QcDtDictionary*>> open = {{this, copy.get()}};
    while (!open.empty()) {
        const auto [from, to] = open.back();
        open.pop_back();
        to->m_items.reserve(from->m_items.size());
        for (const QcDtDictItem* item : from->m_items) {
            if (item->GetType() != QcDtKindDictionary) {
                to->AppendItem(item->Clone());
                continue;
            }
            auto* const inner = new QcDtDictionary;
            inner->CopyNamesAndAttributes(*item);
            to->AppendItem(inner);
            open.emplace_back(static_cast<const QcDtDictionary*>(item), inner);
        }
    }
    return copy.release();
}

QcDtDictItem* QcDtDictionary::GetItem(int index) {
    return index < 0 || index >= GetCount() ? nullptr : m_items[static_cast<std::size_t>(index)];
}

const QcDtDictItem* QcDtDictionary::GetItem(int index) const {
    return index < 0 || index >= GetCount() ? nullptr : m_items[static_cast<std::size_t>(index)];
}

QcDtDictItem* QcDtDictionary::ItemOf(QcDtNameEntry* entry) {
    return static_cast<QcDtDictItem*>(entry);
}

QcDtDictItem* QcDtDictionary::FindFirst(std::wstring_view name) const {
    if (m_pIndex)
        return ItemOf(m_pIndex->Find(name));
    const auto found = std::find_if(m_items.begin(), m_items.end(),
                                    [name](const QcDtDictItem* item) { return item->m_strName.View() == name; });
    return found == m_items.end() ? nullptr : *found;
}

QcDtDictionary* QcDtDictionary::FindFirstDict(std::wstring_view name) const {
    if (!m_pIndex) {
        const auto found = std::find_if(m_items.begin(), m_items.end(), [name](const QcDtDictItem* item) {
            return item->GetType() == QcDtKindDictionary && item->m_strName.View() == name;
        });
        return found == m_items.end() ? nullptr : static_cast<QcDtDictionary*>(*found);
    }
    QcDtDictItem* const first = ItemOf(m_pIndex->Find(name));
    QcDtDictItem* item = first;
    while (item && item->GetType() != QcDtKindDictionary)
        item = item->m_pNextSame == first ? nullptr : ItemOf(item->m_pNextSame);
    return static_cast<QcDtDictionary*>(item);
}

QcDtDictItem* QcDtDictionary::FindItem(const wchar_t* name) {
    return FindFirst(ViewOf(name));
}
const QcDtDictItem* QcDtDictionary::FindItem(const wchar_t* name) const {
    return FindFirst(ViewOf(name));
}
QcDtDictionary* QcDtDictionary::FindDict(const wchar_t* name) {
    return FindFirstDict(ViewOf(name));
}
const QcDtDictionary* QcDtDictionary::FindDict(const wchar_t* name) const {
    return FindFirstDict(ViewOf(name));
}

QcDtDictItem* QcDtDictionary::FindOrAddItem(const wchar_t* name, int kind) {
    if (QcDtDictItem* item = FindItem(name))
        return item;
    QcDtDictItem* const item = QcDtDictItem::Create(kind, name);
    if (item)
        Enter(item);
    return item;
}

QcDtDictionary* QcDtDictionary::FindOrAddDict(const wchar_t* name) {
    if (QcDtDictionary* dictionary = FindDict(name))
        return dictionary;
    if (FindItem(name))
        return nullptr;
    auto* const dictionary = new QcDtDictionary(name);
    Enter(dictionary);
    return dictionary;
}

bool QcDtDictionary::AppendItem(QcDtDictItem* item) {
    if (!item || item->m_pParent || item == this)
        return false;
    // Only a dictionary that holds something can be one that this dictionary lies in.
    if (item->GetType() == QcDtKindDictionary && static_cast<QcDtDictionary*>(item)->GetCount() > 0) {
        for (const QcDtDictionary* outer = m_pParent; outer; outer = outer->m_pParent)
            if (outer == item)
                return false;
    }
    Enter(item);
    return true;
}

void QcDtDictionary::Enter(QcDtDictItem* item) {
    m_items.push_back(item);
    item->m_pParent = this;
    item->m_nOrder = m_nNextOrder++;
    if (m_pIndex) {
        m_pIndex->Add(item);
    } else if (m_items.size() > kMostItemsWithoutIndex) {
        m_pIndex = std::make_unique<QcDtNameIndex>();
        for (QcDtDictItem* each : m_items)
            m_pIndex->Add(each);
    }
}

std::vector<QcDtDictItem*>::iterator QcDtDictionary::PositionOf(const QcDtDictItem* item) {
    return std::lower_bound(m_items.begin(), m_items.end(), item->m_nOrder,
                            [](const QcDtDictItem* each, std::uint64_t order) { return each->m_nOrder < order; });
}

void QcDtDictionary::Detach(QcDtDictItem* item) {
    if (m_pIndex)
        m_pIndex->Remove(item);
    m_items.erase(PositionOf(item));
    item->m_pParent = nullptr;
}

void QcDtDictionary::Rename(QcDtDictItem* item, const CString& name) {
    if (item->m_strName == name)
        return;
    if (m_pIndex)
        m_pIndex->Remove(item);
    item->m_strName = name;
    if (m_pIndex)
        m_pIndex->Add(item);
}

bool QcDtDictionary::RemoveItem(QcDtDictItem* item) {
    if (!item || item->m_pParent != this)
        return false;
    Detach(item);
    delete item;
    return true;
}

void QcDtDictionary::RemoveAll() {
    // The items that are to go form a chain through their own links: no allocation, which could fail in a destructor.
    QcDtDictItem* doomed = nullptr;
    const auto doom = [&doomed](QcDtDictionary& dictionary) {
        dictionary.m_pIndex.reset();
        for (QcDtDictItem* item : dictionary.m_items) {
            item->m_pParent = nullptr;
            item->m_pNextSame = doomed;
            doomed = item;
        }
        dictionary.m_items = {};
    };
    doom(*this);
    while (doomed) {
        QcDtDictItem* const item = doomed;
        doomed = ItemOf(item->m_pNextSame);
        if (item->GetType() == QcDtKindDictionary)
            doom(static_cast<QcDtDictionary&>(*item));
        delete item;
    }
}
