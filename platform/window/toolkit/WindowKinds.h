// What can be told from a widget about the kind of window it is. For the sources of this room only.
#pragma once

class QWidget;

// Whether a widget lies in a dialog of the framework, at any depth.
bool IsInDialog(const QWidget& widget);
// Whether the mouse's wheel changes the widget's value.
bool ChangesOnWheel(const QWidget& widget);
