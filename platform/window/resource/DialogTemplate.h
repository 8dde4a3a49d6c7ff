// What a dialog is made from: its frame, its font and its items, as a resource script describes them.
#pragma once

#include <vector>

#include "platform/base/CString.h"
#include "platform/base/FrameworkTypes.h"

// The number of an item that nobody asks for: -1 in a script, 16 bits wide here.
inline constexpr UINT IDC_STATIC = 0xFFFF;

// One item of a dialog. Places and sizes are in dialog units: a quarter of the font's average character width across,
// an eighth of its height down; x and y count from the upper left corner of the dialog's inside.
struct DialogItemTemplate {
    CString windowClass;  // "BUTTON", "EDIT", "STATIC", "LISTBOX", "COMBOBOX", or the name that the script gives
    CString text;         // as built in, not translated
    UINT id = IDC_STATIC;
    DWORD style = 0;  // complete: with WS_CHILD, WS_VISIBLE and what the item's statement adds by itself
    DWORD exStyle = 0;
    short x = 0;
    short y = 0;
    short cx = 0;
    short cy = 0;  // of a combo box that drops down: with the list
};

// A dialog. The order of the items is the order in which the keyboard visits them.
struct DialogTemplate {
    UINT id = 0;
    DWORD style = 0;
    DWORD exStyle = 0;
    short x = 0;
    short y = 0;
    short cx = 0;  // of the inside, without frame and caption
    short cy = 0;
    CString caption;
    int pointSize = 0;  // 0 and an empty face: the system's font
    CString face;
    std::vector<DialogItemTemplate> items;
};
