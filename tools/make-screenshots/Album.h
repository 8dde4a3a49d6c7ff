// The pictures of one language, and what was found wrong with what they show.
#pragma once

#include <QStringList>
#include <functional>

#include "platform/window/ModalDriver.h"

class QWidget;

// Puts pictures into a folder that exists.
class Album {
public:
    explicit Album(QString folder) : m_folder(std::move(folder)) {}

    // Takes a picture of a shown window as it is now, with what has opened over it (null: nothing), and checks the
    // window's layout.
    void Take(const QString& name, const ModalWindow& window, QWidget* popup = nullptr);
    // Runs what shows modal windows. The first of them is given to `body` and then cancelled. That it comes is checked.
    void Show(const char* scene, const std::function<void()>& modal,
              const std::function<void(const ModalWindow&)>& body);
    // Does what shows one box or menu, and takes a picture of that, alone.
    void TakeBox(const QString& name, const std::function<void()>& cause);

    // What went wrong, one line each, with the picture's name before it.
    const QStringList& Faults() const { return m_faults; }
    int Count() const { return m_count; }

private:
    QString m_folder;
    QStringList m_faults;
    int m_count = 0;
};
