// Lines that somebody types at a terminal: editing, a history that outlives the program, completion with Tab.
#pragma once

#include <histedit.h>

#include "workbench/terminal/LineCompletion.h"
#include "workbench/terminal/LineHistory.h"
#include "workbench/terminal/LineSource.h"

class TerminalLines : public LineSource {
public:
    explicit TerminalLines(LineCompleter completer);
    ~TerminalLines() override;

    // Whether the terminal can be edited on at all.
    bool IsUsable() const { return m_editor && m_history.GetHandle(); }

    Got Next(CString& line) override;

private:
    static char* PromptOf(EditLine* editor);
    static unsigned char Complete(EditLine* editor, int key);

    LineCompleter m_completer;
    LineHistory m_history;
    EditLine* m_editor = nullptr;
};
