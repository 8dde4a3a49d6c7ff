// The table from names to items, and the rings of equal names.
#include "platform/base/QcDtNameIndex.h"

#include <unistd.h>

#include <cstdint>
#include <utility>

namespace {

std::uint64_t MakeSalt() {
    std::uint64_t salt = 0x9E3779B97F4A7C15;
    std::uint64_t random = 0;
    if (getentropy(&random, sizeof random) == 0)
        salt ^= random;
    return salt;
}

}  // namespace

std::size_t QcDtNameIndex::NameHash::operator()(std::wstring_view name) const {
    static const std::uint64_t salt = MakeSalt();
    std::uint64_t hash = salt + name.size();
    for (const wchar_t unit : name) {
        hash = (hash ^ static_cast<std::uint32_t>(unit)) * 0xD6E8FEB86659FD93;
        hash ^= hash >> 32;
    }
    return static_cast<std::size_t>(hash);
}

QcDtNameEntry* QcDtNameIndex::Find(std::wstring_view name) const {
    const auto found = m_first.find(name);
    return found == m_first.end() ? nullptr : found->second;
}

void QcDtNameIndex::Add(QcDtNameEntry* item) {
    const auto [entry, isNew] = m_first.try_emplace(item->m_name.View(), item);
    if (isNew) {
        item->m_nextSame = item->m_previousSame = item;
        return;
    }
    // Most arrive in order, behind the last; an item that was renamed may belong anywhere.
    QcDtNameEntry* const first = entry->second;
    QcDtNameEntry* before = first->m_previousSame;
    const bool isNewFirst = item->m_order < first->m_order;
    while (!isNewFirst && before->m_order > item->m_order)
        before = before->m_previousSame;
    item->m_previousSame = before;
    item->m_nextSame = before->m_nextSame;
    before->m_nextSame->m_previousSame = item;
    before->m_nextSame = item;
    if (isNewFirst)
        SetFirst(entry, item);
}

void QcDtNameIndex::Remove(QcDtNameEntry* item) {
    const auto entry = m_first.find(item->m_name.View());
    QcDtNameEntry* const next = item->m_nextSame;
    if (next == item) {
        m_first.erase(entry);
    } else {
        item->m_previousSame->m_nextSame = next;
        next->m_previousSame = item->m_previousSame;
        if (entry->second == item)
            SetFirst(entry, next);
    }
    item->m_nextSame = item->m_previousSame = nullptr;
}

// The key goes with the item, since it is a view of the item's name.
void QcDtNameIndex::SetFirst(Table::iterator entry, QcDtNameEntry* item) {
    auto node = m_first.extract(entry);
    node.key() = item->m_name.View();
    node.mapped() = item;
    m_first.insert(std::move(node));
}
