// The memory behind the contiguous containers, and the one pair of functions that makes and frees a buffer which a
// caller hands over with Attach or takes with Detach: QcNewBuffer and QcDeleteBuffer. Buffers come from the malloc
// family, so that growing one of trivially copyable elements can happen in place, or from operator new where elements
// ask for more alignment than that family gives; a small head in front of the first element tells how large the block
// is and how many elements live in it. No other way of allocating fits.
#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

// What stands in front of a buffer's first element. The last two are kept only while no container holds the buffer: how
// many elements live in it, and a mark that says so.
struct QcBufferHead {
    static constexpr std::uint32_t kLoose = 0x51634275;  // the mark of a buffer that no container holds

    std::uint64_t m_nBytes;  // of the block behind it
    std::uint32_t m_nBuilt;  // elements
    std::uint32_t m_nMark;   // kLoose, or 0
};

// What the containers do with raw memory. Pointers to the first element stand for the block.
template <class T>
class QcBuffer {
    static constexpr bool kOverAligned = alignof(T) > alignof(std::max_align_t);

public:
    // Moving the bytes is as good as moving the elements.
    static constexpr bool kMovesAsBytes = std::is_trivially_copyable_v<T> && !kOverAligned;
    // An element made from nothing has all its bytes zero.
    static constexpr bool kStartsAsZeros = std::is_arithmetic_v<T> || std::is_enum_v<T> || std::is_pointer_v<T>;

    // The head in front of a buffer of this origin; never null.
    static QcBufferHead* Head(T* pData) {
        return reinterpret_cast<QcBufferHead*>(reinterpret_cast<char*>(pData) - kOffset);
    }

    // The buffer leaves its container, or never had one yet: n elements live in it.
    static void Loosen(T* pData, long n) {
        Head(pData)->m_nBuilt = static_cast<std::uint32_t>(n);
        Head(pData)->m_nMark = QcBufferHead::kLoose;
    }

    // Somebody takes the buffer over. Gives how many elements live in it. Memory of another origin has no head, and
    // what would follow is an abort of the allocator, so debug builds look for the mark first.
    static long Claim(T* pData) {
        assert(IsLoose(pData) &&
               "only a buffer from QcNewBuffer or Detach, which no container holds, can be attached or "
               "go to QcDeleteBuffer");
        Head(pData)->m_nMark = 0;
        return static_cast<long>(Head(pData)->m_nBuilt);
    }

    // Room for n elements, none of them built yet; null when there is no memory for it.
    static T* Allocate(long n) { return AllocateBytes(n, false); }

    // The same, and null likewise, with all bytes zero, of which a large block has touched none yet.
    static T* AllocateZeroed(long n) { return AllocateBytes(n, true); }

    // Gives the memory back; the elements must be gone already. Null is fine.
    static void Free(T* pData) {
        if (pData == nullptr)
            return;
        if constexpr (kOverAligned)
            ::operator delete (static_cast<void*>(Head(pData)), std::align_val_t{kAlign});
        else
            std::free(Head(pData));
    }

    // Makes room for n elements, of which the first nLive live and move along. A block that has the room already stays.
    // Null, with the old buffer untouched, when there is no memory.
    static T* Grow(T* pData, long nLive, long n) {
        const std::size_t bytes = BytesFor(n);
        if (pData != nullptr && bytes != 0 && bytes <= Head(pData)->m_nBytes)
            return pData;
        return GrowBlock(pData, nLive, n);
    }

    // Makes the block fit n elements, in place where the allocator can; the bytes move along. Null, with the old buffer
    // untouched, when there is no memory. Only for elements that move as bytes.
    static T* Resize(T* pData, long n) {
        const std::size_t bytes = BlockFor(n);
        return bytes == 0 ? nullptr : Data(std::realloc(static_cast<void*>(Head(pData)), bytes), bytes);
    }

    // Builds an element as a copy of x in raw memory.
    static void BuildCopy(T* pRaw, const T& x) {
        if constexpr (std::is_copy_constructible_v<T>) {
            ::new (static_cast<void*>(pRaw)) T(x);
        } else {
            ::new (static_cast<void*>(pRaw)) T();
            *pRaw = x;
        }
    }

