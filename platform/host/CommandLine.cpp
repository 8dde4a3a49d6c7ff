// Hands lines to the command line's sink. It is constant-initialised, so that a line from a static constructor finds
// it.
#include "platform/host/CommandLine.h"

#include <cstdio>
#include <string>
#include <string_view>

namespace {

void WriteToStandardOutput(const wchar_t* text, void*) {
    // Wide streams drop what the locale's encoding lacks; the bytes are therefore made here.
    const std::string bytes = ToUtf8(text);
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
    std::fflush(stdout);
}

constinit CommandLineSink g_sink = WriteToStandardOutput;
constinit void* g_context = nullptr;

}  // namespace

void SetCommandLineSink(CommandLineSink sink, void* context) {
    g_sink = sink ? sink : WriteToStandardOutput;
    g_context = context;
}

int PrintOnCommandLine(const wchar_t* text) {
    if (!text || !*text)
        return 0;
    g_sink(text, g_context);
    return static_cast<int>(std::wstring_view(text).size());
}
