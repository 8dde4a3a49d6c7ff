// The answer of orvo points for people: what was asked, and a line for each outline.
#pragma once

#include <vector>

#include "platform/base/CString.h"
#include "workbench/terminal/TextTable.h"

class Output;
struct PointAnswer;
struct PointRequest;
struct PointsReport;

void PrintPointsTable(const PointsReport& report, Output& output);

// Pieces of it, each for a page, too: how the points lie, the outlines, how many there are, and how to read the
// numbers.
CString GridText(const PointRequest& request);
TextTable OutlineTable(const PointsReport& report);
CString PointsSummary(const PointAnswer& answer);
std::vector<CString> ReadingNotes(const PointsReport& report);
