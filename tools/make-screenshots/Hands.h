// A person's hands in a shown dialog: controls by their numbers, clicks, keys.
#pragma once

#include <QString>
#include <stdexcept>

#include "platform/window/ModalDriver.h"

class QWidget;

// A control of a shown dialog by its number. One that is not there, or of another kind, is an error of the scene:
// std::logic_error, upon which the window is closed.
QWidget& ControlOf(const ModalWindow& window, int id);
template <class Control>
Control& ControlAs(const ModalWindow& window, int id) {
    auto* control = dynamic_cast<Control*>(&ControlOf(window, id));
    if (control == nullptr)
        throw std::logic_error("a control of another kind");
    return *control;
}

void Click(const ModalWindow& window, int id);
// Types over the whole text of an edit.
void Type(const ModalWindow& window, int id, const QString& text);
// Types digits into a masked edit, from its first place on.
void TypeDigits(const ModalWindow& window, int id, const QString& digits);
// Chooses an entry of a list that drops down, with the keyboard.
void Choose(const ModalWindow& window, int id, int entry);
// Lets a list drop down and gives its window; it closes when its control loses the focus, or by CloseList.
QWidget& OpenList(const ModalWindow& window, int id);
void CloseList(const ModalWindow& window, int id);
