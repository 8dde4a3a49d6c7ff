// Moving values between result buffers and a caller's memory, by their result type.
#pragma once

#include "platform/host/ResBuf.h"

// The bytes of a value of this type as they are copied whole; RTERROR for a number that is no type of a value.
int GetValueSize(int type);

// Puts a caller's value into a buffer; see EntityData.h for its form. A text that the buffer held is given up, not
// freed. A type that is none of a value stores nothing. False without memory for a text.
bool StoreValue(resbuf& buffer, int type, const void* value);

// Copies a buffer's value to a caller's memory. False, with nothing copied, for a type that is none of a value.
bool FetchValue(const resbuf& buffer, int type, void* out);
