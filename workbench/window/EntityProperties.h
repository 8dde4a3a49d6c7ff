// What is to be told of an entity that was picked.
#pragma once

#include <vector>

#include "platform/base/CString.h"
#include "platform/host/AcDbObjectId.h"

class AcDbDatabase;
struct Scene;

struct EntityProperty {
    CString name, value;
};

// Handle, type, layer, colour, block, size in metres, and what it shows; in the interface's language. Empty for an
// entity that the drawing or the scene does not have.
std::vector<EntityProperty> PropertiesOf(const AcDbDatabase& drawing, const Scene& scene, AcDbObjectId id);
