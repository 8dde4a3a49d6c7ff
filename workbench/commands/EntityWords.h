// What a drawing says of an entity to people.
#pragma once

#include "platform/base/CString.h"
#include "platform/host/AcDbObjectId.h"

class AcDbDatabase;

// As the drawing has them: to be made printable where they are shown.
struct EntityWords {
    CString type;  // such as LWPOLYLINE
    CString layer;
};

// Empty for an unknown id.
EntityWords WordsOfEntity(const AcDbDatabase& drawing, AcDbObjectId id);
