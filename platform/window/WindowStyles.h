// The bits that say what a window, a dialog and the items of a dialog look like and how they behave: the framework's
// names and values. Dialog templates and calls that create windows are written with them. What has an effect here is
// told; the other bits can be written, stay with their window (CWnd::GetStyle) and change nothing.
#pragma once

#include "platform/base/FrameworkTypes.h"

// Every window: WS_VISIBLE and WS_DISABLED are its state at first, WS_BORDER draws a frame (edits, grids), WS_GROUP
// begins a group of radio buttons, WS_TABSTOP lets Tab stop at an item. The last two share their bits with WS_GROUP and
// WS_TABSTOP, which count for the items of a dialog.
inline constexpr DWORD WS_OVERLAPPED = 0x00000000;
inline constexpr DWORD WS_POPUP = 0x80000000;
inline constexpr DWORD WS_CHILD = 0x40000000;
inline constexpr DWORD WS_MINIMIZE = 0x20000000;
inline constexpr DWORD WS_VISIBLE = 0x10000000;
inline constexpr DWORD WS_DISABLED = 0x08000000;
inline constexpr DWORD WS_CLIPSIBLINGS = 0x04000000;
inline constexpr DWORD WS_CLIPCHILDREN = 0x02000000;
inline constexpr DWORD WS_MAXIMIZE = 0x01000000;
inline constexpr DWORD WS_CAPTION = 0x00C00000;
inline constexpr DWORD WS_BORDER = 0x00800000;
inline constexpr DWORD WS_DLGFRAME = 0x00400000;
inline constexpr DWORD WS_VSCROLL = 0x00200000;
inline constexpr DWORD WS_HSCROLL = 0x00100000;
inline constexpr DWORD WS_SYSMENU = 0x00080000;
inline constexpr DWORD WS_THICKFRAME = 0x00040000;
inline constexpr DWORD WS_GROUP = 0x00020000;
inline constexpr DWORD WS_TABSTOP = 0x00010000;
inline constexpr DWORD WS_MINIMIZEBOX = 0x00020000;
inline constexpr DWORD WS_MAXIMIZEBOX = 0x00010000;

// Extended styles of every window. None has an effect here.
inline constexpr DWORD WS_EX_DLGMODALFRAME = 0x00000001;
inline constexpr DWORD WS_EX_NOPARENTNOTIFY = 0x00000004;
inline constexpr DWORD WS_EX_TOPMOST = 0x00000008;
inline constexpr DWORD WS_EX_TRANSPARENT = 0x00000020;
inline constexpr DWORD WS_EX_TOOLWINDOW = 0x00000080;
inline constexpr DWORD WS_EX_WINDOWEDGE = 0x00000100;
inline constexpr DWORD WS_EX_CLIENTEDGE = 0x00000200;
inline constexpr DWORD WS_EX_CONTEXTHELP = 0x00000400;
inline constexpr DWORD WS_EX_RIGHT = 0x00001000;
inline constexpr DWORD WS_EX_CONTROLPARENT = 0x00010000;
inline constexpr DWORD WS_EX_STATICEDGE = 0x00020000;
inline constexpr DWORD WS_EX_APPWINDOW = 0x00040000;

// Dialogs. None has an effect here.
inline constexpr DWORD DS_ABSALIGN = 0x0001;
inline constexpr DWORD DS_SYSMODAL = 0x0002;
inline constexpr DWORD DS_3DLOOK = 0x0004;
inline constexpr DWORD DS_FIXEDSYS = 0x0008;
inline constexpr DWORD DS_NOFAILCREATE = 0x0010;
inline constexpr DWORD DS_LOCALEDIT = 0x0020;
inline constexpr DWORD DS_SETFONT = 0x0040;
inline constexpr DWORD DS_MODALFRAME = 0x0080;
inline constexpr DWORD DS_NOIDLEMSG = 0x0100;
inline constexpr DWORD DS_SETFOREGROUND = 0x0200;
inline constexpr DWORD DS_CONTROL = 0x0400;
inline constexpr DWORD DS_CENTER = 0x0800;
inline constexpr DWORD DS_CENTERMOUSE = 0x1000;
inline constexpr DWORD DS_CONTEXTHELP = 0x2000;
inline constexpr DWORD DS_SHELLFONT = 0x0048;

