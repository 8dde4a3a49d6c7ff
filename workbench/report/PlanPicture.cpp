// Puts a plan together: roofs and areas from below, then windows, then texts, then scale and legend.
#include "workbench/report/PlanPicture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "analysis/OccluderSet.h"
#include "analysis/PointAnalysis.h"
#include "workbench/Texts.h"
#include "workbench/report/Markup.h"
#include "workbench/report/PaperLayers.h"
#include "workbench/report/PlanAreas.h"
#include "workbench/report/PlanHeights.h"
#include "workbench/report/PlanLegend.h"
#include "workbench/report/PlanRoofs.h"
#include "workbench/report/PlanSheet.h"
#include "workbench/report/PlanStrokes.h"

namespace {

// From the ground up.
constexpr std::array kGreys = {0xF7F7F4, 0xE6E6E3, 0xD6D6D3, 0xC6C6C3, 0xB4B4B1, 0xA2A29F};
constexpr int kProposedStyle = 100;
constexpr int kFirstAreaStyle = 1000;
constexpr int kBelow = 150;  // hundredths of a millimetre between the plan and what is below

int GreyOf(double height, double ground, double top) {
    constexpr auto kCount = static_cast<int>(kGreys.size());
    if (height - ground <= kGroundHeight)
        return 0;
    return std::clamp(1 + static_cast<int>((kCount - 1) * (height - ground) / (top - ground)), 1, kCount - 1);
}

// Of all that stands, with and without a project: a house has one grey in either plan. Metres.
double HighestOf(const OccluderSet& set) {
    constexpr double kMillimetres = 1000.0;
    double highest = -1e300;
    for (const Occluder& face : set.faces)
        for (int i = 0; i < face.count; ++i)
            if (std::isfinite(face.corners[i].z))
                highest = std::max(highest, face.corners[i].z / kMillimetres);
    return highest;
}

// What covers and is covered.
std::string DrawLayers(const PlanSheet& sheet, double highest, const std::vector<PlanRoof>& roofs,
                       const std::vector<PlanArea>& areas) {
    const double ground = GroundOf(roofs);
    const double top = std::max(ground, highest);
    PaperLayers layers(sheet.frame);
    auto area = areas.begin();
    const auto addAreasBelow = [&](double height) {
        for (; area != areas.end() && area->height < height; ++area)
            layers.LayerFor(kFirstAreaStyle + static_cast<int>(area - areas.begin()), area->box) += area->markup;
    };
    for (const PlanRoof& roof : roofs) {
        addAreasBelow(0.5 * (roof.low + roof.high));
        const int style = GreyOf(roof.high, ground, top) + (roof.isProposed ? kProposedStyle : 0);
        std::string& path = layers.LayerFor(style, roof.box);
        for (const PaperLoop& loop : roof.loops)
            AppendLoop(path, loop);
    }
    addAreasBelow(1e300);
    std::string markup = "<g class=\"roofs\" stroke=\"#555\" stroke-width=\"12\" stroke-linejoin=\"round\">\n";
    for (const PaperLayers::Layer& layer : layers.All()) {
        if (layer.style >= kFirstAreaStyle) {
            markup += layer.content;
            continue;
        }
        const std::string fill = ColorText(kGreys[static_cast<std::size_t>(layer.style % kProposedStyle)]);
        const char* const edge = layer.style >= kProposedStyle ? " stroke=\"#111\" stroke-width=\"45\"" : "";
        markup += "<path fill=\"" + fill + "\"" + edge + " d=\"" + layer.content + "\"/>\n";
    }
    return markup + "</g>\n";
}

// Some only the sheet tells: how many windows are covered, and how many names have no room.
PlanSigns SignsOf(const PlanPicture& picture, std::size_t covered, std::size_t namesLeftOut) {
    PlanSigns signs;
    signs.hasCovered = covered > 0;
    signs.namesLeftOut = namesLeftOut;
    for (const PlanWindow& window : picture.windows) {
        signs.hasColors = signs.hasColors || window.isTold;
        signs.hasHours = signs.hasHours || window.isTold;
        signs.hasUntold = signs.hasUntold || !window.isTold;
        signs.hasFailing = signs.hasFailing || (window.isTold && window.passes && !*window.passes);
    }
    signs.hasProject = picture.withProject && std::find(picture.faces.proposed.begin(), picture.faces.proposed.end(),
                                                        true) != picture.faces.proposed.end();
    signs.hasIsolines = picture.points && !picture.points->isolines.empty();
    if (picture.points)
        for (const OutlineResult& outline : picture.points->outlines) {
            signs.hasColors = signs.hasColors || outline.pointCount > 0;
            signs.hasShares = signs.hasShares || outline.share.has_value();
            signs.hasHandles = signs.hasHandles || outline.handle != 0;
        }
    return signs;
}

// All within the frame of the plan.
std::string DrawContent(const PlanPicture& picture, const PlanSheet& sheet, const PlanStrokes& strokes,
                        std::size_t& namesLeftOut) {
    const std::vector<PlanRoof> roofs = FindRoofs(picture.faces, sheet, picture.withProject);
    PaperLabels labels(sheet.frame);
    const std::vector<PlanArea> areas = FindAreas(picture, sheet);
    std::string content = DrawLayers(sheet, HighestOf(picture.faces), roofs, areas);
    content += DrawStrokes(picture, strokes, labels);
    // Texts by how much they are needed; the paper shines through around them.
    content +=
        "<g text-anchor=\"middle\" paint-order=\"stroke\" stroke=\"#fff\" stroke-opacity=\".75\" "
        "stroke-width=\"50\" stroke-linejoin=\"round\">\n";
    const PlanNames names = DrawNames(picture, strokes, labels);
    namesLeftOut = names.leftOut;
    content += names.markup;
    content += DrawAreaTexts(picture, sheet, labels);
    // On an area the height of the roof below would be taken for hours.
    for (const PlanArea& area : areas)
        if (area.height - GroundOf(roofs) > kGroundHeight)
            labels.Take(area.box);
    content += DrawHeights(roofs, labels);
    content += DrawHours(picture, strokes, labels);
    return content + "</g>\n";
}

std::string Millimetres(int units) {
    return Coordinate(units / kPaperUnits) + "mm";
}

}  // namespace

