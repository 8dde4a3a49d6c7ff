// orvo analyse: which windows of a drawing get the sun they must have, when, and what takes it from the others.
// Why: docs/decisions/workbench.md
#pragma once

#include <optional>
#include <vector>

#include "platform/base/CString.h"
#include "workbench/commands/AskedDay.h"
#include "workbench/commands/AskedFilm.h"
#include "workbench/commands/AskedPlan.h"
#include "workbench/commands/AskedReport.h"

class Output;
class Progress;
struct Subcommand;

struct AnalyseOptions {
    std::optional<CString> file;   // a DXF file
    std::vector<CString> windows;  // names of layers; none: WINDOW and 窗
    AskedDay day;
    std::vector<CString> proposed;   // names of layers
    std::optional<CString> threads;  // from 1 to 256
    bool isScoped = false;
    bool isCsv = false;  // not both
    bool isJson = false;
    AskedPlan plan;
    std::optional<CString> write;  // where the drawing with its results goes
    AskedFilm film;
    AskedReport page;
};

// Gives an ExitCode: success once the sun of one window has been told, whatever the verdicts,
// and a film that was asked for is whole.
int RunAnalyse(const AnalyseOptions& options, Output& output, Progress& progress);

// Its rows of the host's table: one name in the spelling of the program's texts, and one in the other.
Subcommand AnalyseSubcommand();
Subcommand AnalyzeSubcommand();
