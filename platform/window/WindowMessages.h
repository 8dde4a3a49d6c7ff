// The messages that windows send to each other, with the types and numbers that go with them: the framework's names and
// values.
#pragma once

#include <cstdint>

#include "platform/base/FrameworkTypes.h"

// What messages carry and give: whole numbers that have room for an address.
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;

// In pixels; y counts downwards.
struct POINT {
    LONG x;  // from the left
    LONG y;  // from the top
};

// The head of what WM_NOTIFY carries.
struct NMHDR {
    HWND hwndFrom;    // the sender
    UINT_PTR idFrom;  // its number
    UINT code;        // of the notification
};

// What a spin button is about to do (UDN_DELTAPOS); a handler that answers nonzero keeps it from doing so.
struct NMUPDOWN {
    NMHDR hdr;   // who it is
    int iPos;    // where it is
    int iDelta;  // by how much it is to go on
};

// The lower 16 bits.
inline constexpr WORD LOWORD(std::uintptr_t value) {
    return static_cast<WORD>(value & 0xFFFFU);
}
// The 16 bits above them.
inline constexpr WORD HIWORD(std::uintptr_t value) {
    return static_cast<WORD>((value >> 16U) & 0xFFFFU);
}
// Both in one number; what is above 16 bits is cut off.
inline constexpr std::uintptr_t MAKEWPARAM(UINT low, UINT high) {
    return (static_cast<std::uintptr_t>(high & 0xFFFFU) << 16U) | (low & 0xFFFFU);
}
// Both in one number; what is above 16 bits is cut off.
inline constexpr LRESULT MAKELONG(int low, int high) {
    return static_cast<LRESULT>(MAKEWPARAM(static_cast<UINT>(low), static_cast<UINT>(high)));
}

// Life and looks of a window.
inline constexpr UINT WM_DESTROY = 0x0002;        // the window goes, and is still there
inline constexpr UINT WM_SIZE = 0x0005;           // lParam: the inside's width and height in pixels, in its two words
inline constexpr UINT WM_SETFOCUS = 0x0007;       // wParam: the HWND that loses the focus
inline constexpr UINT WM_KILLFOCUS = 0x0008;      // wParam: the HWND that gets the focus
inline constexpr UINT WM_SETTEXT = 0x000C;        // lParam: const wchar_t*
inline constexpr UINT WM_GETTEXT = 0x000D;        // wParam: room in characters with the closing zero; lParam: wchar_t*
inline constexpr UINT WM_GETTEXTLENGTH = 0x000E;  // gives units, without the closing zero
inline constexpr UINT WM_CLOSE = 0x0010;          // somebody wants the window to end
inline constexpr UINT WM_SETCURSOR = 0x0020;      // wParam: HWND; lParam: HTCLIENT and the mouse's message
inline constexpr UINT WM_NOTIFY = 0x004E;         // wParam: id of the sender; lParam: NMHDR*
inline constexpr UINT WM_CONTEXTMENU = 0x007B;    // wParam: HWND; lParam: the place on the screen
inline constexpr UINT WM_GETDLGCODE = 0x0087;     // gives bits of DLGC_
inline constexpr UINT WM_INITDIALOG = 0x0110;     // all controls are made; gives whether the first may have the focus
inline constexpr UINT WM_COMMAND = 0x0111;  // wParam: id and notification code; lParam: HWND of the sender, 0 of a menu

// The keyboard. wParam: virtual key or character; lParam: repeat count in the low word.
inline constexpr UINT WM_KEYDOWN = 0x0100;          // wParam: a virtual key
inline constexpr UINT WM_CHAR = 0x0102;             // wParam: one unit of a text
inline constexpr UINT WM_SYSKEYDOWN = 0x0104;       // wParam: a virtual key, with Alt
inline constexpr UINT WM_IME_COMPOSITION = 0x010F;  // an input method composes or commits text
inline constexpr UINT WM_MOUSEMOVE = 0x0200;        // only in WM_SETCURSOR
inline constexpr UINT WM_LBUTTONDOWN = 0x0201;      // only in WM_SETCURSOR

