// Makes a dialog's widgets from its template. For the sources of this room only.
// Why: docs/decisions/window.md
#pragma once

#include "platform/base/ModuleFile.h"
#include "platform/window/resource/DialogTemplate.h"

class QDialog;
class QWidget;

// The dialog of this number in a module's resource script; false, with a message to report, when there is none.
bool FindDialogTemplate(HINSTANCE resources, UINT id, DialogTemplate& found, CString& message);

// A hidden dialog with all its controls, over the owner (null: none). Texts are in the language of the interface.
// Dialog units are those of the desktop's font; columns of controls whose texts need more room get it.
QDialog* BuildDialog(const DialogTemplate& source, QWidget* owner);
