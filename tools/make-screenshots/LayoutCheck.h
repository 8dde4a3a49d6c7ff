// Whether a shown window is laid out so that everything in it can be read.
#pragma once

#include <QStringList>

class QWidget;

// What is wrong with a window, one line each, empty for a good one: texts that are cut off or that no font can show,
// controls that lie over one another or over the window's edge, labels that stand higher or lower than what they name.
QStringList LayoutFaults(const QWidget& window);

// The same of texts alone, in all that can be seen in a window with toolbars, panels and lists that scroll.
QStringList WindowFaults(const QWidget& window);
