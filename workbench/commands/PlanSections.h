// The plan on a page: of windows, with a project before and after beside each other, or of points.
#pragma once

class HtmlPage;
struct AnalysisReport;
struct OccluderSet;
struct PointsReport;

void AddPlan(HtmlPage& page, const AnalysisReport& report, const OccluderSet& faces);
void AddPlan(HtmlPage& page, const PointsReport& report, const OccluderSet& faces);
