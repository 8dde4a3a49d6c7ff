// A movable block of memory with its address, for as long as a scope lasts.
#pragma once

#include <cstddef>
#include <utility>

#include "platform/media/GlobalMemory.h"

// Owns the block: unlocks and frees it at the end of the scope. A null handle makes an empty one.
class LockedBlock {
public:
    explicit LockedBlock(HGLOBAL handle)
        : m_hBlock(handle), m_pAddress(handle != nullptr ? GlobalLock(handle) : nullptr) {}
    ~LockedBlock() {
        if (m_hBlock != nullptr) {
            GlobalUnlock(m_hBlock);
            GlobalFree(m_hBlock);
        }
    }
    LockedBlock(const LockedBlock&) = delete;
    LockedBlock& operator=(const LockedBlock&) = delete;

    // Null when there is no block, or it could not be locked.
    void* Address() const { return m_pAddress; }
    // Gives the block up, locked: nobody frees it from now on. Gives its address.
    void* Give() {
        m_hBlock = nullptr;
        return std::exchange(m_pAddress, nullptr);
    }

private:
    HGLOBAL m_hBlock;
    void* m_pAddress;
};
