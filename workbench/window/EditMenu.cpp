// Makes the menus that a right click opens over texts, because the toolkit's own ones are in another language than the
// program.
#include "workbench/window/EditMenu.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>

#include "workbench/view/WidgetText.h"

void ShowEditMenu(QLineEdit& edit, const QPoint& at, const std::function<void()>& paste) {
    QMenu menu(&edit);
    const bool isSelected = edit.hasSelectedText();
    menu.addAction(ShownSay(L"剪切(&T)"), &edit, &QLineEdit::cut)->setEnabled(isSelected);
    menu.addAction(ShownSay(L"复制(&C)"), &edit, &QLineEdit::copy)->setEnabled(isSelected);
    menu.addAction(ShownSay(L"粘贴(&P)"), &edit, paste)->setEnabled(!QApplication::clipboard()->text().isEmpty());
    menu.addSeparator();
    menu.addAction(ShownSay(L"全选(&A)"), &edit, &QLineEdit::selectAll)->setEnabled(!edit.text().isEmpty());
    menu.exec(at);
}

void ShowLogMenu(QPlainTextEdit& log, const QPoint& at) {
    QMenu menu(&log);
    menu.addAction(ShownSay(L"复制(&C)"), &log, &QPlainTextEdit::copy)->setEnabled(log.textCursor().hasSelection());
    menu.addAction(ShownSay(L"全选(&A)"), &log, &QPlainTextEdit::selectAll);
    menu.addSeparator();
    menu.addAction(ShownSay(L"清除(&L)"), &log, &QPlainTextEdit::clear);
    menu.exec(at);
}
