// Which sides of a closed body's faces are outside.
#pragma once

struct OccluderSet;

// Tells it of the faces of all bodies that are one entity. It stays unknown where a face has the body on both sides or
// on neither (faces drawn twice).
void TellOutsides(OccluderSet& set);
