// Asking the user a question in a box with buttons.
#pragma once

#include "platform/base/Api.h"
#include "platform/base/FrameworkTypes.h"

// Which buttons the box has.
inline constexpr UINT MB_OK = 0x00;
inline constexpr UINT MB_OKCANCEL = 0x01;
inline constexpr UINT MB_YESNOCANCEL = 0x03;
inline constexpr UINT MB_YESNO = 0x04;
// Which picture stands beside the text; none without.
inline constexpr UINT MB_ICONSTOP = 0x10;
inline constexpr UINT MB_ICONQUESTION = 0x20;
inline constexpr UINT MB_ICONEXCLAMATION = 0x30;
inline constexpr UINT MB_ICONINFORMATION = 0x40;
// Which button Enter presses: the second or the third, else the first.
inline constexpr UINT MB_DEFBUTTON2 = 0x100;
inline constexpr UINT MB_DEFBUTTON3 = 0x200;

// The buttons, as dialogs number them too.
inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;

// Shows the box, modal over its owner (or over the whole program for null), and gives the button that was pressed.
// Escape and the box's close button give IDCANCEL where there is that button, IDOK in a box with that button alone, and
// nothing else: a question of yes or no is answered by its buttons. Texts are shown plainly, without mark-up; line
// breaks count. Button captions are in the language of the interface.
//
// Where nobody can see a box (no display, and no ModalDriver) the text is reported as a message (platform/base/
// Message.h) and the most careful answer given: IDCANCEL, else IDNO, else IDOK. The same where there can be no box: in
// another thread than the application's. A box whose owner is destroyed goes with it, and that answer is given too.
ORVO_API int MessageBox(HWND owner, const wchar_t* text, const wchar_t* caption, UINT type);
