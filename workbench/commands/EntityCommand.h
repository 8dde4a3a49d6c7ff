// orvo entity: lists the entities of a drawing, shows one group of one of them, or changes it.
// Why: docs/decisions/workbench.md
#pragma once

#include <optional>
#include <vector>

#include "platform/base/CString.h"

class Output;
struct Subcommand;

struct EntityOptions {
    std::optional<CString> file;  // a DXF file
    bool isList = false;          // also when nothing else is asked for
    std::vector<CString> get;     // handle, group code
    std::vector<CString> set;     // handle, group code, new value
    bool isJson = false;
};

// Gives an ExitCode. The file is written only when a value has changed: in one step, with the file before as NAME.bak.
int RunEntity(const EntityOptions& options, Output& output);

// Its row of the host's table.
Subcommand EntitySubcommand();
