// The unit of the host's drawing, and the flag that follows it.
#include "platform/host/DrawingUnits.h"

#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/Language.h"
#include "platform/host/AcDbDatabase.h"
#include "platform/host/CurrentDrawing.h"
#include "platform/host/DxfScanner.h"

bool g_bMeterUnitDraw = false;

namespace {

AcDbDatabase* g_drawing = nullptr;
// The flag that others see is theirs to change too.
bool g_isInMetres = false;

constexpr int kNone = 0;
constexpr int kMetres = 6;
constexpr int kIntegerCode = 70;
constexpr double kInch = 25.4;
constexpr double kSurveyFoot = 1'200'000.0 / 3937.0;

struct KnownUnit {
    int number;
    double millimetres;
};
constexpr KnownUnit kUnits[] = {
    {kNone, 1.0},
    {1, kInch},
    {2, 12.0 * kInch},
    {3, 63360.0 * kInch},
    {4, 1.0},
    {5, 10.0},
    {kMetres, 1000.0},
    {7, 1e6},
    {10, 36.0 * kInch},
    {14, 100.0},
    {15, 1e4},
    {16, 1e5},
    {21, kSurveyFoot},
    {22, kSurveyFoot / 12.0},
    {23, kSurveyFoot * 3.0},
    {24, kSurveyFoot * 5280.0},
};

struct StrangeUnit {
    int number;
    const wchar_t* name;
};
constexpr StrangeUnit kStrangeUnits[] = {
    {8, L"微英寸"}, {9, L"密耳"},      {11, L"埃"},   {12, L"纳米"},   {13, L"微米"},
    {17, L"吉米"},  {18, L"天文单位"}, {19, L"光年"}, {20, L"秒差距"},
};

// The value of $INSUNITS without blanks; none when the drawing does not have it.
std::optional<std::string> UnitText(const AcDbDatabase& drawing) {
    std::vector<DxfGroup> groups;
    if (!drawing.GetHeaderVariable("$INSUNITS", groups))
        return {};
    for (const DxfGroup& group : groups)
        if (group.code == kIntegerCode)
            return std::string(TrimDxfValue(group.value));
    return {};
}

// Nothing for what is no whole number.
std::optional<int> UnitNumber(std::string_view text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        return {};
    return number;
}

void LookAtUnit() {
    g_isInMetres = IsDrawingInMetres(g_drawing);
    g_bMeterUnitDraw = g_isInMetres;
}

}  // namespace

bool IsDrawingInMetres(const AcDbDatabase* drawing) {
    const std::optional<std::string> text = drawing ? UnitText(*drawing) : std::nullopt;
    return text && UnitNumber(*text) == kMetres;
}

DrawingUnit UnitOf(const AcDbDatabase& drawing) {
    const std::optional<std::string> text = UnitText(drawing);
    const std::optional<int> number = text ? UnitNumber(*text) : kNone;
    for (const KnownUnit& unit : kUnits)
        if (number == unit.number)
            return {unit.millimetres, {}};
    for (const StrangeUnit& unit : kStrangeUnits)
        if (number == unit.number)
            return {{}, PlatformText(unit.name)};
    return {{}, L"$INSUNITS " + drawing.Decode(*text)};
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
