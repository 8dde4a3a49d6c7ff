// The line editor's history.
#include "workbench/terminal/LineHistory.h"

#include <dlfcn.h>

#include <string_view>

#include "platform/base/Support.h"

namespace {

constexpr int kMostRemembered = 1000;

std::string_view WithoutEnd(std::string_view line) {
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r'))
        line.remove_suffix(1);
    return line;
}

}  // namespace

LineHistory::LineHistory() : m_history(history_init()) {
    KeepEditorLoaded();
    if (!m_history)
        return;
    HistEvent event = {};
    history(m_history, &event, H_SETSIZE, kMostRemembered);
    history(m_history, &event, H_SETUNIQUE, 1);
    const CString folder = UserFolder();
    if (folder.IsEmpty())
        return;
    m_file = ToUtf8((folder + L"/history").View());
    history(m_history, &event, H_LOAD, m_file.c_str());
}

LineHistory::~LineHistory() {
    if (m_history)
        history_end(m_history);
}

void LineHistory::Remember(const CString& line) {
    if (!m_history)
        return;
    HistEvent event = {};
    history(m_history, &event, H_ENTER, ToUtf8(line.View()).c_str());
    if (!m_file.empty())
        history(m_history, &event, H_SAVE, m_file.c_str());
}

std::vector<CString> LineHistory::GetLines() const {
    std::vector<CString> lines;
    HistEvent event = {};
    if (!m_history)
        return lines;
    for (int found = history(m_history, &event, H_LAST); found >= 0; found = history(m_history, &event, H_PREV))
        lines.push_back(FromUtf8(WithoutEnd(event.str)));
    return lines;
}

void KeepEditorLoaded() {
    Dl_info library = {};
    if (dladdr(reinterpret_cast<void*>(&el_init), &library) != 0)
        dlopen(library.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
}
