// The messages that windows send to each other, with the types and numbers that go with them: the framework's names and
// values.
#pragma once

#include <cstdint>

#include "platform/base/FrameworkTypes.h"

using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;

// In pixels; y counts downwards.
struct POINT {
    LONG x;
    LONG y;
};

// The head of what WM_NOTIFY carries.
struct NMHDR {
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
};

// What a spin button is about to do (UDN_DELTAPOS); a handler that answers nonzero keeps it from doing so.
struct NMUPDOWN {
    NMHDR hdr;
    int iPos;
    int iDelta;
};

inline constexpr WORD LOWORD(std::uintptr_t value) {
    return static_cast<WORD>(value & 0xFFFFU);
}
inline constexpr WORD HIWORD(std::uintptr_t value) {
    return static_cast<WORD>((value >> 16U) & 0xFFFFU);
}
inline constexpr std::uintptr_t MAKEWPARAM(UINT low, UINT high) {
    return (static_cast<std::uintptr_t>(high & 0xFFFFU) << 16U) | (low & 0xFFFFU);
}
inline constexpr LRESULT MAKELONG(int low, int high) {
    return static_cast<LRESULT>(MAKEWPARAM(static_cast<UINT>(low), static_cast<UINT>(high)));
}

// Life and looks of a window.
inline constexpr UINT WM_DESTROY = 0x0002;
inline constexpr UINT WM_SIZE = 0x0005;
inline constexpr UINT WM_SETFOCUS = 0x0007;   // wParam: the HWND that loses the focus
inline constexpr UINT WM_KILLFOCUS = 0x0008;  // wParam: the HWND that gets the focus
inline constexpr UINT WM_SETTEXT = 0x000C;    // lParam: const wchar_t*
inline constexpr UINT WM_GETTEXT = 0x000D;    // wParam: room in characters with the closing zero; lParam: wchar_t*
inline constexpr UINT WM_GETTEXTLENGTH = 0x000E;
inline constexpr UINT WM_CLOSE = 0x0010;
inline constexpr UINT WM_SETCURSOR = 0x0020;    // wParam: HWND; lParam: HTCLIENT and the mouse's message
inline constexpr UINT WM_NOTIFY = 0x004E;       // wParam: id of the sender; lParam: NMHDR*
inline constexpr UINT WM_CONTEXTMENU = 0x007B;  // wParam: HWND; lParam: the place on the screen
inline constexpr UINT WM_GETDLGCODE = 0x0087;
inline constexpr UINT WM_INITDIALOG = 0x0110;
inline constexpr UINT WM_COMMAND = 0x0111;  // wParam: id and notification code; lParam: HWND of the sender, 0 of a menu

// The keyboard. wParam: virtual key or character; lParam: repeat count in the low word.
inline constexpr UINT WM_KEYDOWN = 0x0100;
inline constexpr UINT WM_CHAR = 0x0102;
inline constexpr UINT WM_SYSKEYDOWN = 0x0104;
inline constexpr UINT WM_IME_COMPOSITION = 0x010F;
inline constexpr UINT WM_MOUSEMOVE = 0x0200;
inline constexpr UINT WM_LBUTTONDOWN = 0x0201;

// Clipboard and undo.
inline constexpr UINT WM_CUT = 0x0300;
inline constexpr UINT WM_COPY = 0x0301;
inline constexpr UINT WM_PASTE = 0x0302;
inline constexpr UINT WM_CLEAR = 0x0303;
inline constexpr UINT WM_UNDO = 0x0304;

// From a property page to the sheet around it. wParam: HWND of the page.
inline constexpr UINT PSM_CHANGED = 0x0468;
inline constexpr UINT PSM_UNCHANGED = 0x046D;
// The first number for messages of one's own.
inline constexpr UINT WM_APP = 0x8000;

// Edits.
inline constexpr UINT EM_GETSEL = 0x00B0;
inline constexpr UINT EM_SETSEL = 0x00B1;
inline constexpr UINT EM_SETRECT = 0x00B3;
inline constexpr UINT EM_SCROLLCARET = 0x00B7;
inline constexpr UINT EM_GETMODIFY = 0x00B8;
inline constexpr UINT EM_SETMODIFY = 0x00B9;
inline constexpr UINT EM_LINELENGTH = 0x00C1;
inline constexpr UINT EM_REPLACESEL = 0x00C2;
inline constexpr UINT EM_UNDO = 0x00C7;
inline constexpr UINT EN_SETFOCUS = 0x0100;
inline constexpr UINT EN_KILLFOCUS = 0x0200;
inline constexpr UINT EN_CHANGE = 0x0300;

