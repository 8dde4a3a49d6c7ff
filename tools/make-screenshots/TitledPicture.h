// A window as a person sees it, with a title bar, as a picture.
#pragma once

#include <QImage>

class QWidget;

// The window with a plain title bar above it and a thin frame around it (off-screen nobody draws them), and, where it
// stands on the screen, what has opened over it: a menu or a list that has dropped down (null: nothing).
QImage TitledPicture(QWidget& window, QWidget* popup);

// The same picture with a table of at most 256 colours, for a small file. Colours that differ least are drawn as one
// where there are more.
QImage WithColourTable(const QImage& picture);
