// Brings points to paper in runs of one colour.
#include "workbench/report/PlanAreas.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <utility>

#include "analysis/PointAnalysis.h"
#include "platform/base/CString.h"
#include "workbench/report/PlanSheet.h"
#include "workbench/report/PlanStrokes.h"

namespace {

constexpr double kLeastCell = 30.0;  // hundredths of a millimetre, like all on paper
constexpr int kShareSize = 260;

// The plane of an outline, seen from above: where its points' rows and columns go, metres.
struct AreaAxes {
    bool isUpright = true;
    Vector3 right;
    Vector3 up;  // shortened as the plane is tilted
};

Vector3 VectorOf(const QcGePoint& point) {
    return {point.x, point.y, point.z};
}

AreaAxes AxesOf(const OutlineResult& outline) {
    constexpr double kUpright = 0.02;
    AreaAxes axes;
    Vector3 normal;
    for (std::size_t i = 2; i < outline.corners.size(); ++i) {
        const Vector3 origin = VectorOf(outline.corners[0]);
        normal = normal + Cross(VectorOf(outline.corners[i - 1]) - origin, VectorOf(outline.corners[i]) - origin);
    }
    const double length = Length(normal);
    if (!(std::abs(normal.z) > kUpright * length))
        return axes;
    normal = normal * ((normal.z < 0.0 ? -1.0 : 1.0) / length);
    const double inPlan = std::hypot(normal.x, normal.y);
    axes.isUpright = false;
    axes.right = {1.0, 0.0, 0.0};
    // So nearly level an area of any size counts as level.
    if (inPlan > 1e-6)
        axes.right = {-normal.y / inPlan, normal.x / inPlan, 0.0};
    axes.up = Vector3{-axes.right.y, axes.right.x, 0.0} * normal.z;
    return axes;
}

// The points of one outline by row and column, and how many of these make a cell on paper.
class CellGrid {
public:
    CellGrid(const AreaAxes& axes, const PlanSheet& sheet, double spacing, const QcGePoint& first)
        : m_right(axes.right * spacing), m_up(axes.up * spacing), m_first(VectorOf(first)), m_sheet(sheet) {
        const double cell = spacing * sheet.UnitsPerMetre() * std::min(1.0, Length(axes.up));
        m_step = cell >= kLeastCell ? 1 : static_cast<long>(std::ceil(kLeastCell / std::max(cell, 1e-6)));
    }

    struct Cell {
        long column = 0;
        long row = 0;
    };
    Cell CellOf(const QcGePoint& place) const {
        const Vector3 way = VectorOf(place) - m_first;
        return {std::lround(Dot(way, m_right) / Dot(m_right, m_right)), std::lround(Dot(way, m_up) / Dot(m_up, m_up))};
    }
    bool IsDrawn(Cell cell) const { return cell.column % m_step == 0 && cell.row % m_step == 0; }
    long Step() const { return m_step; }

