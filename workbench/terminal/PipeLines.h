// Lines from the standard input stream when nobody sits at a terminal: no prompt, no editing.
#pragma once

#include "workbench/terminal/LineSource.h"

class PipeLines : public LineSource {
public:
    // Lines of more than this many bytes are passed over.
    static constexpr int kMostBytes = 65536;

    Got Next(CString& line) override;
};
