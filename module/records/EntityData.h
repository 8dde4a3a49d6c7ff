// One group of an entity's data, to read or to set, and the names of table records.
//
// What a value looks like in the caller's memory follows from the group code (CodeToType):
//
//   code's type              SetEntData reads at `value`             GetEntData writes at `out`
//   RTSTR                    a pointer to wide text                  the text with its terminator
//   RTREAL, RTANG, RTORINT   a double                                a double
//   RTPOINT, RT3DPOINT       three doubles                           three doubles
//   RTSHORT                  a whole number of 16 bits               a whole number of 32 bits
//   RTLONG                   a whole number of 32 bits               a whole number of 32 bits
//   RTENAME, RTPICKS         three 64-bit words, of which the first  two 64-bit words
//                            and the third are the name
//
// Nothing need be aligned. Both functions give RTNORM or RTERROR.
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/host/AcDbObjectId.h"
#include "platform/host/QcAdsEnt.h"

// Sets the first value of the code, or appends one to the entity's data, and writes the entity back. RTERROR for a code
// without a type, an entity without data, and a null value; else RTNORM, whether the drawing took the change or not:
// who needs to know reads the value again. The text that a group held before is given up, not freed.
ORVO_API int SetEntData(const QcAdsEnt& ent, int code, const void* value);

// Copies the first value of the code. RTERROR, with `out` untouched, for a code without a type, an entity without data,
// a null `out`, and a code that the entity lacks (its data, fetched for nothing, is then given up, not freed). The
// buffer of a text has to be large enough: its size is not known here.
ORVO_API int GetEntData(const QcAdsEnt& ent, int code, void* out);

// The name of a record of one of the drawing's tables (a layer, a text style ...). Empty when there is no such object,
// it is no table record, or it has no name.
ORVO_API CString GetSymbolName(AcDbObjectId id);