// Buttons.
inline constexpr UINT BM_GETCHECK = 0x00F0;
inline constexpr UINT BM_SETCHECK = 0x00F1;
inline constexpr UINT BM_CLICK = 0x00F5;
inline constexpr UINT BN_CLICKED = 0;
inline constexpr int BST_UNCHECKED = 0;
inline constexpr int BST_CHECKED = 1;

// List boxes.
inline constexpr UINT LB_ADDSTRING = 0x0180;
inline constexpr UINT LB_INSERTSTRING = 0x0181;
inline constexpr UINT LB_DELETESTRING = 0x0182;
inline constexpr UINT LB_RESETCONTENT = 0x0184;
inline constexpr UINT LB_SETCURSEL = 0x0186;
inline constexpr UINT LB_GETCURSEL = 0x0188;
inline constexpr UINT LB_GETTEXT = 0x0189;
inline constexpr UINT LB_GETTEXTLEN = 0x018A;
inline constexpr UINT LB_GETCOUNT = 0x018B;
inline constexpr UINT LB_GETITEMDATA = 0x0199;
inline constexpr UINT LB_SETITEMDATA = 0x019A;
inline constexpr int LB_ERR = -1;
inline constexpr UINT LBN_SELCHANGE = 1;
inline constexpr UINT LBN_DBLCLK = 2;

// Combo boxes.
inline constexpr UINT CB_ADDSTRING = 0x0143;
inline constexpr UINT CB_DELETESTRING = 0x0144;
inline constexpr UINT CB_GETCOUNT = 0x0146;
inline constexpr UINT CB_GETCURSEL = 0x0147;
inline constexpr UINT CB_GETLBTEXT = 0x0148;
inline constexpr UINT CB_GETLBTEXTLEN = 0x0149;
inline constexpr UINT CB_INSERTSTRING = 0x014A;
inline constexpr UINT CB_RESETCONTENT = 0x014B;
inline constexpr UINT CB_SETCURSEL = 0x014E;
inline constexpr UINT CB_GETITEMDATA = 0x0150;
inline constexpr UINT CB_SETITEMDATA = 0x0151;
inline constexpr int CB_ERR = -1;
inline constexpr UINT CBN_SELCHANGE = 1;
inline constexpr UINT CBN_EDITCHANGE = 5;

// Spin buttons and date pickers: notification codes of WM_NOTIFY.
inline constexpr UINT UDN_DELTAPOS = static_cast<UINT>(-722);
inline constexpr UINT DTN_DATETIMECHANGE = static_cast<UINT>(-759);

// What a window wants of the keys that a dialog would take for itself (WM_GETDLGCODE).
inline constexpr LRESULT DLGC_WANTARROWS = 0x0001;
inline constexpr LRESULT DLGC_WANTTAB = 0x0002;
inline constexpr LRESULT DLGC_WANTALLKEYS = 0x0004;

// Where the mouse is (WM_SETCURSOR).
inline constexpr int HTCLIENT = 1;

// ShowWindow.
inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOW = 5;

// Virtual keys. Digits and capital letters stand for themselves.
inline constexpr UINT VK_BACK = 0x08;
inline constexpr UINT VK_TAB = 0x09;
inline constexpr UINT VK_RETURN = 0x0D;
inline constexpr UINT VK_SHIFT = 0x10;
inline constexpr UINT VK_CONTROL = 0x11;
inline constexpr UINT VK_MENU = 0x12;  // Alt
inline constexpr UINT VK_ESCAPE = 0x1B;
inline constexpr UINT VK_SPACE = 0x20;
inline constexpr UINT VK_PRIOR = 0x21;
inline constexpr UINT VK_NEXT = 0x22;
inline constexpr UINT VK_END = 0x23;
inline constexpr UINT VK_HOME = 0x24;
inline constexpr UINT VK_LEFT = 0x25;
inline constexpr UINT VK_UP = 0x26;
inline constexpr UINT VK_RIGHT = 0x27;
inline constexpr UINT VK_DOWN = 0x28;
inline constexpr UINT VK_INSERT = 0x2D;
inline constexpr UINT VK_DELETE = 0x2E;
inline constexpr UINT VK_APPS = 0x5D;  // the key of the context menu
inline constexpr UINT VK_NUMPAD0 = 0x60;
inline constexpr UINT VK_F1 = 0x70;
inline constexpr UINT VK_F2 = 0x71;
