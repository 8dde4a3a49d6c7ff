// The cursor of the command line's history.
#include "workbench/window/RecalledLines.h"

void RecalledLines::Add(const CString& line) {
    if (m_lines.empty() || m_lines.back() != line)
        m_lines.push_back(line);
    m_at = m_lines.size();
    m_typed = CString();
}

std::optional<CString> RecalledLines::Older(const CString& typed) {
    if (m_at == 0)
        return std::nullopt;
    if (m_at == m_lines.size())
        m_typed = typed;
    return m_lines[--m_at];
}

std::optional<CString> RecalledLines::Newer() {
    if (m_at == m_lines.size())
        return std::nullopt;
    ++m_at;
    return m_at == m_lines.size() ? m_typed : m_lines[m_at];
}