// Buttons, of which check boxes, radio buttons and group boxes are kinds: BS_TYPEMASK tells the kind.
// Those kinds are served here, BS_DEFPUSHBUTTON too; every other one is a push button, and no other bit has an effect.
inline constexpr DWORD BS_PUSHBUTTON = 0x0000;
inline constexpr DWORD BS_DEFPUSHBUTTON = 0x0001;
inline constexpr DWORD BS_CHECKBOX = 0x0002;
inline constexpr DWORD BS_AUTOCHECKBOX = 0x0003;
inline constexpr DWORD BS_RADIOBUTTON = 0x0004;
inline constexpr DWORD BS_3STATE = 0x0005;
inline constexpr DWORD BS_AUTO3STATE = 0x0006;
inline constexpr DWORD BS_GROUPBOX = 0x0007;
inline constexpr DWORD BS_USERBUTTON = 0x0008;
inline constexpr DWORD BS_AUTORADIOBUTTON = 0x0009;
inline constexpr DWORD BS_OWNERDRAW = 0x000B;
inline constexpr DWORD BS_TYPEMASK = 0x000F;
inline constexpr DWORD BS_LEFTTEXT = 0x0020;
inline constexpr DWORD BS_TEXT = 0x0000;
inline constexpr DWORD BS_ICON = 0x0040;
inline constexpr DWORD BS_BITMAP = 0x0080;
inline constexpr DWORD BS_LEFT = 0x0100;
inline constexpr DWORD BS_RIGHT = 0x0200;
inline constexpr DWORD BS_CENTER = 0x0300;
inline constexpr DWORD BS_TOP = 0x0400;
inline constexpr DWORD BS_BOTTOM = 0x0800;
inline constexpr DWORD BS_VCENTER = 0x0C00;
inline constexpr DWORD BS_PUSHLIKE = 0x1000;
inline constexpr DWORD BS_MULTILINE = 0x2000;
inline constexpr DWORD BS_NOTIFY = 0x4000;
inline constexpr DWORD BS_FLAT = 0x8000;

// Edits. ES_CENTER, ES_RIGHT, ES_READONLY and ES_PASSWORD have an effect here.
inline constexpr DWORD ES_LEFT = 0x0000;
inline constexpr DWORD ES_CENTER = 0x0001;
inline constexpr DWORD ES_RIGHT = 0x0002;
inline constexpr DWORD ES_MULTILINE = 0x0004;
inline constexpr DWORD ES_UPPERCASE = 0x0008;
inline constexpr DWORD ES_LOWERCASE = 0x0010;
inline constexpr DWORD ES_PASSWORD = 0x0020;
inline constexpr DWORD ES_AUTOVSCROLL = 0x0040;
inline constexpr DWORD ES_AUTOHSCROLL = 0x0080;
inline constexpr DWORD ES_NOHIDESEL = 0x0100;
inline constexpr DWORD ES_OEMCONVERT = 0x0400;
inline constexpr DWORD ES_READONLY = 0x0800;
inline constexpr DWORD ES_WANTRETURN = 0x1000;
inline constexpr DWORD ES_NUMBER = 0x2000;

// Labels and other items that only show: SS_TYPEMASK tells the kind.
// Served here are SS_LEFT, SS_CENTER, SS_RIGHT, the frames SS_BLACKFRAME, SS_GRAYFRAME and SS_ETCHEDFRAME and the line
// SS_ETCHEDHORZ; every other kind is SS_LEFT. SS_CENTERIMAGE puts the text half way down; no other bit has an effect.
inline constexpr DWORD SS_LEFT = 0x0000;
inline constexpr DWORD SS_CENTER = 0x0001;
inline constexpr DWORD SS_RIGHT = 0x0002;
inline constexpr DWORD SS_ICON = 0x0003;
inline constexpr DWORD SS_BLACKRECT = 0x0004;
inline constexpr DWORD SS_GRAYRECT = 0x0005;
inline constexpr DWORD SS_WHITERECT = 0x0006;
inline constexpr DWORD SS_BLACKFRAME = 0x0007;
inline constexpr DWORD SS_GRAYFRAME = 0x0008;
inline constexpr DWORD SS_WHITEFRAME = 0x0009;
inline constexpr DWORD SS_SIMPLE = 0x000B;
inline constexpr DWORD SS_LEFTNOWORDWRAP = 0x000C;
inline constexpr DWORD SS_OWNERDRAW = 0x000D;
inline constexpr DWORD SS_BITMAP = 0x000E;
inline constexpr DWORD SS_ENHMETAFILE = 0x000F;
inline constexpr DWORD SS_ETCHEDHORZ = 0x0010;
inline constexpr DWORD SS_ETCHEDVERT = 0x0011;
inline constexpr DWORD SS_ETCHEDFRAME = 0x0012;
inline constexpr DWORD SS_TYPEMASK = 0x001F;
inline constexpr DWORD SS_NOPREFIX = 0x0080;
inline constexpr DWORD SS_NOTIFY = 0x0100;
inline constexpr DWORD SS_CENTERIMAGE = 0x0200;
inline constexpr DWORD SS_RIGHTJUST = 0x0400;
inline constexpr DWORD SS_SUNKEN = 0x1000;

