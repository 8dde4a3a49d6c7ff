// Opens the standard streams that are missing, and sends the host's lines to the error stream.
#include "workbench/host/StandardStreams.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <string>

#include "platform/base/CString.h"
#include "platform/host/CommandLine.h"

namespace {

// The host's lines begin with their line end; on a stream of lines it has to come last.
void WriteLineToStandardError(const wchar_t* text, void* /*context*/) {
    std::string line = ToUtf8(text);
    const std::size_t start = line.find_first_not_of('\n');
    if (start == std::string::npos)
        return;
    line.erase(0, start);
    if (line.back() != '\n')
        line += '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace

void SecureStandardStreams() {
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
        if (fcntl(stream, F_GETFD) != -1)
            continue;
        // The lowest free number is this stream's own. Opened the wrong way round, writing to it fails as it should.
        const int opened = open("/dev/null", stream == STDIN_FILENO ? O_RDONLY : O_RDONLY | O_CLOEXEC);
        if (opened != stream && opened != -1)
            close(opened);
    }
    std::signal(SIGPIPE, SIG_IGN);
}

void SendCommandLineToStandardError() {
    SetCommandLineSink(WriteLineToStandardError, nullptr);
}
