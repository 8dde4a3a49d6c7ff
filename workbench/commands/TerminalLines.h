// Lines that somebody types at a terminal: editing, a history that outlives the program, completion with Tab.
#pragma once

#include <histedit.h>

#include <string>

#include "workbench/commands/LineSource.h"

class TerminalLines : public LineSource {
public:
    // The history is kept in the file "history" in the user's folder; without that folder it lasts as long as the
    // program.
    TerminalLines();
    ~TerminalLines() override;

    // Whether the terminal can be edited on at all.
    bool IsUsable() const { return m_editor && m_history; }

    Got Next(CString& line) override;

private:
    static char* PromptOf(EditLine* editor);
    static unsigned char Complete(EditLine* editor, int key);
    void Remember(const char* line);

    History* m_history;
    EditLine* m_editor = nullptr;
    std::string m_historyFile;
};
