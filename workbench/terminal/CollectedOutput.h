// An answer that is collected, and then written to the standard output stream or into the sink of OutputSink.h.
#pragma once

#include <string>

#include "platform/host/Output.h"

// Writes its answer in one go, so that a request that fails half-way answers nothing. Complaints go their way at once.
class CollectedOutput : public Output {
public:
    void Write(std::string_view text) override { m_text += text; }
    void Complain(const CString& text) override;

    // Throws away what was collected.
    void Drop() { m_text.clear(); }
    // Writes what was collected and flushes the stream. False, with a complaint, when not all of it could be written;
    // a reader that has gone away is no reason to complain, but gives false, too.
    bool Flush();

private:
    std::string m_text;
};
