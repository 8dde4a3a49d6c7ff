// The log above the command line.
#include "workbench/window/CommandLog.h"

#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QScrollBar>

#include "platform/base/PlainText.h"
#include "workbench/view/WidgetText.h"
#include "workbench/window/EditMenu.h"

namespace {

constexpr int kMostLines = 10000;

// Line ends part lines; other characters that would steer a terminal are shown as what they are not.
QString PrintableLines(const CString& text) {
    QStringList lines = Shown(text).remove('\r').split('\n');
    for (QString& line : lines)
        line = Shown(Printable(Typed(line.replace('\t', "    "))));
    return lines.join('\n');
}

// A font in which Chinese letters are two Latin ones wide, so that tables stand in line.
QFont LogFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setFamilies({"Noto Sans Mono CJK SC", font.family()});
    return font;
}

}  // namespace

CommandLog::CommandLog(QWidget* parent) : QPlainTextEdit(parent) {
    setReadOnly(true);
    setMaximumBlockCount(kMostLines);
    setUndoRedoEnabled(false);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setFont(LogFont());
    setTabChangesFocus(true);
    setObjectName("CommandLog");
}

void CommandLog::AddTyped(const CString& line) {
    Add("orvo> " + PrintableLines(line), palette().color(QPalette::Link));
}

void CommandLog::AddText(const CString& text) {
    QString lines = PrintableLines(text);
    while (lines.startsWith('\n'))  // each text begins a line anyway
        lines.remove(0, 1);
    while (lines.endsWith('\n'))
        lines.chop(1);
    if (!lines.isEmpty())
        Add(lines, palette().color(QPalette::Text));
}

void CommandLog::AddComplaint(const CString& text) {
    const bool isDark = palette().color(QPalette::Base).lightness() < 128;
    Add(PrintableLines(text), isDark ? QColor(255, 138, 128) : QColor(176, 0, 32));
}

void CommandLog::Add(const QString& text, const QColor& color) {
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    if (!document()->isEmpty())
        cursor.insertBlock();
    QTextCharFormat format;
    format.setForeground(color);
    cursor.insertText(text, format);
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void CommandLog::contextMenuEvent(QContextMenuEvent* event) {
    ShowLogMenu(*this, event->globalPos());
}
