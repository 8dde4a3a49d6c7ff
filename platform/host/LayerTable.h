// The layers of a drawing, and new ones in it.
#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "platform/base/CString.h"

class DxfDrawing;
class DxfObjectMaker;
class DxfPlaces;
class DxfRevision;
struct NewLayer;

// A name as it is compared: names of layers differ in more than the case of their letters.
std::wstring FoldedName(const CString& name);

// The name of a record of a table, as text.
CString NameOfRecord(const DxfDrawing& drawing, std::size_t entry);

// The names of all layers, folded. Layer 0 is always among them.
std::set<std::wstring> LayersOf(const DxfDrawing& drawing);

// Puts into the revision those of the layers that the drawing does not have, with their line type, and with tables and
// a section for them where those are missing. The names must be sound.
void MakeLayers(const DxfDrawing& drawing, const DxfPlaces& places, const std::vector<NewLayer>& layers,
                DxfObjectMaker& maker, DxfRevision& revision);