// List boxes. LBS_SORT sorts the entries by character, LBS_NOTIFY tells the parent of what the user does; LBS_STANDARD
// has both in it. No other bit has an effect here.
inline constexpr DWORD LBS_NOTIFY = 0x0001;
inline constexpr DWORD LBS_SORT = 0x0002;
inline constexpr DWORD LBS_NOREDRAW = 0x0004;
inline constexpr DWORD LBS_MULTIPLESEL = 0x0008;
inline constexpr DWORD LBS_OWNERDRAWFIXED = 0x0010;
inline constexpr DWORD LBS_OWNERDRAWVARIABLE = 0x0020;
inline constexpr DWORD LBS_HASSTRINGS = 0x0040;
inline constexpr DWORD LBS_USETABSTOPS = 0x0080;
inline constexpr DWORD LBS_NOINTEGRALHEIGHT = 0x0100;
inline constexpr DWORD LBS_MULTICOLUMN = 0x0200;
inline constexpr DWORD LBS_WANTKEYBOARDINPUT = 0x0400;
inline constexpr DWORD LBS_EXTENDEDSEL = 0x0800;
inline constexpr DWORD LBS_DISABLENOSCROLL = 0x1000;
inline constexpr DWORD LBS_NODATA = 0x2000;
inline constexpr DWORD LBS_NOSEL = 0x4000;
inline constexpr DWORD LBS_STANDARD = 0x00A00003;

// Combo boxes. CBS_DROPDOWNLIST is a list alone, any other kind has a text to type in, too. No other bit has an effect
// here.
inline constexpr DWORD CBS_SIMPLE = 0x0001;
inline constexpr DWORD CBS_DROPDOWN = 0x0002;
inline constexpr DWORD CBS_DROPDOWNLIST = 0x0003;
inline constexpr DWORD CBS_OWNERDRAWFIXED = 0x0010;
inline constexpr DWORD CBS_OWNERDRAWVARIABLE = 0x0020;
inline constexpr DWORD CBS_AUTOHSCROLL = 0x0040;
inline constexpr DWORD CBS_OEMCONVERT = 0x0080;
inline constexpr DWORD CBS_SORT = 0x0100;
inline constexpr DWORD CBS_HASSTRINGS = 0x0200;
inline constexpr DWORD CBS_NOINTEGRALHEIGHT = 0x0400;
inline constexpr DWORD CBS_DISABLENOSCROLL = 0x0800;
inline constexpr DWORD CBS_UPPERCASE = 0x2000;
inline constexpr DWORD CBS_LOWERCASE = 0x4000;

// Spin buttons. UDS_WRAP goes on at the other end of the range, UDS_SETBUDDYINT writes the number into the buddy,
// UDS_AUTOBUDDY takes the control before, UDS_ALIGNRIGHT and UDS_ALIGNLEFT lie at that end in it, UDS_ARROWKEYS takes
// its up and down keys. No other bit has an effect here.
inline constexpr DWORD UDS_WRAP = 0x0001;
inline constexpr DWORD UDS_SETBUDDYINT = 0x0002;
inline constexpr DWORD UDS_ALIGNRIGHT = 0x0004;
inline constexpr DWORD UDS_ALIGNLEFT = 0x0008;
inline constexpr DWORD UDS_AUTOBUDDY = 0x0010;
inline constexpr DWORD UDS_ARROWKEYS = 0x0020;
inline constexpr DWORD UDS_HORZ = 0x0040;
inline constexpr DWORD UDS_NOTHOUSANDS = 0x0080;
inline constexpr DWORD UDS_HOTTRACK = 0x0100;

// Date and time pickers. None has an effect here.
inline constexpr DWORD DTS_SHORTDATEFORMAT = 0x0000;
inline constexpr DWORD DTS_UPDOWN = 0x0001;
inline constexpr DWORD DTS_SHOWNONE = 0x0002;
inline constexpr DWORD DTS_LONGDATEFORMAT = 0x0004;
inline constexpr DWORD DTS_TIMEFORMAT = 0x0009;
inline constexpr DWORD DTS_SHORTDATECENTURYFORMAT = 0x000C;
inline constexpr DWORD DTS_APPCANPARSE = 0x0010;
inline constexpr DWORD DTS_RIGHTALIGN = 0x0020;
