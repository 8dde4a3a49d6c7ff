// What the remarks of an answer say of what was left out.
#include "workbench/commands/AnalysisReport.h"

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
