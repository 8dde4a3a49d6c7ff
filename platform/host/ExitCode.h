// What the program gives back to whoever started it.
#pragma once

// A subcommand gives it, too.
enum ExitCode {
    kExitOk = 0,      // the request was met
    kExitFailed = 1,  // the request was understood and could not be met: unknown name, unusable file, failed write
    kExitUsage = 2,   // the request itself is wrong: unknown option or subcommand, a value that makes no sense
};
