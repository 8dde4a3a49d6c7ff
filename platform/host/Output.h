// What a subcommand answers, and how it complains. Whoever runs the subcommand decides where both go.
#pragma once

#include <string_view>

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// Given to a subcommand while it runs, and not beyond; to be used in the host's thread.
class ORVO_API Output {
public:
    // For those who derive from it.
    Output() = default;
    virtual ~Output();
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    // Adds text in UTF-8 to the answer, as it stands: whole lines, each with its end.
    virtual void Write(std::string_view text) = 0;
    // Says in one message, without a line end, what is wrong. It is no part of the answer.
    virtual void Complain(const CString& text) = 0;

    // Adds one line to the answer; its end is put behind it.
    void Line(const CString& text);
};
