// A line for each point.
#include "workbench/commands/PointsAsCsv.h"

#include <string>

#include "platform/host/HandleText.h"
#include "platform/host/Output.h"
#include "workbench/commands/CsvCells.h"
#include "workbench/commands/PointsReport.h"

namespace {

constexpr const char* kHeadings = "outline,handle,x,y,z,total,sunlit,sunlitBeijing\r\n";

std::string LineOf(const PointResult& point, const PointAnswer& answer) {
    const std::uint64_t handle = answer.outlines[point.outline].handle;
    CsvLine line;
    line.AddNumber(static_cast<double>(point.outline));
    line.AddText(handle == 0 ? CString() : HandleText(handle));
    for (const double number : {point.place.x, point.place.y, point.place.z, point.total})
        line.AddNumber(number);
    line.AddText(PeriodsCell(point.sunlit, 0.0));
    line.AddText(PeriodsCell(point.sunlit, answer.beijingOffset));
    return line.End();
}

}  // namespace

bool PrintPointsAsCsv(const PointsReport& report, Output& output, const AnalysisProgress& goOn) {
    const std::vector<PointResult>& points = report.answer.points;
    output.Write(kHeadings);
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (!goOn(i, points.size()))
            return false;
        output.Write(LineOf(points[i], report.answer));
    }
    return true;
}
