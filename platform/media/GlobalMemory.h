// Blocks of memory that are named by handles and have an address while they are locked.
#pragma once

#include <cstddef>

#include "platform/base/Api.h"
#include "platform/base/FrameworkTypes.h"

// Names a block; null for none.
using HGLOBAL = HANDLE;

inline constexpr UINT GMEM_FIXED = 0x0000;                   // the handle is the address
inline constexpr UINT GMEM_MOVEABLE = 0x0002;                // the address is GlobalLock's
inline constexpr UINT GMEM_ZEROINIT = 0x0040;                // all bytes 0 at first
inline constexpr UINT GHND = GMEM_MOVEABLE | GMEM_ZEROINIT;  // both
inline constexpr UINT GPTR = GMEM_FIXED | GMEM_ZEROINIT;     // both

// A block of that many bytes; null when there is no memory. A fixed block's handle is its address. Blocks belong to the
// caller, who frees them with GlobalFree.
ORVO_API HGLOBAL GlobalAlloc(UINT flags, std::size_t bytes);
// The block's address; null for a handle that names none. Locks count: each one is undone by GlobalUnlock.
ORVO_API void* GlobalLock(HGLOBAL handle);
// Whether the block is still locked afterwards. A fixed block always is.
ORVO_API BOOL GlobalUnlock(HGLOBAL handle);
// Frees the block, locked or not, and gives null; gives the handle back when it names no block.
ORVO_API HGLOBAL GlobalFree(HGLOBAL handle);
// How many bytes a block has; 0 for a handle that names none.
ORVO_API std::size_t GlobalSize(HGLOBAL handle);

// How many blocks there are: for tests that look for leaks.
ORVO_API std::size_t LiveGlobalBlocks();
