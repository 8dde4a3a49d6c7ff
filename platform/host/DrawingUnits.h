// The unit of length of a drawing, and of the host's own.
// Why: docs/decisions/host.md
#pragma once

#include <optional>

#include "platform/base/Api.h"
#include "platform/base/CString.h"

class AcDbDatabase;

// Whether a drawing is in metres, that is whether its header variable $INSUNITS is 6. False for null.
ORVO_API bool IsDrawingInMetres(const AcDbDatabase* drawing);

// A unit of length.
struct DrawingUnit {
    std::optional<double> millimetres;  // of one; none where nobody builds in it
    CString name;                       // of one that has no millimetres, in the interface's language
};

// The unit that the header variable $INSUNITS names: millimetres when it is 0 (none) or missing.
//
//     1 inch 25.4              4 millimetre 1     10 yard 914.4            21 US survey foot 1200000 / 3937
//     2 foot 304.8             5 centimetre 10    14 decimetre 100         22 US survey inch 100000 / 3937
//     3 mile 1609344           6 metre 1000       15 decametre 10000       23 US survey yard 3600000 / 3937
//                              7 kilometre 1e6    16 hectometre 100000     24 US survey mile 6336000000 / 3937
//
// The inch is 25.4 mm by the international agreement of 1959; the survey foot is 1200/3937 m by the Mendenhall order
// of 1893. The rest of the known ones (microinch, mil, angstrom, nanometre, micron, gigametre, astronomical unit, light
// year, parsec) has a name and no millimetres. So has what is no known number: the name is then "$INSUNITS" with it.
ORVO_API DrawingUnit UnitOf(const AcDbDatabase& drawing);

// Nonzero when the drawing that is open in the host (acdbCurDwg) is in metres, that is when its header variable
// $INSUNITS is 6; 0 otherwise, and without a drawing.
ORVO_API int QcDbGetDrawUnit();

// The same as a flag. It is set whenever a drawing becomes the host's, the host's drawing is read anew or goes away.
ORVO_API extern bool g_bMeterUnitDraw;
