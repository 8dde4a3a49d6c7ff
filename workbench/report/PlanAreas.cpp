// Brings points to paper in runs of one colour.
#include "workbench/report/PlanAreas.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <utility>

#include "analysis/Isolines.h"
#include "analysis/PointAnalysis.h"
#include "platform/base/CString.h"
#include "platform/host/HandleText.h"
#include "workbench/report/PlanSheet.h"
#include "workbench/report/PlanStrokes.h"

namespace {

constexpr double kLeastCell = 30.0;  // hundredths of a millimetre, like all on paper
constexpr int kShareSize = 260;
constexpr int kHoursSize = 200;

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
    AreaAxes axes;
    Vector3 normal = VectorOf(outline.outward);
    if (IsUpright(outline.outward))
        return axes;
    if (normal.z < 0.0)
        normal = -normal;
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

PaperLoop LineOnPaper(const Isoline& isoline, const PlanSheet& sheet) {
    PaperLoop line;
    for (const QcGePoint& point : isoline.points) {
        if (sheet.IsFarOutside(sheet.Place(point.x, point.y)))
            return {};
        const PaperPoint place = sheet.Point(point.x, point.y);
        if (line.empty() || place != line.back())
            line.push_back(place);
    }
    return line;
}

// Of one area.
std::string IsolinesOf(const PlanPicture& picture, const PlanSheet& sheet, std::size_t index) {
    std::string path;
    for (const Isoline& isoline : picture.points->isolines)
        if (const PaperLoop line = isoline.outline == index ? LineOnPaper(isoline, sheet) : PaperLoop();
            line.size() > 1)
            isoline.isClosed ? AppendLoop(path, line) : AppendLine(path, line);
    if (path.empty())
        return {};
    return "<path class=\"isolines\" fill=\"none\" stroke=\"#111\" stroke-width=\"18\" d=\"" + path + "\"/>\n";
}

std::string MarkupOf(const PlanPicture& picture, const PlanSheet& sheet, std::size_t index, const PaperLoop& outline) {
    std::string path;
    AppendLoop(path, outline);
    const std::string clip = picture.id + "-area" + std::to_string(index);
    return "<g class=\"area\">\n<clipPath id=\"" + clip + "\"><path d=\"" + path +
           "\"/></clipPath>\n<g clip-path=\"url(#" + clip + ")\" stroke=\"none\">\n" +
           CellsOf(picture, sheet, picture.points->outlines[index]) + IsolinesOf(picture, sheet, index) +
           "</g>\n<path class=\"outline\" fill=\"none\" stroke=\"#111\" stroke-width=\"18\" d=\"" + path +
           "\"/>\n</g>\n";
}

// So far along a line as a part of its length says.
PaperPoint PlaceAlong(const PaperLoop& line, double part) {
    const auto length = [&](std::size_t i) { return std::hypot(line[i].x - line[i - 1].x, line[i].y - line[i - 1].y); };
    double left = 0.0;
    for (std::size_t i = 1; i < line.size(); ++i)
        left += part * length(i);
    for (std::size_t i = 1; i < line.size(); ++i) {
        if (left <= length(i)) {
            const double share = left / length(i);
            return {line[i - 1].x + static_cast<int>(share * (line[i].x - line[i - 1].x)),
                    line[i - 1].y + static_cast<int>(share * (line[i].y - line[i - 1].y))};
        }
        left -= length(i);
    }
    return line.back();
}

// As near to the middle of the line as there is room.
std::string DrawIsolineHours(const Isoline& isoline, const PlanSheet& sheet, PaperLabels& labels) {
    const PaperLoop line = LineOnPaper(isoline, sheet);
    // What is as short as its number is not worth one.
    if (line.size() < 2 || std::max(BoxAround({line}).Width(), BoxAround({line}).Height()) < 2 * kHoursSize)
        return {};
    const CString text = FromUtf8(std::to_string(isoline.hours));
    for (const double part : {0.5, 0.4, 0.6, 0.3, 0.7, 0.2, 0.8}) {
        const PaperBox own = BoxForText(text, kHoursSize, PlaceAlong(line, part));
        if (labels.TryTake(own))
            return TextInBox(text, own, kHoursSize);
    }
    return {};
}

// The handle, by which tables name the outline, and the share.
CString AreaText(const OutlineResult& outline) {
    CString text = outline.handle == 0 ? CString() : HandleText(outline.handle);
    if (!outline.share)
        return text;
    text += text.IsEmpty() ? L"" : L" ";
    return text + FromUtf8(std::to_string(static_cast<int>(std::floor(100.0 * *outline.share + 1e-9))) + '%');
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

std::string InGroup(const char* name, int size, const std::string& texts) {
    return texts.empty() ? texts
                         : std::string("<g class=\"") + name + "\" font-size=\"" + std::to_string(size) +
                               "\" font-weight=\"bold\">\n" + texts + "</g>\n";
}

}  // namespace

bool IsUpright(const QcGePoint& outward) {
    constexpr double kUpright = 0.02;
    return !(std::abs(outward.z) > kUpright);
}

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
    if (!picture.points)
        return {};
    std::string shares;
    for (const OutlineResult& outline : picture.points->outlines) {
        const PaperLoop loop = OutlineOnPaper(outline, sheet);
        const CString text = AreaText(outline);
        if (!text.IsEmpty() && !loop.empty())
            shares += DrawShare(text, loop, labels);
    }
    std::string hours;
    for (const Isoline& isoline : picture.points->isolines)
        hours += DrawIsolineHours(isoline, sheet, labels);
    return InGroup("shares", kShareSize, shares) + InGroup("isoline-hours", kHoursSize, hours);
}
