// What the program gives back to whoever started it.
#pragma once

enum ExitCode {
    kExitOk = 0,
    kExitFailed = 1,  // the request was understood and could not be met: unknown name, unusable file, failed write
    kExitUsage = 2,   // the request itself is wrong: unknown option or subcommand, a value that makes no sense
};
