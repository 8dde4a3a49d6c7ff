// What a project takes from the windows of an analysis: the sums, and who fails now that passed.
// Why: docs/decisions/workbench.md
#pragma once

class Output;
struct AnalysisReport;

// By flat, by building and by storey, before and now, of the windows that have a before; then the names of the windows
// and flats that fail now and passed before. Nothing unless windows are compared.
void PrintChanges(const AnalysisReport& report, Output& output);
