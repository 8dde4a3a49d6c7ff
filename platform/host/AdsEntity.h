// Reading and changing the data of one object of the open drawing, as a chain of result buffers.
// Why: docs/decisions/host.md
#pragma once

#include "platform/base/Api.h"
#include "platform/host/AdsTypes.h"
#include "platform/host/ResBuf.h"

// The whole data of an entity, table record or other object of the drawing that is open (acdbCurDwg): a new chain,
// which the caller frees with acutRelRb. Null when no drawing is open, or it has no object of this name.
//
// First comes the name (type -1), then every group of the file in its order, the type being the group code:
//   - texts decoded; numbers as numbers (0 where the file holds none), angles in degrees as the file has them;
//   - an x with the y and z that follow it as one point, missing coordinates 0;
//   - handles of other objects (330-369, 390-399, 480-481) as names: the id, and the second word that was last
//     set while the drawing is open (files do not keep it; 0 before); where no object has the handle, 0 and the handle;
//   - extended data (1000 and above) among them, without an announcing group -3.
ORVO_API resbuf* acdbEntGet(const ads_name entity);

// Writes a chain into the drawing that is open; the object is the one that the first buffer of type -1 names. The chain
// stays the caller's.
//
// The n-th buffer of a type is the object's n-th value of that code. Values that are the same as before keep their
// bytes; changed ones get the shortest text that reads back. Values that the chain lacks stay: nothing is removed, and
// nothing changes its place. What the object does not have yet is appended, in the chain's order: extended data
// (1000 and above) at the end, everything else behind the object's own data, which ends before the first group 101
// (an object embedded in it) or the first extended data.
//
// RTNORM, also when nothing changed. RTERROR when no drawing is open, the chain names no object, or memory runs out.
// RTREJ when the drawing cannot hold the chain: line breaks in texts, handles that are none, numbers that are not
// finite, a z for a point that has none, switches (290-299) that are neither 0 nor 1, names of objects that bear no
// handle, new codes below 0, a new number that would be read as the missing coordinate of the point that it comes to
// stand behind; or when the object's type or handle would change. The drawing is then as it was.
ORVO_API int acdbEntMod(const resbuf* chain);
