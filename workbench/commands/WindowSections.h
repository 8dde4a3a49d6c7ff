// The windows of an analysis on a page: a table of them, and the day of each as a line.
#pragma once

#include <cstddef>
#include <string>

class HtmlPage;
struct AnalysisReport;

// The element that tells the day of a window, by its place in the answer.
std::string WindowAnchor(std::size_t index);

void AddWindowTable(HtmlPage& page, const AnalysisReport& report);
void AddTimeLines(HtmlPage& page, const AnalysisReport& report);
