// The log of the window: what was typed, answered and complained about, one below the other.
#pragma once

#include <QPlainTextEdit>
#include <string_view>

#include "platform/base/CString.h"

// Keeps the newest lines and shows the last one as they come.
class CommandLog : public QPlainTextEdit {
public:
    explicit CommandLog(QWidget* parent);

    // A line that was run.
    void AddTyped(const CString& line);
    // Text as it was printed, with the line ends that are in it; what comes next begins a line of its own.
    void AddText(const CString& text);
    // One message.
    void AddComplaint(const CString& text);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void Add(const QString& text, const QColor& color);
};
