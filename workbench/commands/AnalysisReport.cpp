// What is found out about an answer afterwards.
#include "workbench/commands/AnalysisReport.h"

void TellEntities(const AcDbDatabase& drawing, AnalysisReport& report) {
    report.shading = ShadingEntitiesOf(drawing, report.answer);
    if (IsCompared(report))
        report.taking = ShadingEntitiesOf(drawing, report.answer, &WindowResult::lost);
}

LeftOut LeftOutOf(const AnalysisReport& report) {
    LeftOut leftOut;
    leftOut.belowAltitude = report.request.leastAltitude;
    if (report.request.isScoped)
        leftOut.entities = 0;
    for (const AnalysisRemark& remark : report.answer.remarks) {
        if (remark.kind == AnalysisRemark::Kind::LeftOutByScope)
            leftOut.entities = leftOut.entities.value_or(0) + remark.count;
        if (remark.kind == AnalysisRemark::Kind::LeftOutByAltitude)
            leftOut.belowAltitude = remark.amount;
    }
    return leftOut;
}
