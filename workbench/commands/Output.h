// What a subcommand answers on the standard output stream, and the way it complains.
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

// Writes one message to the standard error stream: "orvo: " and the text.
void Complain(const CString& text);
