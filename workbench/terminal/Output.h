// What a subcommand answers, and the way it complains: on the standard streams, or into the sink of OutputSink.h.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "platform/base/CString.h"

// Collects an answer and writes it in one go, so that a request that fails half-way answers nothing.
class Output {
public:
    void Line(const CString& text);
    // A document, indented by two blanks, in the order in which its members were set. Numbers that are not finite are
    // null.
    void Json(const nlohmann::ordered_json& document);
    // Throws away what was collected.
    void Drop() { m_text.clear(); }
    // Writes what was collected and flushes the stream. False, with a complaint, when not all of it could be written;
    // a reader that has gone away is no reason to complain, but gives false, too.
    bool Write();

private:
    std::string m_text;
};

// Writes one message: "orvo: " and the text on the standard error stream, the text alone into a sink.
void Complain(const CString& text);
