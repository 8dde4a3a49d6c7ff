// orvo record: makes an animation of pictures.
#pragma once

#include <optional>
#include <vector>

#include "platform/base/CString.h"

class Output;
class Progress;
struct Subcommand;

struct RecordOptions {
    std::vector<CString> frames;  // files, in the order in which they are shown
    CString output;               // the AVI file
    std::optional<CString> rate;  // frames of the stream per second; every picture lasts one second all the same
    std::optional<CString> bits;  // 8, 24 or 32 for each pixel
    bool isYes = false;           // replace a file without asking
};

// Gives an ExitCode. The last picture is written twice, so that it has its second, too. The recording grows under a
// name of its own beside the output and takes its name when it is complete: until then a file of that name stays as it
// is, and after a failure, or when the user cancels it, nothing is left behind.
int RunRecord(const RecordOptions& options, Output& output, Progress& progress);

// Its row of the host's table.
Subcommand RecordSubcommand();
