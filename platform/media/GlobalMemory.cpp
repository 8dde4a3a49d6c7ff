// The table of memory blocks by their handles. A fixed block's handle is its address, which the allocator aligns to 16
// bytes; the handles of movable blocks are numbers that no such address can equal, and none is given twice.
#include "platform/media/GlobalMemory.h"

#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <mutex>
#include <new>

namespace {

struct Freer {
    void operator()(void* memory) const { std::free(memory); }
};

struct Block {
    std::unique_ptr<void, Freer> memory;
    std::size_t bytes = 0;
    std::size_t locks = 0;  // of a movable block
    bool fixed = false;
};

class BlockTable {
public:
    HGLOBAL Add(Block block) {
        const std::lock_guard lock(m_mutex);
        const std::uintptr_t number =
            block.fixed ? reinterpret_cast<std::uintptr_t>(block.memory.get()) : m_nextMovable;
        try {
            m_blocks.emplace(number, std::move(block));
        } catch (const std::bad_alloc&) {
            return nullptr;
        }
        if (number == m_nextMovable)
            m_nextMovable += kStep;
        return reinterpret_cast<HGLOBAL>(number);  // a name, never followed
    }
    void* Lock(HGLOBAL handle) {
        const std::lock_guard lock(m_mutex);
        Block* block = Find(handle);
        if (block == nullptr)
            return nullptr;
        if (!block->fixed)
            ++block->locks;
        return block->memory.get();
    }
    bool Unlock(HGLOBAL handle) {
        const std::lock_guard lock(m_mutex);
        Block* block = Find(handle);
        if (block == nullptr)
            return false;
        if (block->fixed)
            return true;
        if (block->locks > 0)
            --block->locks;
        return block->locks > 0;
    }
    bool Free(HGLOBAL handle) {
        const std::lock_guard lock(m_mutex);
        return m_blocks.erase(reinterpret_cast<std::uintptr_t>(handle)) > 0;
    }
    std::size_t Size(HGLOBAL handle) {
        const std::lock_guard lock(m_mutex);
        const Block* block = Find(handle);
        return block == nullptr ? 0 : block->bytes;
    }
    std::size_t Count() {
        const std::lock_guard lock(m_mutex);
        return m_blocks.size();
    }

private:
    static constexpr std::uintptr_t kStep = 16;

    Block* Find(HGLOBAL handle) {
        const auto found = m_blocks.find(reinterpret_cast<std::uintptr_t>(handle));
        return found == m_blocks.end() ? nullptr : &found->second;
    }

    std::mutex m_mutex;
    std::map<std::uintptr_t, Block> m_blocks;
    std::uintptr_t m_nextMovable = kStep / 2;  // half a step off what the allocator gives
};

// Never destroyed: blocks may be freed by destructors that run late.
BlockTable& Blocks() {
    static BlockTable& blocks = *new BlockTable;
    return blocks;
}

}  // namespace

HGLOBAL GlobalAlloc(UINT flags, std::size_t bytes) {
    if (bytes > static_cast<std::size_t>(PTRDIFF_MAX))
        return nullptr;
    const std::size_t room = bytes == 0 ? 1 : bytes;  // an empty block has an address too
    Block block;
    block.memory.reset((flags & GMEM_ZEROINIT) != 0 ? std::calloc(room, 1) : std::malloc(room));
    if (!block.memory)
        return nullptr;
    block.bytes = bytes;
    block.fixed = (flags & GMEM_MOVEABLE) == 0;
    return Blocks().Add(std::move(block));
}

void* GlobalLock(HGLOBAL handle) {
    return Blocks().Lock(handle);
}

BOOL GlobalUnlock(HGLOBAL handle) {
    return Blocks().Unlock(handle) ? TRUE : FALSE;
}

HGLOBAL GlobalFree(HGLOBAL handle) {
    return Blocks().Free(handle) ? nullptr : handle;
}

std::size_t GlobalSize(HGLOBAL handle) {
    return Blocks().Size(handle);
}

std::size_t LiveGlobalBlocks() {
    return Blocks().Count();
}
