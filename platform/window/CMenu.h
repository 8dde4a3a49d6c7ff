// A menu that pops up.
#pragma once

#include <vector>

#include "platform/window/CWnd.h"

// What an entry is.
inline constexpr UINT MF_STRING = 0x0000;     // a text
inline constexpr UINT MF_GRAYED = 0x0001;     // it cannot be chosen
inline constexpr UINT MF_CHECKED = 0x0008;    // it has a tick
inline constexpr UINT MF_SEPARATOR = 0x0800;  // a line, without number and text
// How a menu is shown.
inline constexpr UINT TPM_LEFTALIGN = 0x0000;  // to the right of the place
inline constexpr UINT TPM_RETURNCMD = 0x0100;  // the choice is given, and not sent

// Built entry by entry, then shown. A ModalDriver answers it like a dialog: its text holds the entries, one a line
// (separators as empty lines), and a command is the number of an entry.
class ORVO_API CMenu {
public:
    // Has to come first. False the second time.
    BOOL CreatePopupMenu();
    // Adds an entry at the end; false before CreatePopupMenu. The number is above 0. In a text, '&' marks the mnemonic,
    // and what follows a tab is shown as the shortcut.
    BOOL AppendMenu(UINT flags, UINT_PTR id = 0, const wchar_t* text = nullptr);
    // Shows the menu at a place on the screen, in pixels, until an entry is chosen or it is left. With TPM_RETURNCMD
    // the choice is given (0: none); else it is sent to the owner as WM_COMMAND, and the result tells whether there was
    // one.
    int TrackPopupMenu(UINT flags, int x, int y, CWnd* owner);

private:
    struct Item {
        UINT flags;
        UINT id;
        CString text;
    };
    std::vector<Item> m_items;
    bool m_isCreated = false;
};
