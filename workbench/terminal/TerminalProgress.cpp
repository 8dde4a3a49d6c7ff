// The line, and the signals.
#include "workbench/terminal/TerminalProgress.h"

#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <iterator>
#include <string>

#include "workbench/terminal/OutputSink.h"

namespace {

constexpr std::chrono::milliseconds kBetweenLines(100);
constexpr const char* kEmptyLine = "\r\033[K";
constexpr int kSignals[] = {SIGHUP, SIGINT, SIGTERM};

volatile std::sig_atomic_t g_stopSignal = 0;
bool g_hasLine = false;

void NoteStop(int number) {
    g_stopSignal = number;
}

void WriteToTerminal(const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stderr);
}

}  // namespace

class TerminalProgress::Signals {
public:
    Signals() {
        struct sigaction action = {};
        action.sa_handler = NoteStop;
        // Calls that are under way go on: the work is asked to stop, its files do not fail. The second signal is not
        // for the work any more, which may hang.
        action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
        for (std::size_t i = 0; i < std::size(kSignals); ++i) {
            sigaction(kSignals[i], nullptr, &m_before[i]);
            if (m_before[i].sa_handler != SIG_IGN)  // somebody wants the program to go on whatever comes
                sigaction(kSignals[i], &action, nullptr);
        }
    }
    ~Signals() {
        for (std::size_t i = 0; i < std::size(kSignals); ++i)
            sigaction(kSignals[i], &m_before[i], nullptr);
    }
    Signals(const Signals&) = delete;
    Signals& operator=(const Signals&) = delete;

private:
    struct sigaction m_before[std::size(kSignals)] = {};
};

TerminalProgress::TerminalProgress() {
    g_stopSignal = 0;
}

TerminalProgress::~TerminalProgress() {
    ClearLine();
}

int TerminalProgress::GetStopSignal() const {
    return m_signals ? g_stopSignal : 0;
}

void TerminalProgress::ClearLine() {
    if (g_hasLine)
        WriteToTerminal(kEmptyLine);
    g_hasLine = false;
}

bool TerminalProgress::Show(int done, int total, const CString& text) {
    if (CurrentOutputSink())
        return true;
    if (!m_signals)
        m_signals = std::make_unique<Signals>();
    const auto now = std::chrono::steady_clock::now();
    if (now >= m_nextLine && isatty(STDERR_FILENO)) {
        m_nextLine = now + kBetweenLines;
        g_hasLine = true;
        CString line;
        line.Format(text.GetString(), done, total);
        WriteToTerminal(kEmptyLine + ToUtf8(line.View()));
    }
    return g_stopSignal == 0;
}
