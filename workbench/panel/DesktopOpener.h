// Opening a file or a folder with the program that the desktop has for it.
#pragma once

#include <functional>

class QObject;
class QUrl;

// Calls `onFailed` when nothing opens it, which may turn out later, unless `owner` is gone by then.
void OpenOnDesktop(const QUrl& url, QObject& owner, const std::function<void()>& onFailed);
