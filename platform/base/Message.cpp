// Hands messages to the sink. It is constant-initialised, so that a message from a static constructor finds it.
#include "platform/base/Message.h"

#include <cstdio>
#include <string>

#include "platform/base/CString.h"

namespace {

void WriteToStandardError(const wchar_t* text, void*) {
    const std::string line = ToUtf8(text) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
    std::fflush(stderr);
}

constinit MessageSink g_sink = WriteToStandardError;
constinit void* g_context = nullptr;

}  // namespace

void ReportMessage(const wchar_t* text) {
    if (text && *text)
        g_sink(text, g_context);
}

void SetMessageSink(MessageSink sink, void* context) {
    g_sink = sink ? sink : WriteToStandardError;
    g_context = context;
}
