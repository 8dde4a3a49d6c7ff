// The menus that a right click opens over texts.
#pragma once

#include <functional>

class QLineEdit;
class QPlainTextEdit;
class QPoint;

// Cut, copy, paste and select all. `paste` is what pasting does.
void ShowEditMenu(QLineEdit& edit, const QPoint& at, const std::function<void()>& paste);
// Copy, select all and clear, for a text that is only read.
void ShowLogMenu(QPlainTextEdit& log, const QPoint& at);
