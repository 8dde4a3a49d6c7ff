// The unit of the host's drawing, and the flag that follows it.
#include "platform/host/DrawingUnits.h"

#include <charconv>
#include <string_view>
#include <vector>

#include "platform/host/AcDbDatabase.h"
#include "platform/host/CurrentDrawing.h"
#include "platform/host/DxfScanner.h"

bool g_bMeterUnitDraw = false;

namespace {

AcDbDatabase* g_drawing = nullptr;
// The flag that others see is theirs to change too.
bool g_isInMetres = false;

constexpr int kMetres = 6;
constexpr int kIntegerCode = 70;

void LookAtUnit() {
    g_isInMetres = IsDrawingInMetres(g_drawing);
    g_bMeterUnitDraw = g_isInMetres;
}

}  // namespace

bool IsDrawingInMetres(const AcDbDatabase* drawing) {
    std::vector<DxfGroup> groups;
    if (!drawing || !drawing->GetHeaderVariable("$INSUNITS", groups))
        return false;
    for (const DxfGroup& group : groups) {
        if (group.code != kIntegerCode)
            continue;
        const std::string_view digits = TrimDxfValue(group.value);
        int unit = 0;
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), unit);
        return error == std::errc() && end == digits.data() + digits.size() && unit == kMetres;
    }
    return false;
}

AcDbDatabase* acdbCurDwg() {
    return g_drawing;
}

void acdbSetCurDwg(AcDbDatabase* drawing) {
    g_drawing = drawing;
    LookAtUnit();
}

void OnDrawingRead(const AcDbDatabase* drawing) {
    if (drawing == g_drawing)
        LookAtUnit();
}

void OnDrawingClosed(const AcDbDatabase* drawing) {
    if (drawing == g_drawing)
        acdbSetCurDwg(nullptr);
}

int QcDbGetDrawUnit() {
    return g_isInMetres ? 1 : 0;
}
