// The sequence of items of a dictionary and the look-up by name. Trees may be of any depth: nothing here recurses.
#include "platform/base/QcDtDictionary.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/base/QcDtNameIndex.h"

namespace {

// Up to this many items a walk over them is as fast as a table, and costs no memory.
constexpr std::size_t kMostItemsWithoutIndex = 16;

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
    if (m_index)
        return ItemOf(m_index->Find(name));
    const auto found = std::find_if(m_items.begin(), m_items.end(),
                                    [name](const QcDtDictItem* item) { return item->m_name.View() == name; });
    return found == m_items.end() ? nullptr : *found;
}

QcDtDictionary* QcDtDictionary::FindFirstDict(std::wstring_view name) const {
    if (!m_index) {
        const auto found = std::find_if(m_items.begin(), m_items.end(), [name](const QcDtDictItem* item) {
            return item->GetType() == QcDtKindDictionary && item->m_name.View() == name;
        });
        return found == m_items.end() ? nullptr : static_cast<QcDtDictionary*>(*found);
    }
    QcDtDictItem* const first = ItemOf(m_index->Find(name));
    QcDtDictItem* item = first;
    while (item && item->GetType() != QcDtKindDictionary)
        item = item->m_nextSame == first ? nullptr : ItemOf(item->m_nextSame);
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
    if (!item || item->m_parent || item == this)
        return false;
    // Only a dictionary that holds something can be one that this dictionary lies in.
    if (item->GetType() == QcDtKindDictionary && static_cast<QcDtDictionary*>(item)->GetCount() > 0) {
        for (const QcDtDictionary* outer = m_parent; outer; outer = outer->m_parent)
            if (outer == item)
                return false;
    }
    Enter(item);
    return true;
}

void QcDtDictionary::Enter(QcDtDictItem* item) {
    m_items.push_back(item);
    item->m_parent = this;
    item->m_order = m_nextOrder++;
    if (m_index) {
        m_index->Add(item);
    } else if (m_items.size() > kMostItemsWithoutIndex) {
        m_index = std::make_unique<QcDtNameIndex>();
        for (QcDtDictItem* each : m_items)
            m_index->Add(each);
    }
}

std::vector<QcDtDictItem*>::iterator QcDtDictionary::PositionOf(const QcDtDictItem* item) {
    return std::lower_bound(m_items.begin(), m_items.end(), item->m_order,
                            [](const QcDtDictItem* each, std::uint64_t order) { return each->m_order < order; });
}

void QcDtDictionary::Detach(QcDtDictItem* item) {
    if (m_index)
        m_index->Remove(item);
    m_items.erase(PositionOf(item));
    item->m_parent = nullptr;
}

void QcDtDictionary::Rename(QcDtDictItem* item, const CString& name) {
    if (item->m_name == name)
        return;
    if (m_index)
        m_index->Remove(item);
    item->m_name = name;
    if (m_index)
        m_index->Add(item);
}

bool QcDtDictionary::RemoveItem(QcDtDictItem* item) {
    if (!item || item->m_parent != this)
        return false;
    Detach(item);
    delete item;
    return true;
}

void QcDtDictionary::RemoveAll() {
    // The items that are to go form a chain through their own links: no allocation, which could fail in a destructor.
    QcDtDictItem* doomed = nullptr;
    const auto doom = [&doomed](QcDtDictionary& dictionary) {
        dictionary.m_index.reset();
        for (QcDtDictItem* item : dictionary.m_items) {
            item->m_parent = nullptr;
            item->m_nextSame = doomed;
            doomed = item;
        }
        dictionary.m_items = {};
    };
    doom(*this);
    while (doomed) {
        QcDtDictItem* const item = doomed;
        doomed = ItemOf(item->m_nextSame);
        if (item->GetType() == QcDtKindDictionary)
            doom(static_cast<QcDtDictionary&>(*item));
        delete item;
    }
}
