// Signs and their meaning, a scale bar, an arrow.
#include "workbench/report/PlanLegend.h"

#include <algorithm>
#include <cmath>

#include "workbench/Texts.h"
#include "workbench/report/Markup.h"
#include "workbench/report/PlanContent.h"
#include "workbench/report/PlanSheet.h"
#include "workbench/report/PlanStrokes.h"

namespace {

std::string Swatch(const std::string& color) {
    return "<rect x=\"0\" y=\"60\" width=\"500\" height=\"180\" fill=\"" + color +
           "\" stroke=\"#222\" stroke-width=\"12\"/>";
}

void AddColors(const PlanPicture& picture, std::vector<LegendEntry>& entries) {
    entries.push_back({"", Say(L"日照（小时）")});
    for (const TimeColor& row : picture.colors)
        // Exactly on its bound a row may be found or not: a little beyond it surely is.
        entries.push_back({Swatch(ColorOfMinutes(picture, row.hours * 60.0 + 0.01)),
                           SayFormat(L"≥ %s", FromUtf8(Coordinate(row.hours)))});
}

}  // namespace

std::vector<LegendEntry> PlanLegend(const PlanPicture& picture, const PlanSigns& signs) {
    std::vector<LegendEntry> entries;
    if (signs.hasColors)
        AddColors(picture, entries);
    if (signs.hasFailing)
        entries.push_back(
            {"<path fill=\"#111\" d=\"M250 90l100 150h-200z\"/>", Say(L"日照不足的窗，旁边或线的另一端是窗名")});
    if (signs.namesLeftOut > 0)
        entries.push_back(
            {"", SayFormat(L"有 %d 个日照不足的窗写不下窗名，见表", static_cast<int>(signs.namesLeftOut))});
    if (signs.hasHours)
        entries.push_back({"", Say(L"窗旁的数字：日照（时:分）")});
    if (signs.hasUntold)
        entries.push_back({Swatch(ColorText(kUntoldRgb)), Say(L"分不清室外侧的窗")});
    if (signs.hasCovered)
        entries.push_back({"", Say(L"上下重叠的窗只画日照最少的一个")});
    if (signs.hasShares)
        entries.push_back({"", Say(L"区域里：轮廓的句柄，满足要求的点所占的份额")});
    else if (signs.hasHandles)
        entries.push_back({"", Say(L"区域里：轮廓的句柄")});
    if (signs.hasIsolines)
        entries.push_back(
            {"<path fill=\"none\" stroke=\"#111\" stroke-width=\"18\" d=\"M0 150h500\"/>", Say(L"等时线，数字为小时")});
    if (signs.hasProject)
        entries.push_back(
            {"<rect x=\"20\" y=\"50\" width=\"460\" height=\"200\" fill=\"#d6d6d3\" stroke=\"#111\" "
             "stroke-width=\"45\"/>",
             Say(L"方案")});
    if (!picture.isElevation)
        entries.push_back({"", Say(L"屋顶上的数字：顶面标高（米）")});
    return entries;
}

std::string DrawScale(const PlanSheet& sheet, int top) {
    constexpr double kMostLength = 6000.0;
    constexpr int kHeight = 120;
    constexpr int kBarTop = 650;
    const double most = std::min(kMostLength, 0.5 * sheet.frame.Width());
    const double metres = RoundLength(most / sheet.UnitsPerMetre());
    const double length = metres * sheet.UnitsPerMetre();
    const double y = top + kBarTop;
    std::string markup = "<g class=\"scale\" font-size=\"" + std::to_string(kLegendSize) + "\">\n";
    markup += PlacedText(SayFormat(L"比例 %s", RatioText(sheet.ratio)), 0.0, top + kLegendSize, "start");
    markup += "<rect class=\"bar\" x=\"0\" y=\"" + Coordinate(y) + "\" width=\"" + Coordinate(length) + "\" height=\"" +
              std::to_string(kHeight) + "\" fill=\"#fff\" stroke=\"#111\" stroke-width=\"14\"/>\n";
    for (const double part : {0.0, 0.5})
        markup += "<rect x=\"" + Coordinate(part * length) + "\" y=\"" + Coordinate(y) + "\" width=\"" +
                  Coordinate(0.25 * length) + "\" height=\"" + std::to_string(kHeight) + "\" fill=\"#111\"/>\n";
    const double below = y + kHeight + kLegendSize + 20.0;
    markup += PlacedText(L"0", 0.0, below, "start");
    markup += PlacedText(MetresText(0.5 * metres), 0.5 * length, below, "middle");
    markup += PlacedText(SayFormat(L"%s 米", MetresText(metres)), length, below, "middle");
    return markup + "</g>\n";
}

std::string DrawNorth(const PlanSheet& sheet, double north, int top) {
    constexpr double kRadius = 560.0;
    const double x = sheet.frame.right - kRadius - 260.0;
    const double y = top + 0.5 * kScaleHeight - 30.0;
    // Counter-clockwise in the drawing, and clockwise is positive here.
    const double turn = std::isfinite(north) ? -std::remainder(north, 360.0) : 0.0;
    return "<g class=\"north\" transform=\"translate(" + Coordinate(x) + ' ' + Coordinate(y) + ") rotate(" +
           Coordinate(turn) +
           ")\">\n<circle r=\"440\" fill=\"none\" stroke=\"#111\" stroke-width=\"12\"/>\n"
           "<path fill=\"#111\" d=\"M0-440L0 260-180 420z\"/>\n"
           "<path fill=\"#fff\" stroke=\"#111\" stroke-width=\"12\" d=\"M0-440L0 260 180 420z\"/>\n"
           "<text y=\"-490\" font-size=\"260\" font-weight=\"bold\" text-anchor=\"middle\">" +
           Markup(L"N") + "</text>\n</g>\n";
}