    // Moves n elements into raw memory; where they were, none is left.
    static void MoveAcross(T* pFrom, long nLive, T* pTo) {
        if constexpr (kMovesAsBytes) {
            if (nLive > 0) {
                std::memcpy(static_cast<void*>(pTo), static_cast<const void*>(pFrom),
                            static_cast<std::size_t>(nLive) * sizeof(T));
            }
        } else {
            for (long i = 0; i < nLive; ++i) {
                if constexpr (std::is_move_constructible_v<T>)
                    ::new (static_cast<void*>(pTo + i)) T(std::move(pFrom[i]));
                else
                    BuildCopy(pTo + i, pFrom[i]);
                std::destroy_at(pFrom + i);
            }
        }
    }

private:
    // In front of foreign memory lies what is nobody's to read. The look happens all the same, unseen by the sanitizer,
    // so that the assertion can have its say.
    [[gnu::no_sanitize_address, gnu::noinline]] static bool IsLoose(T* pData) {
        return Head(pData)->m_nMark == QcBufferHead::kLoose;
    }

    static constexpr std::size_t kAlign = kOverAligned ? alignof(T) : alignof(std::max_align_t);
    static constexpr std::size_t kOffset = sizeof(QcBufferHead) > kAlign ? sizeof(QcBufferHead) : kAlign;
    static_assert(kOffset % kAlign == 0);
    // Blocks above a page come in whole pages, large ones in whole granules, so that small steps of growth ask the
    // allocator only now and then.
    static constexpr std::size_t kPage = 4096;
    static constexpr std::size_t kGranule = 16 * kPage;

#if defined(__SANITIZE_ADDRESS__)
    static constexpr bool kExact = true;  // an overrun by one element must be seen
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
    static constexpr bool kExact = true;
#else
    static constexpr bool kExact = false;
#endif
#else
    static constexpr bool kExact = false;
#endif

    // 0 when n is negative or so large that no block could hold it.
    static std::size_t BytesFor(long n) {
        constexpr std::size_t kMost = static_cast<std::size_t>(std::numeric_limits<std::ptrdiff_t>::max()) / 2;
        if (n < 0 || static_cast<std::size_t>(n) > (kMost - kOffset) / sizeof(T))
            return 0;
        return kOffset + static_cast<std::size_t>(n) * sizeof(T);
    }

    static std::size_t BlockFor(long n) {
        const std::size_t bytes = BytesFor(n);
        if (bytes == 0 || kExact)
            return bytes;
        const std::size_t step = bytes > kGranule ? kGranule : bytes > kPage ? kPage : kAlign;
        return (bytes + step - 1) / step * step;
    }

    static T* Data(void* pBlock, std::size_t bytes) {
        if (pBlock == nullptr)
            return nullptr;
        ::new (pBlock) QcBufferHead{bytes, 0, 0};
        return reinterpret_cast<T*>(static_cast<char*>(pBlock) + kOffset);
    }

    [[gnu::noinline]] static T* GrowBlock(T* pData, long nLive, long n) {
        if (pData == nullptr)
            return Allocate(n);
        if constexpr (kMovesAsBytes) {
            return Resize(pData, n);
        } else {
            T* const pNew = Allocate(n);
            if (pNew != nullptr) {
                MoveAcross(pData, nLive, pNew);
                Free(pData);
            }
            return pNew;
        }
    }

    static T* AllocateBytes(long n, bool bZeroed) {
        const std::size_t bytes = BlockFor(n);
        if (bytes == 0)
            return nullptr;
        if constexpr (kOverAligned)
            return Data(::operator new (bytes, std::align_val_t{kAlign}, std::nothrow), bytes);
        else
            return Data(bZeroed ? std::calloc(1, bytes) : std::malloc(bytes), bytes);
    }
};

// A buffer of n default elements for a container's Attach. Null when n is below 1 or there is no memory. The caller
// owns it until Attach, and frees it with QcDeleteBuffer if it never gets there.
template <class T>
T* QcNewBuffer(long n) {
    T* const pData = n < 1 ? nullptr : QcBuffer<T>::Allocate(n);
    if (pData != nullptr) {
        std::uninitialized_value_construct_n(pData, n);
        QcBuffer<T>::Loosen(pData, n);
    }
    return pData;
}

// Destroys the elements of a buffer that came from QcNewBuffer or from a container's Detach, and frees it. Null is
// fine; memory of any other origin is not (free, delete[] and their kin do not fit either way round).
template <class T>
void QcDeleteBuffer(T* pData) {
    if (pData != nullptr) {
        std::destroy_n(pData, QcBuffer<T>::Claim(pData));
        QcBuffer<T>::Free(pData);
    }
}
