// Reads plain lines from the standard input stream.
#include "workbench/terminal/PipeLines.h"

#include <cstdio>
#include <string>

LineSource::Got PipeLines::Next(CString& line) {
    std::string bytes;
    bool isTooLong = false;
    bool hasAny = false;
    int character = 0;
    while ((character = std::getc(stdin)) != EOF) {
        hasAny = true;
        if (character == '\n')
            break;
        isTooLong = isTooLong || static_cast<int>(bytes.size()) >= kMostBytes;
        if (!isTooLong)
            bytes += static_cast<char>(character);
    }
    if (std::ferror(stdin))
        return Got::Failed;
    if (!hasAny)
        return Got::End;
    if (isTooLong)
        return Got::TooLong;
    if (!bytes.empty() && bytes.back() == '\r')
        bytes.pop_back();
    line = FromUtf8(bytes);
    return Got::Line;
}
