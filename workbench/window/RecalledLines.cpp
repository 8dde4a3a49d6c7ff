// The cursor of the command line's history.
#include "workbench/window/RecalledLines.h"

void RecalledLines::Add(const CString& line) {
    if (m_lines.empty() || m_lines.back() != line)
        m_lines.push_back(line);
    m_nAt = m_lines.size();
    m_strTyped = CString();
}

std::optional<CString> RecalledLines::Older(const CString& typed) {
    if (m_nAt == 0)
        return std::nullopt;
    if (m_nAt == m_lines.size())
        m_strTyped = typed;
    return m_lines[--m_nAt];
}

std::optional<CString> RecalledLines::Newer() {
    if (m_nAt == m_lines.size())
        return std::nullopt;
    ++m_nAt;
    return m_nAt == m_lines.size() ? m_strTyped : m_lines[m_nAt];
}
