// orvo points: how long the sun reaches the ground, roofs and facades within outlines of a drawing.
// Why: docs/decisions/workbench.md
#pragma once

#include <optional>
#include <vector>

#include "platform/base/CString.h"
#include "workbench/commands/AskedDay.h"
#include "workbench/commands/AskedReport.h"

class Output;
class Progress;
struct Subcommand;

struct PointsOptions {
    std::optional<CString> file;     // a DXF file
    std::vector<CString> areas;      // names of layers, one or more
    std::optional<CString> spacing;  // metres, above 0 and up to 1000; none: 1
    std::optional<CString> level;    // metres, -10000 to 10000
    AskedDay day;
    bool isCsv = false;  // not both
    bool isJson = false;
    std::optional<CString> write;  // where the drawing with its results goes
    AskedReport page;
};

// Gives an ExitCode: success once the sun of one point has been told, whatever it is.
int RunPoints(const PointsOptions& options, Output& output, Progress& progress);

// Its row of the host's table.
Subcommand PointsSubcommand();
