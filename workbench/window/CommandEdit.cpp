// The keys of the command line.
#include "workbench/window/CommandEdit.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>

#include "workbench/commands/Completion.h"
#include "workbench/view/WidgetText.h"
#include "workbench/window/EditMenu.h"

namespace {

// As long as a line at the prompt may be.
constexpr int kMostCharacters = 65536;

bool IsKeyOf(const QEvent& event, Qt::Key key) {
    return event.type() == QEvent::KeyPress && static_cast<const QKeyEvent&>(event).key() == key;
}

}  // namespace

CommandEdit::CommandEdit(QWidget* parent) : QLineEdit(parent), m_recalled(m_history.GetLines()) {
    setMaxLength(kMostCharacters);
    setObjectName("CommandEdit");
}

void CommandEdit::Submit(const CString& given) {
    CString line = given;
    line.Trim();
    if (line.IsEmpty())
        return;
    m_history.Remember(line);
    m_recalled.Add(line);
    if (m_onLine)
        m_onLine(line);
}

void CommandEdit::SubmitTyped() {
    const CString line = Typed(text());
    clear();
    Submit(line);
}

// Tab is taken before it moves the focus.
bool CommandEdit::event(QEvent* event) {
    if (IsKeyOf(*event, Qt::Key_Tab) && !text().isEmpty()) {
        Complete();
        return true;
    }
    return QLineEdit::event(event);
}

void CommandEdit::keyPressEvent(QKeyEvent* event) {
    std::optional<CString> recalled;
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        SubmitTyped();
    else if (event->key() == Qt::Key_Escape)
        clear();
    else if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)
        recalled = event->key() == Qt::Key_Up ? m_recalled.Older(Typed(text())) : m_recalled.Newer();
    else if (event->matches(QKeySequence::Paste))
        PasteLines();
    else
        QLineEdit::keyPressEvent(event);
    if (recalled)
        setText(Shown(*recalled));
}

void CommandEdit::contextMenuEvent(QContextMenuEvent* event) {
    ShowEditMenu(*this, event->globalPos(), [this] { PasteLines(); });
}

void CommandEdit::PasteLines() {
    QString pasted = QApplication::clipboard()->text();
    pasted.replace("\r\n", "\n").replace('\r', '\n');
    const QStringList lines = pasted.split('\n');
    for (const QString& line : lines.first(lines.size() - 1)) {
        insert(line);
        SubmitTyped();
    }
    insert(lines.last());
}

void CommandEdit::Complete() {
    const CString before = Typed(text().left(cursorPosition()));
    const LineCompletion completion = CompleteLine(before);
    if (!completion.rest.IsEmpty()) {
        const auto replaced = static_cast<int>(Shown(before.Right(completion.replaced)).size());
        if (replaced > 0)
            setSelection(cursorPosition() - replaced, replaced);
        insert(Shown(completion.rest));  // in the place of what is selected
    } else if (m_onChoices && !completion.choices.empty()) {
        m_onChoices(completion.choices);
    }
}
