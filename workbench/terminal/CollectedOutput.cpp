// Writing answers.
#include "workbench/terminal/CollectedOutput.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

#include "workbench/Texts.h"
#include "workbench/terminal/Complaint.h"
#include "workbench/terminal/OutputSink.h"
#include "workbench/terminal/TerminalProgress.h"

void CollectedOutput::Complain(const CString& text) {
    ::Complain(text);
}

bool CollectedOutput::Flush() {
    if (OutputSink* sink = CurrentOutputSink()) {
        const std::string answer = std::exchange(m_text, std::string());
        sink->TakeAnswer(answer);
        return true;
    }
    TerminalProgress::ClearLine();
    errno = 0;
    const bool isWritten = std::fwrite(m_text.data(), 1, m_text.size(), stdout) == m_text.size();
    const bool isFlushed = std::fflush(stdout) == 0;
    const int cause = errno;
    m_text.clear();
    if (isWritten && isFlushed)
        return true;
    std::clearerr(stdout);
    if (cause != EPIPE)
        ::Complain(SayFormat(L"写不到标准输出：%s", FromUtf8(std::strerror(cause))));
    return false;
}
