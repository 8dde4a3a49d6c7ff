// The line in which commands are typed: with history and completion, as at a terminal.
#pragma once

#include <QLineEdit>
#include <functional>

#include "workbench/terminal/LineHistory.h"
#include "workbench/window/RecalledLines.h"

// Enter runs the line, Up and Down recall lines, Tab completes the word before the cursor (in an empty line it goes on
// to the next widget, as Shift+Tab always goes back), Escape empties the line. A paste of several lines runs all but
// the last one.
class CommandEdit : public QLineEdit {
public:
    explicit CommandEdit(QWidget* parent);

    // Receives each line that is to be run, without blanks at its ends, and no empty ones.
    std::function<void(const CString&)> m_onLine;
    // Receives the ways to go on when Tab finds several and nothing that they share.
    std::function<void(const std::vector<CString>&)> m_onChoices;

    // Runs a line as if it were typed.
    void Submit(const CString& line);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void SubmitTyped();
    void PasteLines();
    void Complete();

    LineHistory m_history;
    RecalledLines m_recalled;
};
