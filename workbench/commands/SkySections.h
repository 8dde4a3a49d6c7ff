// The sky of chosen windows on a page.
#pragma once

class HtmlPage;
struct AnalysisReport;
struct OccluderSet;
struct SkyChoice;

// Nothing for no windows. With a project each window has the sky before and after.
void AddSkies(HtmlPage& page, const AnalysisReport& report, const OccluderSet& faces, const SkyChoice& choice);
