// How far work is, on the terminal at which it was asked for.
// Why: docs/decisions/workbench.md
#pragma once

#include <chrono>
#include <memory>

#include "platform/host/Progress.h"

// A line on the standard error stream that is written over as long as the work goes on, and taken away before anything
// else is written and at the end; nothing where the stream is no terminal. From the first call of Show on an interrupt
// (Ctrl-C), a request to terminate and the end of the terminal ask the work to stop, once: a second one does what it
// does without this. Where a
// sink takes the answers there is no line, and the signals belong to whoever set the sink.
class TerminalProgress : public Progress {
public:
    TerminalProgress();
    // The signals do again what they did before. One at a time.
    ~TerminalProgress() override;

    bool Show(int done, int total, const CString& text) override;

    // The signal that asked the work to stop; 0 for none.
    int GetStopSignal() const;
    // Takes the line away, if there is one.
    static void ClearLine();

private:
    class Signals;

    std::unique_ptr<Signals> m_signals;  // from the first call on
    std::chrono::steady_clock::time_point m_nextLine;
};
