// Where the value of a group lies in a result buffer.
#pragma once

#include "platform/base/Api.h"

// A member of ads_u_val.
enum class GroupStorage {
    Text,    // rstring
    Real,    // rreal
    Point,   // rpoint: x, with the y and z groups that follow it
    Short,   // rint
    Long,    // rlong
    Int64,   // mnInt64
    Name,    // rlname
    Binary,  // rbinary
};

// The member of a buffer's value that a group code, or a result type of 5000 and above, uses. A code of the file of
// which nothing is known keeps its value as the text that it is; other numbers have no value (Long, so that nothing is
// freed).
ORVO_API GroupStorage StorageOf(int type);

// Whether the text of a group with this code is a handle: 1 to 16 hexadecimal digits, and nothing else.
ORVO_API bool HoldsHandle(int code);
