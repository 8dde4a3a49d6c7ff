// Texts of a drawing that name windows.
// Why: docs/decisions/analysis.md
#pragma once

#include <vector>

#include "analysis/DrawnWindow.h"
#include "platform/geometry/QcGePoint.h"

class AcDbDatabase;
class EntityGroups;

// A text where it was put, in millimetres of the world's coordinates.
struct WindowText {
    CString text;
    Vector3 place;
    std::uint32_t layer = 0;  // as a window's
};

// A TEXT, an MTEXT or an ATTRIB without what formats it, and where it is put as it is drawn: its insertion point; of a
// TEXT or ATTRIB that is justified otherwise than to the left of its line, stretched or fitted, the second point where
// there is one. False for all other entities, an empty text, an ATTRIB that is not shown, and for data that are
// unsound.
bool ReadWindowText(const AcDbDatabase& drawing, const EntityGroups& entity, CString& text, QcGePoint& point);

// Names the windows, with their buildings and flats: by the first of the texts, in their order, that belong to one;
// without any by the handle, and where there is none by its number among the windows ("#3"). A text belongs to the
// nearest window (of several equally near the first) of those on its layer: of rectangles those that it stands before
// or behind, at most `thickness` away; of windows drawn as lines those within 200 mm in plan, at whatever level, and of
// those within a millimetre of the nearest one the nearest in height.
void NameWindows(std::vector<DrawnWindow>& windows, const std::vector<WindowText>& texts, double thickness);
