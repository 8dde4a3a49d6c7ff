// The lines that were typed before: at the terminal and in the window alike, kept in one file.
#pragma once

#include <histedit.h>

#include <string>
#include <vector>

#include "platform/base/CString.h"

// At most 1000 lines, the oldest are given up; a line that repeats the one before it is not added. The lines are kept
// in the file "history" in the user's folder; without that folder they last as long as the program.
class LineHistory {
public:
    LineHistory();
    ~LineHistory();
    LineHistory(const LineHistory&) = delete;
    LineHistory& operator=(const LineHistory&) = delete;

    // What the line editor takes; null when there is no memory.
    History* GetHandle() const { return m_history; }
    // Adds a line, without its end, and saves. A history that cannot be kept is no loss to report.
    void Remember(const CString& line);
    // From the oldest to the newest.
    std::vector<CString> GetLines() const;

private:
    History* m_history;
    std::string m_file;
};

// The library of the history and the line editor holds descriptions of the terminal until the process ends: it must not
// be unloaded together with the workbench, or they would be lost.
void KeepEditorLoaded();
