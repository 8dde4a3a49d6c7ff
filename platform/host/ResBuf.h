// Result buffers: the linked values in which the host hands out and takes the data of an entity.
#pragma once

#include "platform/base/Api.h"
#include "platform/host/AdsTypes.h"

// Bytes, at most 32,767 of them.
struct ads_binary {
    std::int16_t clen;  // how many
    char* buf;          // where they lie; null for none
};

// Which member counts follows from the buffer's type; see StorageOf() in GroupStorage.h.
union ads_u_val {
    ads_real rreal;        // a number, or an angle in the file's degrees
    ads_point rpoint;      // a point
    std::int16_t rint;     // a whole number of 16 bits, or a switch
    wchar_t* rstring;      // owned by the buffer: from acutNewString
    ads_name rlname;       // the name of an object
    std::int32_t rlong;    // a whole number of 32 bits
    std::int64_t mnInt64;  // a whole number of 64 bits
    ads_binary rbinary;    // buf is owned by the buffer: from std::malloc
};

// One value of a chain. In the data of an entity the type is the group code.
struct resbuf {
    resbuf* rbnext;        // null at the end
    std::int16_t restype;  // a group code, or a result type such as RTREAL
    ads_u_val resval;      // the value
};

// A new buffer of this type: its value all zero, its link null. Null when the type is no 16-bit number, or there is no
// memory. The caller owns it.
ORVO_API resbuf* acutNewRb(int type);

// Frees a chain: every buffer from this one on, with the texts and bytes that they hold. Gives RTNORM, also for null.
ORVO_API int acutRelRb(resbuf* chain);

// Copies a text (null: an empty one) to storage that a buffer may own, in `output`. RTERROR, with null in `output`,
// when there is no memory.
ORVO_API int acutNewString(const wchar_t* input, wchar_t*& output);

// Frees a text of acutNewString and sets the pointer to null. RTERROR when it was null already.
ORVO_API int acutDelString(wchar_t*& text);
