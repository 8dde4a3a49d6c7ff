// Writing answers and messages.
#include "workbench/terminal/Output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <nlohmann/json.hpp>
#include <utility>

#include "workbench/Texts.h"
#include "workbench/terminal/OutputSink.h"

namespace {

OutputSink* g_sink = nullptr;

}  // namespace

void SetOutputSink(OutputSink* sink) {
    g_sink = sink;
}

OutputSink* CurrentOutputSink() {
    return g_sink;
}

void Output::Line(const CString& text) {
    m_text += ToUtf8(text.View());
    m_text += '\n';
}

void Output::Json(const nlohmann::ordered_json& document) {
    m_text += document.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
    m_text += '\n';
}

bool Output::Write() {
    if (g_sink) {
        const std::string answer = std::exchange(m_text, std::string());
        g_sink->TakeAnswer(answer);
        return true;
    }
    errno = 0;
    const bool isWritten = std::fwrite(m_text.data(), 1, m_text.size(), stdout) == m_text.size();
    const bool isFlushed = std::fflush(stdout) == 0;
    const int cause = errno;
    m_text.clear();
    if (isWritten && isFlushed)
        return true;
    std::clearerr(stdout);
    if (cause != EPIPE)
        Complain(SayFormat(L"写不到标准输出：%s", FromUtf8(std::strerror(cause))));
    return false;
}

void Complain(const CString& text) {
    if (g_sink) {
        g_sink->TakeComplaint(ToUtf8(text.View()));
        return;
    }
    const std::string line = "orvo: " + ToUtf8(text.View()) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}
