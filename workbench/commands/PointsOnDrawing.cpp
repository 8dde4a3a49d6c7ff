// Puts labels along lines.
#include "workbench/commands/PointsOnDrawing.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "workbench/commands/PointsReport.h"
#include "workbench/commands/ResultSheet.h"

namespace {

double Distance(const QcGePoint& a, const QcGePoint& b) {
    return std::hypot(b.x - a.x, b.y - a.y, b.z - a.z);
}

class Layout {
public:
    Layout(const PointsReport& report, const AcDbDatabase& drawing)
        : m_report(report), m_sheet(drawing, {kResultIsolines, kResultLabels, kResultShares}) {
        constexpr double kLeast = 0.1;
        constexpr double kMost = 2.5;
        m_height = std::clamp(0.5 * report.request.spacing, kLeast, kMost);
    }

    DrawingChange Run() {
        const PointAnswer& answer = m_report.answer;
        for (const Isoline& line : answer.isolines)
            AddLine(line, answer.outlines[line.outline].outward);
        for (const OutlineResult& outline : answer.outlines)
            if (outline.share && outline.pointCount != 0)
                AddShare(outline);
        return m_sheet.Change();
    }

private:
    void AddLine(const Isoline& line, const QcGePoint& outward) {
        const int color = m_report.request.settings.standard->TimeColorOf(line.hours);
        m_sheet.AddLine(kResultIsolines, line.points, line.isClosed, outward, color);
        std::vector<QcGePoint> points = line.points;
        if (line.isClosed)
            points.push_back(points.front());
        double length = 0.0;
        for (std::size_t i = 1; i < points.size(); ++i)
            length += Distance(points[i - 1], points[i]);
        // One in the middle of each part of the line; a short line is one part.
        constexpr double kFromLabelToLabel = 80.0;  // heights of a text
        const double parts = std::max(1.0, std::floor(length / (kFromLabelToLabel * m_height)));
        double passed = 0.0;
        double label = 0.5;
        for (std::size_t i = 1; i < points.size() && label < parts; ++i) {
            const double step = Distance(points[i - 1], points[i]);
            for (; label < parts && label * length / parts <= passed + step; label += 1.0)
                AddLabel(line, points[i - 1], points[i], (label * length / parts - passed) / step, outward, color);
            passed += step;
        }
    }

    void AddLabel(const Isoline& line, const QcGePoint& from, const QcGePoint& to, double part,
                  const QcGePoint& outward, int color) {
        ResultSheet::Text text;
        text.text.Format(L"%d h", line.hours);
        const QcGePoint way(to.x - from.x, to.y - from.y, to.z - from.z);
        text.middle = QcGePoint(from.x + way.x * part, from.y + way.y * part, from.z + way.z * part);
        text.along = way;
        text.outward = outward;
        text.height = m_height;
        text.color = color;
        m_sheet.AddText(kResultLabels, text);
    }

    // At the point that is next to the middle of all.
    void AddShare(const OutlineResult& outline) {
        const auto first = m_report.answer.points.begin() + static_cast<std::ptrdiff_t>(outline.firstPoint);
        const auto last = first + static_cast<std::ptrdiff_t>(outline.pointCount);
        QcGePoint middle;
        for (auto point = first; point != last; ++point) {
            const double part = 1.0 / static_cast<double>(outline.pointCount);
            middle.x += point->place.x * part;
            middle.y += point->place.y * part;
            middle.z += point->place.z * part;
        }
        const auto nearest = std::min_element(first, last, [&](const PointResult& a, const PointResult& b) {
            return Distance(a.place, middle) < Distance(b.place, middle);
        });
        ResultSheet::Text text;
        text.text.Format(L"%.1f%%", 100.0 * *outline.share);
        text.middle = nearest->place;
        text.outward = outline.outward;
        text.along = LevelIn(outline.outward);
        text.height = 2.0 * m_height;
        m_sheet.AddText(kResultShares, text);
    }

    // What runs level in a plane: the x axis in a level one.
    static QcGePoint LevelIn(const QcGePoint& outward) {
        const double inPlan = std::hypot(outward.x, outward.y);
        return inPlan == 0.0 ? QcGePoint(1.0, 0.0, 0.0) : QcGePoint(-outward.y / inPlan, outward.x / inPlan, 0.0);
    }

    const PointsReport& m_report;
    ResultSheet m_sheet;
    double m_height = 0.0;
};

}  // namespace

DrawingChange PointsOnDrawing(const PointsReport& report, const AcDbDatabase& drawing) {
    return Layout(report, drawing).Run();
}