    // The cells of a row from one to another as one shape.
    PaperLoop Run(Cell from, long lastColumn) const {
        const double half = 0.5 * static_cast<double>(m_step);
        const auto corner = [&](double column, double row) {
            const Vector3 place = m_first + m_right * column + m_up * row;
            return m_sheet.Point(place.x, place.y);
        };
        const double left = static_cast<double>(from.column) - half;
        const double right = static_cast<double>(lastColumn) + half;
        const double low = static_cast<double>(from.row) - half;
        const double high = static_cast<double>(from.row) + half;
        return {corner(left, low), corner(right, low), corner(right, high), corner(left, high)};
    }

private:
    Vector3 m_right;
    Vector3 m_up;
    Vector3 m_first;
    const PlanSheet& m_sheet;
    long m_step = 1;
};

std::string CellsOf(const PlanPicture& picture, const PlanSheet& sheet, const OutlineResult& outline) {
    const AreaAxes axes = AxesOf(outline);
    if (axes.isUpright || outline.pointCount == 0 || !(picture.spacing > 0.0))
        return {};
    const auto* const first = &picture.points->points[outline.firstPoint];
    const CellGrid grid(axes, sheet, picture.spacing, first->place);
    std::map<std::string, std::string> paths;
    CellGrid::Cell from;
    long last = 0;
    std::string color;
    const auto endRun = [&] {
        if (!color.empty())
            AppendLoop(paths[color], grid.Run(from, last));
    };
    for (std::size_t i = 0; i < outline.pointCount; ++i) {
        const CellGrid::Cell cell = grid.CellOf(first[i].place);
        if (!grid.IsDrawn(cell))
            continue;
        std::string own = ColorOfMinutes(picture, first[i].total);
        if (own != color || cell.row != from.row || cell.column != last + grid.Step()) {
            endRun();
            from = cell;
            color = std::move(own);
        }
        last = cell.column;
    }
    endRun();
    std::string markup;
    for (const auto& [fill, path] : paths)
        markup += "<path fill=\"" + fill + "\" d=\"" + path + "\"/>\n";
    return markup;
}

PaperLoop OutlineOnPaper(const OutlineResult& outline, const PlanSheet& sheet) {
    PaperLoop loop;
    for (const QcGePoint& corner : outline.corners) {
        if (sheet.IsFarOutside(sheet.Place(corner.x, corner.y)))
            return {};
        loop.push_back(sheet.Point(corner.x, corner.y));
    }
    return loop;
}

std::string MarkupOf(const PlanPicture& picture, const PlanSheet& sheet, std::size_t index, const PaperLoop& outline) {
    std::string path;
    AppendLoop(path, outline);
    const std::string clip = picture.id + "-area" + std::to_string(index);
    return "<g class=\"area\">\n<clipPath id=\"" + clip + "\"><path d=\"" + path +
           "\"/></clipPath>\n<g clip-path=\"url(#" + clip + ")\" stroke=\"none\">\n" +
           CellsOf(picture, sheet, picture.points->outlines[index]) +
           "</g>\n<path class=\"outline\" fill=\"none\" stroke=\"#111\" stroke-width=\"18\" d=\"" + path +
           "\"/>\n</g>\n";
}

CString ShareText(double share) {
    return FromUtf8(std::to_string(static_cast<int>(std::floor(100.0 * share + 1e-9))) + '%');
}

// From the middle of the outline outwards, where the text is wholly within.
std::string DrawShare(const CString& text, const PaperLoop& outline, PaperLabels& labels) {
    constexpr int kTries = 9;
    const PaperBox box = BoxAround({outline});
    std::vector<PaperPoint> places;
    for (int row = 0; row < kTries; ++row)
        for (int column = 0; column < kTries; ++column)
            places.push_back({box.left + box.Width() * (2 * column + 1) / (2 * kTries),
                              box.top + box.Height() * (2 * row + 1) / (2 * kTries)});
    const auto away = [&](PaperPoint place) {
        return std::hypot(place.x - (box.left + box.right) / 2, place.y - (box.top + box.bottom) / 2);
    };
    std::stable_sort(places.begin(), places.end(), [&](PaperPoint a, PaperPoint b) { return away(a) < away(b); });
    for (const PaperPoint place : places) {
        const PaperBox own = BoxForText(text, kShareSize, place);
        if (Cover({outline}, own) && labels.TryTake(own))
            return TextInBox(text, own, kShareSize);
    }
    return {};
}

}  // namespace

std::vector<PlanArea> FindAreas(const PlanPicture& picture, const PlanSheet& sheet) {
    std::vector<PlanArea> areas;
    if (!picture.points)
        return areas;
    for (std::size_t i = 0; i < picture.points->outlines.size(); ++i) {
        PlanArea area;
        area.outline = OutlineOnPaper(picture.points->outlines[i], sheet);
        if (area.outline.empty())
            continue;
        area.box = BoxAround({area.outline});
        area.height = -1e12;
        for (const QcGePoint& corner : picture.points->outlines[i].corners)
            area.height = std::max(area.height, corner.z);
        area.markup = MarkupOf(picture, sheet, i, area.outline);
        areas.push_back(std::move(area));
    }
    std::stable_sort(areas.begin(), areas.end(),
                     [](const PlanArea& a, const PlanArea& b) { return a.height < b.height; });
    return areas;
}

std::string DrawAreaTexts(const PlanPicture& picture, const PlanSheet& sheet, PaperLabels& labels) {
    std::string texts;
    if (picture.points)
        for (const OutlineResult& outline : picture.points->outlines) {
            const PaperLoop loop = OutlineOnPaper(outline, sheet);
            if (outline.share && !loop.empty())
                texts += DrawShare(ShareText(*outline.share), loop, labels);
        }
    if (texts.empty())
        return {};
    return "<g class=\"shares\" font-size=\"" + std::to_string(kShareSize) + "\" font-weight=\"bold\">\n" + texts +
           "</g>\n";
}
