// Reads an object of the open drawing into a chain of result buffers, and changes an object by such a chain.
#include "platform/host/AdsEntity.h"

#include <new>
#include <unordered_map>
#include <vector>

#include "platform/host/AcDbDatabase.h"
#include "platform/host/EntityEdit.h"

namespace {

constexpr int kEntityName = -1;

AcDbObjectId IdOf(const ads_name entity) {
    return AcDbObjectId::FromOldId(entity[0]);
}

// A chain that grows at its end, and is freed unless it is given away.
class Chain {
public:
    Chain() = default;
    ~Chain() { acutRelRb(m_head); }
    Chain(const Chain&) = delete;
    Chain& operator=(const Chain&) = delete;

    bool Add(resbuf* buffer) {
        if (!buffer)
            return false;
        (m_tail ? m_tail->rbnext : m_head) = buffer;
        m_tail = buffer;
        return true;
    }
    resbuf* Give() {
        resbuf* const head = m_head;
        m_head = nullptr;
        return head;
    }

private:
    resbuf* m_head = nullptr;
    resbuf* m_tail = nullptr;
};

resbuf* MakeNameBuffer(AcDbObjectId id) {
    GroupValue value;
    value.code = kEntityName;
    value.storage = GroupStorage::Name;
    value.name = {id.asOldId(), 0};
    return MakeBuffer(value);
}

const resbuf* FindName(const resbuf* chain) {
    while (chain && chain->restype != kEntityName)
        chain = chain->rbnext;
    return chain;
}

resbuf* GetEntity(const ads_name entity) {
    const AcDbDatabase* drawing = acdbCurDwg();
    std::vector<DxfGroup> groups;
    if (!drawing || !entity || !drawing->GetGroups(IdOf(entity), groups))
        return nullptr;
    Chain chain;
    if (!chain.Add(MakeNameBuffer(IdOf(entity))))
        return nullptr;
    std::unordered_map<int, std::size_t> seen;
    for (const GroupItem& item : GatherGroups(groups)) {
        const std::size_t occurrence = seen[item.code]++;
        if (!chain.Add(MakeBuffer(ReadNamedGroup(*drawing, IdOf(entity), groups, item, occurrence))))
            return nullptr;
    }
    return chain.Give();
}

int ModifyEntity(const resbuf* chain) {
    AcDbDatabase* drawing = acdbCurDwg();
    const resbuf* name = FindName(chain);
    std::vector<DxfGroup> groups;
    if (!drawing || !name || !drawing->GetGroups(IdOf(name->resval.rlname), groups))
        return RTERROR;
    EntityEdit edit(*drawing, IdOf(name->resval.rlname), groups);
    for (const resbuf* buffer = chain; buffer; buffer = buffer->rbnext)
        if (buffer != name && !edit.Take(*buffer))
            return RTREJ;
    return edit.Apply() ? RTNORM : RTREJ;
}

}  // namespace

resbuf* acdbEntGet(const ads_name entity) {
    try {
        return GetEntity(entity);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

int acdbEntMod(const resbuf* chain) {
    try {
        return ModifyEntity(chain);
    } catch (const std::bad_alloc&) {
        return RTERROR;
    }
}
