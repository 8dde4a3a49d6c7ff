// Whether a control has room, and its font the signs, for the texts that it shows.
#pragma once

#include <QStringList>

class QWidget;

// What is wrong with a control's texts, one line each: cut off at a side, too high, signs that no font has. Controls
// that show no text of their own have nothing wrong with them.
QStringList TextFaults(const QWidget& control);
