// --write: the file that a drawing with results goes to.
// Why: docs/decisions/workbench.md
#pragma once

#include <optional>
#include <vector>

#include "platform/base/CString.h"

struct DrawingChange;
struct SubcommandOption;
class AcDbDatabase;

SubcommandOption WriteOption();

// All give an ExitCode, and have complained unless it is success. Before anything is computed: that the file is another
// one than the drawing, and that its folder is there.
int CheckWriteOption(const CString& drawing, const std::optional<CString>& write);

// None of the layers that an option names holds results.
int RefuseResultLayers(const wchar_t* option, const std::vector<CString>& layers);

// The drawing as it was read, with the change; what a file of that name held before is kept as NAME.bak.
int WriteDrawing(AcDbDatabase& drawing, const DrawingChange& change, const CString& path);
