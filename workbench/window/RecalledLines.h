// Going through the lines typed before with the arrow keys.
#pragma once

#include <optional>
#include <vector>

#include "platform/base/CString.h"

// A cursor over old lines, from the newest back. It starts behind the newest one, where the line being typed is.
class RecalledLines {
public:
    explicit RecalledLines(std::vector<CString> lines) : m_lines(std::move(lines)), m_at(m_lines.size()) {}

    // Adds a newest line, unless it repeats the one before, and leaves the old lines.
    void Add(const CString& line);
    // The line before, and `typed` kept for the way back. Nothing at the oldest line.
    std::optional<CString> Older(const CString& typed);
    // The line behind; what was being typed behind the newest one. Nothing where that is shown already.
    std::optional<CString> Newer();

private:
    std::vector<CString> m_lines;
    std::size_t m_at;
    CString m_typed;
};
