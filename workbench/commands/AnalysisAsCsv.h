// The answer of orvo analyse as a table for spreadsheets.
#pragma once

#include "analysis/WindowAnalysis.h"

class Output;
struct AnalysisReport;

// A line of headings and one for each window, in UTF-8, between CR and LF, quoted where need be. Headings and words are
// those of the document, in every language. Numbers have up to six decimals. Times are HH:MM:SS; after midnight they go
// on from 24, before it they have a minus. A text that a spreadsheet would take for a formula has an apostrophe before
// it. With a project five more cells follow: the judged minutes before it, those that it takes, the verdicts before and
// now, and when which of its entities take them. False, with a part written, once `goOn` is.
bool PrintAnalysisAsCsv(const AnalysisReport& report, Output& output, const AnalysisProgress& goOn);
