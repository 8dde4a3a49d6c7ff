// Reads the dialogs of a resource script: the text form in which templates are written and which any resource compiler
// takes.
// Why: docs/decisions/window.md
#pragma once

#include <string_view>
#include <vector>

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/window/resource/DialogTemplate.h"

// The dialogs of one script. What is understood: #define of a number, #include and #pragma (skipped: the text is UTF-8
// and complete), #line, comments, LANGUAGE, and DIALOGEX with STYLE, EXSTYLE, CAPTION, FONT and items between BEGIN and
// END or braces: CONTROL, LTEXT, CTEXT, RTEXT, PUSHBUTTON, DEFPUSHBUTTON, CHECKBOX, AUTOCHECKBOX, RADIOBUTTON,
// AUTORADIOBUTTON, GROUPBOX, EDITTEXT, COMBOBOX, LISTBOX, and ICON (left out of the dialog). Numbers are sums, bit
// combinations and NOTs of decimal and hexadecimal numbers and names: those of WindowStyles.h, IDOK, IDCANCEL, IDYES,
// IDNO, IDC_STATIC, and the script's own. Any other statement is an error.
class ORVO_API ResourceScript {
public:
    // Reads a script, in place of what was read before. On failure there are no dialogs, and `message` says which line
    // is wrong and why, in the language of the interface; on success it is empty. Any bytes will do.
    bool Parse(std::string_view utf8, CString& message);

    // The dialog of this number, valid until the next Parse; null when there is none. Numbers are unique in a script.
    const DialogTemplate* FindDialog(UINT id) const;
    // All dialogs, in the script's order.
    const std::vector<DialogTemplate>& Dialogs() const { return m_dialogs; }

private:
    std::vector<DialogTemplate> m_dialogs;
};