std::string DrawPlan(const PlanPicture& picture) {
    const auto width = static_cast<int>(picture.width * kPaperUnits);
    // What only the sheet tells has its room in the legend.
    const std::size_t some = picture.windows.size() > 1 ? 1 : 0;
    std::string scratch;
    const int legendHeight = LayOutLegend(PlanLegend(picture, SignsOf(picture, some, some)), width, 0, scratch);
    const PlanSheet sheet = LayOutPlan(picture, kBelow + kScaleHeight + legendHeight);
    const PlanStrokes strokes = FindStrokes(picture, sheet);
    std::size_t namesLeftOut = 0;
    const std::string content = DrawContent(picture, sheet, strokes, namesLeftOut);

    const int scaleTop = sheet.frame.bottom + kBelow;
    std::string below = DrawScale(sheet, scaleTop);
    if (!picture.isElevation)
        below += DrawNorth(sheet, picture.north, scaleTop);
    const int legendTop = scaleTop + kScaleHeight;
    const int height = legendTop + LayOutLegend(PlanLegend(picture, SignsOf(picture, strokes.covered, namesLeftOut)),
                                                width, legendTop, below);

    const std::string title = Markup(picture.title.IsEmpty() ? Say(L"总平面图") : picture.title);
    const std::string frame =
        "width=\"" + std::to_string(sheet.frame.right) + "\" height=\"" + std::to_string(sheet.frame.bottom) + "\"";
    // All of its line lies on the picture, beside which paper has nothing.
    const std::string edge = "x=\"13\" y=\"13\" width=\"" + std::to_string(sheet.frame.right - 26) + "\" height=\"" +
                             std::to_string(sheet.frame.bottom - 26) + "\"";
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" class=\"plan\" role=\"img\" width=\"" + Millimetres(width) +
           "\" height=\"" + Millimetres(height) + "\" viewBox=\"0 0 " + std::to_string(width) + ' ' +
           std::to_string(height) + "\" font-family=\"sans-serif\" fill=\"#111\">\n<title>" + title +
           "</title>\n<clipPath id=\"" + picture.id + "-frame\"><rect " + frame + "/></clipPath>\n<rect " + frame +
           " fill=\"#fff\"/>\n<g clip-path=\"url(#" + picture.id + "-frame)\">\n" + content +
           "</g>\n<rect class=\"frame\" " + edge + " fill=\"none\" stroke=\"#111\" stroke-width=\"25\"/>\n" + below +
           "</svg>\n";
}
