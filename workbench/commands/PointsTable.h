// The answer of orvo points for people: what was asked, and a line for each outline.
#pragma once

class Output;
struct PointsReport;

void PrintPointsTable(const PointsReport& report, Output& output);