// Clipboard and undo.
inline constexpr UINT WM_CUT = 0x0300;    // the selection goes into the clipboard
inline constexpr UINT WM_COPY = 0x0301;   // the same, and stays
inline constexpr UINT WM_PASTE = 0x0302;  // the clipboard's text takes its place
inline constexpr UINT WM_CLEAR = 0x0303;  // it goes
inline constexpr UINT WM_UNDO = 0x0304;   // the last change is taken back

// From a property page to the sheet around it. wParam: HWND of the page.
inline constexpr UINT PSM_CHANGED = 0x0468;    // something was changed on it
inline constexpr UINT PSM_UNCHANGED = 0x046D;  // nothing is, any more
// The first number for messages of one's own.
inline constexpr UINT WM_APP = 0x8000;

// Edits.
inline constexpr UINT EM_GETSEL = 0x00B0;  // wParam, lParam: DWORD* for start and end, or null; gives both in two words
inline constexpr UINT EM_SETSEL = 0x00B1;  // wParam: start, -1 for none; lParam: end, -1 for the end of the text
inline constexpr UINT EM_SETRECT = 0x00B3;      // lParam: const RECT*, in pixels of the edit
inline constexpr UINT EM_SCROLLCARET = 0x00B7;  // does nothing here: the caret is always in sight
inline constexpr UINT EM_GETMODIFY = 0x00B8;    // gives whether the text was changed
inline constexpr UINT EM_SETMODIFY = 0x00B9;    // wParam: whether it counts as changed
inline constexpr UINT EM_LINELENGTH = 0x00C1;   // gives units
inline constexpr UINT EM_REPLACESEL = 0x00C2;   // lParam: const wchar_t*
inline constexpr UINT EM_UNDO = 0x00C7;         // as WM_UNDO
inline constexpr UINT EN_SETFOCUS = 0x0100;     // notification: it has the focus
inline constexpr UINT EN_KILLFOCUS = 0x0200;    // notification: it has lost it
inline constexpr UINT EN_CHANGE = 0x0300;       // notification: its text was changed

// Buttons.
inline constexpr UINT BM_GETCHECK = 0x00F0;  // gives BST_CHECKED or BST_UNCHECKED
inline constexpr UINT BM_SETCHECK = 0x00F1;  // wParam: one of these
inline constexpr UINT BM_CLICK = 0x00F5;     // as a click of the user's
inline constexpr UINT BN_CLICKED = 0;        // notification: it was clicked
inline constexpr int BST_UNCHECKED = 0;      // without a tick
inline constexpr int BST_CHECKED = 1;        // with one

// List boxes.
inline constexpr UINT LB_ADDSTRING = 0x0180;     // lParam: const wchar_t*; gives the index
inline constexpr UINT LB_INSERTSTRING = 0x0181;  // wParam: index, -1 for the end; lParam: const wchar_t*
inline constexpr UINT LB_DELETESTRING = 0x0182;  // wParam: index; gives how many are left
inline constexpr UINT LB_RESETCONTENT = 0x0184;  // removes all entries
inline constexpr UINT LB_SETCURSEL = 0x0186;     // wParam: index, -1 for none
inline constexpr UINT LB_GETCURSEL = 0x0188;     // gives the index
inline constexpr UINT LB_GETTEXT = 0x0189;       // wParam: index; lParam: wchar_t* with room for all of it
inline constexpr UINT LB_GETTEXTLEN = 0x018A;    // wParam: index; gives units
inline constexpr UINT LB_GETCOUNT = 0x018B;      // gives how many entries there are
inline constexpr UINT LB_GETITEMDATA = 0x0199;   // wParam: index; gives what was set, 0 at first
inline constexpr UINT LB_SETITEMDATA = 0x019A;   // wParam: index; lParam: anything
inline constexpr int LB_ERR = -1;                // what is given for an index that there is not, and for no selection
inline constexpr UINT LBN_SELCHANGE = 1;         // notification: another entry was selected
inline constexpr UINT LBN_DBLCLK = 2;            // notification: a double click

