// What there are pictures of in the program's window.
#pragma once

#include <QStringList>
#include <functional>

class MainWindow;
class QWidget;

// Called when a scene is ready, with what is to be in the picture: the window, or a box over it.
using TakePicture = std::function<void(QWidget& shown)>;

// The names of the scenes.
QStringList WindowScenes();
// Does what a person does until there is something to see. False for a name that is not among those, and when something
// did not come.
bool ShowScene(const QString& name, MainWindow& window, const TakePicture& take);
