// Storage that is given up on purpose: some operations of the system drop an object that a caller may still refer to,
// and must not free it. Such blocks pass through here, so that a leak checker can tell them from mistakes.
// Why: docs/decisions/module.md
#pragma once

#include <cstddef>

#include "platform/base/Api.h"

// Notes that the block at `storage` will never be freed. Null is ignored. AddressSanitizer's leak check is told to
// ignore the block and what it points to; valgrind needs no suppression, because the block stays in a list that hangs
// on a static pointer of this library and so is "still reachable" (as long as the library is loaded: a program under
// valgrind links the platform rather than opening and closing it). Costs one pointer for each block.
ORVO_API void Abandon(const void* storage);

// How many blocks have been abandoned since the library was loaded.
ORVO_API std::size_t AbandonedCount();