// Combo boxes.
inline constexpr UINT CB_ADDSTRING = 0x0143;     // lParam: const wchar_t*; gives the index
inline constexpr UINT CB_DELETESTRING = 0x0144;  // wParam: index; gives how many are left
inline constexpr UINT CB_GETCOUNT = 0x0146;      // gives how many entries there are
inline constexpr UINT CB_GETCURSEL = 0x0147;     // gives the index
inline constexpr UINT CB_GETLBTEXT = 0x0148;     // wParam: index; lParam: wchar_t* with room for all of it
inline constexpr UINT CB_GETLBTEXTLEN = 0x0149;  // wParam: index; gives units
inline constexpr UINT CB_INSERTSTRING = 0x014A;  // wParam: index, -1 for the end; lParam: const wchar_t*
inline constexpr UINT CB_RESETCONTENT = 0x014B;  // removes all entries
inline constexpr UINT CB_SETCURSEL = 0x014E;     // wParam: index, -1 for none
inline constexpr UINT CB_GETITEMDATA = 0x0150;   // wParam: index; gives what was set, 0 at first
inline constexpr UINT CB_SETITEMDATA = 0x0151;   // wParam: index; lParam: anything
inline constexpr int CB_ERR = -1;                // what is given for an index that there is not, and for no selection
inline constexpr UINT CBN_SELCHANGE = 1;         // notification: an entry was chosen
inline constexpr UINT CBN_EDITCHANGE = 5;        // notification: the text was typed in

// Spin buttons and date pickers: notification codes of WM_NOTIFY.
inline constexpr UINT UDN_DELTAPOS = static_cast<UINT>(-722);        // it is about to go on: NMUPDOWN
inline constexpr UINT DTN_DATETIMECHANGE = static_cast<UINT>(-759);  // the date was changed: NMHDR

// What a window wants of the keys that a dialog would take for itself (WM_GETDLGCODE).
inline constexpr LRESULT DLGC_WANTARROWS = 0x0001;   // the arrows
inline constexpr LRESULT DLGC_WANTTAB = 0x0002;      // Tab
inline constexpr LRESULT DLGC_WANTALLKEYS = 0x0004;  // every key

// Where the mouse is (WM_SETCURSOR).
inline constexpr int HTCLIENT = 1;  // in the inside of the window

// ShowWindow.
inline constexpr int SW_HIDE = 0;  // not to be seen
inline constexpr int SW_SHOW = 5;  // to be seen

// Virtual keys. Digits and capital letters stand for themselves.
inline constexpr UINT VK_BACK = 0x08;
inline constexpr UINT VK_TAB = 0x09;
inline constexpr UINT VK_RETURN = 0x0D;  // Enter
inline constexpr UINT VK_SHIFT = 0x10;
inline constexpr UINT VK_CONTROL = 0x11;
inline constexpr UINT VK_MENU = 0x12;  // Alt
inline constexpr UINT VK_ESCAPE = 0x1B;
inline constexpr UINT VK_SPACE = 0x20;
inline constexpr UINT VK_PRIOR = 0x21;  // Page up
inline constexpr UINT VK_NEXT = 0x22;   // Page down
inline constexpr UINT VK_END = 0x23;
inline constexpr UINT VK_HOME = 0x24;
inline constexpr UINT VK_LEFT = 0x25;
inline constexpr UINT VK_UP = 0x26;
inline constexpr UINT VK_RIGHT = 0x27;
inline constexpr UINT VK_DOWN = 0x28;
inline constexpr UINT VK_INSERT = 0x2D;
inline constexpr UINT VK_DELETE = 0x2E;
inline constexpr UINT VK_APPS = 0x5D;     // the key of the context menu
inline constexpr UINT VK_NUMPAD0 = 0x60;  // 0 of the number pad; 1 to 9 follow
inline constexpr UINT VK_F1 = 0x70;
inline constexpr UINT VK_F2 = 0x71;
