// Where the prompt gets its lines from.
#pragma once

#include "platform/base/CString.h"

class LineSource {
public:
    enum class Got {
        Line,      // a line, without its end
        TooLong,   // a line that was passed over because of its length
        Canceled,  // the user gave the line up
        End,       // there is no further line
        Failed,    // reading is not possible
    };

    LineSource() = default;
    virtual ~LineSource() = default;
    LineSource(const LineSource&) = delete;
    LineSource& operator=(const LineSource&) = delete;

    virtual Got Next(CString& line) = 0;
};
