// Showing something modal until it is answered, by a person or by a test. For the sources of this room only.
#pragma once

#include <functional>

#include "platform/base/Api.h"
#include "platform/window/ModalDriver.h"

class QDialog;

// Whether somebody could answer a modal window shown now.
ORVO_API bool CanBeAnswered();

// Runs the dialog. Once it is shown and active, the newest ModalDriver is asked; a command of it other than 0 goes to
// `press`, unless the dialog is over already. `press` gives whether the command was one that the dialog knows, and
// should end it. The dialog may be destroyed meanwhile: false then.
ORVO_API bool RunModal(QDialog* dialog, ModalWindow window, const std::function<bool(int)>& press);
