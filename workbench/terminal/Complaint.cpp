// One message, to the sink or to the error stream.
#include "workbench/terminal/Complaint.h"

#include <cstdio>
#include <string>

#include "workbench/terminal/OutputSink.h"
#include "workbench/terminal/TerminalProgress.h"

namespace {

void Write(const CString& text) {
    TerminalProgress::ClearLine();
    const std::string line = "orvo: " + ToUtf8(text.View()) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace

void Complain(const CString& text) {
    if (OutputSink* sink = CurrentOutputSink())
        sink->TakeComplaint(ToUtf8(text.View()));
    else
        Write(text);
}

void Note(const CString& text) {
    if (OutputSink* sink = CurrentOutputSink())
        sink->TakeNote(ToUtf8(text.View()));
    else
        Write(text);
}

int Refuse(int code, const CString& text) {
    Complain(text);
    return code;
}
