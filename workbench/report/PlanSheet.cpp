// Finds the part to show, and the scale.
#include "workbench/report/PlanSheet.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "analysis/OccluderSet.h"
#include "analysis/PointAnalysis.h"
#include "workbench/report/Markup.h"
#include "workbench/report/PlanContent.h"

namespace {

constexpr double kFarthest = 1e12;       // metres
constexpr double kLeastExtent = 10.0;    // metres
constexpr double kMillimetres = 1000.0;  // in a metre
constexpr int kPadding = 600;            // hundredths of a millimetre, on each side: room for the names of windows
constexpr int kLeastHeight = 3000;       // hundredths of a millimetre

PlanExtent ExtentOfJudged(const PlanPicture& picture) {
    PlanExtent extent;
    for (const PlanWindow& window : picture.windows)
        for (const QcGePoint& corner : window.corners)
            extent.Take(corner.x, corner.y);
    if (picture.points)
        for (const OutlineResult& outline : picture.points->outlines)
            for (const QcGePoint& corner : outline.corners)
                extent.Take(corner.x, corner.y);
    return extent;
}

PlanExtent ExtentOfFaces(const OccluderSet& set) {
    PlanExtent extent;
    for (const Occluder& face : set.faces)
        for (int i = 0; i < face.count; ++i)
            extent.Take(face.corners[i].x / kMillimetres, face.corners[i].y / kMillimetres);
    return extent;
}

PlanExtent ExtentOf(const PlanPicture& picture) {
    constexpr double kSmallSite = 600.0;  // metres: all of it is shown
    constexpr double kLargeSite = 4.0;    // as many times the extent of what is judged is too much
    constexpr double kAround = 150.0;     // metres around what is judged that are shown in any case
    const PlanExtent judged = ExtentOfJudged(picture);
    PlanExtent all = ExtentOfFaces(picture.faces);
    all.Take(judged);
    if (judged.isEmpty)
        return all;
    const double size = std::max(judged.Width(), judged.Height());
    if (std::max(all.Width(), all.Height()) <= std::max(kSmallSite, kLargeSite * size))
        return all;
    return judged.Widened(std::max(kAround, 0.5 * size)).Within(all);
}

}  // namespace

void PlanExtent::Take(double x, double y) {
    if (!(std::abs(x) <= kFarthest && std::abs(y) <= kFarthest))
        return;
    left = isEmpty ? x : std::min(left, x);
    right = isEmpty ? x : std::max(right, x);
    bottom = isEmpty ? y : std::min(bottom, y);
    top = isEmpty ? y : std::max(top, y);
    isEmpty = false;
}

void PlanExtent::Take(const PlanExtent& other) {
    if (other.isEmpty)
        return;
    Take(other.left, other.bottom);
    Take(other.right, other.top);
}

PlanExtent PlanExtent::Widened(double by) const {
    return {left - by, bottom - by, right + by, top + by, false};
}

PlanExtent PlanExtent::Within(const PlanExtent& other) const {
    return {std::max(left, other.left), std::max(bottom, other.bottom), std::min(right, other.right),
            std::min(top, other.top), false};
}

double PlanSheet::UnitsPerMetre() const {
    return kMillimetres * kPaperUnits / ratio;
}

Vector3 PlanSheet::Place(double x, double y) const {
    return {frame.left + 0.5 * frame.Width() + (x - middleX) * UnitsPerMetre(),
            frame.top + 0.5 * frame.Height() - (y - middleY) * UnitsPerMetre(), 0.0};
}

PaperPoint PlanSheet::Point(double x, double y) const {
    const Vector3 place = Place(x, y);
    return {static_cast<int>(std::lround(place.x)), static_cast<int>(std::lround(place.y))};
}

bool PlanSheet::IsFarOutside(const Vector3& place) const {
    constexpr double kFar = 50000.0;
    return !(std::abs(place.x) <= frame.right + kFar && std::abs(place.y) <= frame.bottom + kFar);
}

PlanSheet LayOutPlan(const PlanPicture& picture, int below) {
    const PlanExtent extent = ExtentOf(picture);
    const double width = std::max(extent.Width(), kLeastExtent);
    const double height = std::max(extent.Height(), kLeastExtent);
    const auto paperWidth = static_cast<int>(std::lround(picture.width * kPaperUnits));
    const int mostHeight = std::max(static_cast<int>(std::lround(picture.height * kPaperUnits)) - below, kLeastHeight);
    const double units = kMillimetres * kPaperUnits;
    PlanSheet sheet;
    sheet.middleX = 0.5 * (extent.left + extent.right);
    sheet.middleY = 0.5 * (extent.bottom + extent.top);
    sheet.ratio = UsualRatio(std::max(width * units / std::max(paperWidth - 2 * kPadding, kPadding),
                                      height * units / (mostHeight - 2 * kPadding)));
    const auto needed = static_cast<int>(std::ceil(height * sheet.UnitsPerMetre())) + 2 * kPadding;
    sheet.frame = {0, 0, paperWidth, std::clamp(needed, kLeastHeight, mostHeight)};
    return sheet;
}

double UsualRatio(double least) {
    constexpr std::array kUsual = {1.0, 1.5, 2.0, 2.5, 3.0, 4.0, 5.0, 6.0, 8.0, 10.0};
    if (!(least > 1.0))
        return 1.0;
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double each : kUsual) {
        // Below ten there are whole ones only.
        const double ratio = each * power;
        if (ratio >= least * (1.0 - 1e-12) && ratio == std::round(ratio))
            return ratio;
    }
    return 10.0 * power;
}

CString RatioText(double ratio) {
    return L"1:" + FromUtf8(Coordinate(ratio));
}

double RoundLength(double most) {
    const double power = std::pow(10.0, std::floor(std::log10(most)));
    for (const double each : {5.0, 2.0})
        if (each * power <= most)
            return each * power;
    return power;
}

CString MetresText(double metres) {
    return FromUtf8(Coordinate(metres));
}
