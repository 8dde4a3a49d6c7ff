// A window of the framework: the C++ side of a widget on the screen. Everything runs in the user interface's thread.
// Why: docs/decisions/window.md
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/base/FrameworkTypes.h"
#include "platform/media/CObject.h"
#include "platform/window/MessageBox.h"
#include "platform/window/MessageMap.h"
#include "platform/window/WindowMessages.h"
#include "platform/window/WindowStyles.h"

class CDataExchange;
class CFont;

// A CWnd is attached to at most one window (m_hWnd, null while there is none) and a window to at most one CWnd of the
// program's own. Destroying the CWnd lets the window go on without it, and a window that is destroyed sets m_hWnd to
// null: neither owns the other, except that DestroyWindow ends the window.
//
// A message reaches WindowProc of the attached CWnd, whether it comes from SendMessage or from a person's keys and
// mouse; from there it goes through the message maps, and what nobody handles, or a handler passes on with Default(),
// is done the way the kind of window does it. Without an attached CWnd the kind of window handles it at once.
//
// What comes from a person: WM_KEYDOWN and, for a key that gives characters, WM_CHAR for each of them (also the control
// characters of Ctrl with a letter, of Backspace, Enter and Escape); keys with Alt as WM_SYSKEYDOWN; WM_SETFOCUS and
// WM_KILLFOCUS; WM_SETCURSOR when the mouse moves over the window or presses or releases a button there;
// WM_CONTEXTMENU; WM_IME_COMPOSITION when an input method composes or commits text, and when a handler keeps that to
// itself, WM_CHAR for each character committed; WM_PASTE for the middle button's paste; WM_CLOSE; WM_SIZE. A key whose
// character a handler keeps to itself does nothing else. Within a dialog Tab, Enter, Escape and mnemonics belong to the
// dialog, unless the window asks for them (WM_GETDLGCODE).
//
// All operations are harmless without a window: they do nothing and give 0, false, null or an empty text. Texts count
// in wchar_t units.
class ORVO_API CWnd : public CObject {
public:
    HWND m_hWnd = nullptr;  // the window; null while there is none

    // Without a window.
    CWnd() = default;
    ~CWnd() override;

    // The window; null while there is none.
    HWND GetSafeHwnd() const { return m_hWnd; }
    // The attached CWnd of a window; else one that the window itself owns and that lives as long as the window. Null
    // for null and for a window that is gone.
    static CWnd* FromHandle(HWND window);
    // The attached CWnd; null where there is none.
    static CWnd* FromHandlePermanent(HWND window);

    // ---- The window behind it. ----
    // False when this has a window already, the other is gone, or another CWnd is attached to it.
    BOOL Attach(HWND window);
    // Lets the window go on without this object, and gives it; null where there is none.
    HWND Detach();
    // Attaches to a control of a dialog, which then sends its messages through this object's maps. False
    // as for Attach, and for an unknown number.
    BOOL SubclassDlgItem(UINT id, CWnd* parent);
    // Attach, followed by PreSubclassWindow.
    BOOL SubclassWindow(HWND window);
    // Detach under another name.
    HWND UnsubclassWindow();
    // Sends WM_DESTROY to the window and everything in it, and destroys it. A window whose own handler is running goes
    // when that is over.
    virtual BOOL DestroyWindow();

    // ---- Messages. ----
    // Has the window handle a message at once; gives what came of it. WindowMessages.h says what each carries.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

    // ---- Text, state, place. ----
    // A title, a label, what an edit holds.
    void SetWindowText(const wchar_t* text);
    void GetWindowText(CString& text) const;
    // Its length in units.
    int GetWindowTextLength() const;
    // WS_ and control bits the window was made with; WS_VISIBLE and WS_DISABLED as they are now.
    DWORD GetStyle() const;
    // The number under which its dialog knows it.
    int GetDlgCtrlID() const;
    BOOL EnableWindow(BOOL enable = TRUE);  // gives whether it was disabled before
    // Whether it takes keys and mouse, as far as that is its own matter and not its parent's.
    BOOL IsWindowEnabled() const;
    BOOL ShowWindow(int command);  // SW_HIDE, SW_SHOW; gives whether it was visible before
    // Whether it is to be seen: neither it nor a window that it lies in is hidden.
    BOOL IsWindowVisible() const;
    CWnd* SetFocus();  // gives the window that had the focus, as GetFocus
    // The window with the focus, as FromHandle; null where none of this program has it.
    static CWnd* GetFocus();
    // The window that it lies in, as FromHandle; null for none.
    CWnd* GetParent() const;
    // Whether the other window lies in this one, at any depth. False for this window itself.
    BOOL IsChild(const CWnd* window) const;
    // The inside, from (0, 0), in pixels, like the others.
    void GetClientRect(RECT* rect) const;
    // On the screen.
    void GetWindowRect(RECT* rect) const;
    // A rectangle on the screen, seen from the window's inside.
    void ScreenToClient(RECT* rect) const;
    // Place and size within the parent; of a window without one on the screen.
    void MoveWindow(const RECT* rect, BOOL repaint = TRUE);
    // The font's object belongs to the window and is valid until the window's font is set.
    CFont* GetFont() const;
    // The whole font, also where the toolkit has another one for this kind of window; null gives the toolkit's.
    void SetFont(CFont* font, BOOL redraw = TRUE);

    // ---- Controls of a dialog, by number. ----
    // As FromHandle; null for an unknown number.
    CWnd* GetDlgItem(int id) const;
    // The control's text; an unknown number is passed over.
    void SetDlgItemText(int id, const wchar_t* text);
    // The same the other way round: copies the text and gives its length in units; 0 for an unknown number.
    int GetDlgItemText(int id, CString& text) const;
    // BST_CHECKED or BST_UNCHECKED of a check box or radio button; 0 for an unknown number.
    void CheckDlgButton(int id, UINT check);
    UINT IsDlgButtonChecked(int id) const;
    // Moves data between the members and the controls: TRUE reads the controls, FALSE shows the members. FALSE when an
    // entry was refused; the user has then been told, and the entry has the focus.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);
    // Shows a box over this window, and gives the button (see the function of this name). A null caption gives the
    // title of the window that this one lies in.
    int MessageBox(const wchar_t* text, const wchar_t* caption = nullptr, UINT type = MB_OK);

    // ---- For derived classes. ----
    // Exchanges each member with its control (DataExchange.h); by itself none.
    virtual void DoDataExchange(CDataExchange* exchange);
    // Takes every message that reaches this object: first the message maps, then DefWindowProc.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // Does with a message what the kind of window does with it.
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // A command, or a notification of a control: calls the map's handler. False when there is none.
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    // After attaching to a window that others made.
    virtual void PreSubclassWindow();
    // The last thing a window does: m_hWnd is null already, and the object may delete itself.
    virtual void PostNcDestroy();

    // Handlers to override; these pass the message on.
    afx_msg void OnChar(UINT character, UINT repeatCount, UINT flags);
    afx_msg void OnKeyDown(UINT key, UINT repeatCount, UINT flags);
    afx_msg void OnSetFocus(CWnd* oldWindow);
    afx_msg void OnKillFocus(CWnd* newWindow);
    afx_msg BOOL OnSetCursor(CWnd* window, UINT hitTest, UINT message);
    afx_msg void OnDestroy();
    afx_msg void OnClose();

protected:
    // The map of this class, and of the object's own one; DECLARE_MESSAGE_MAP declares them.
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;

    // Does with the message being handled what the kind of window does with it.
    LRESULT Default();
    // Looks the message up in the maps and calls its handler; false when there is none.
    BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
};

// One run of UpdateData. The functions that are called with it (DataExchange.h) either save (control to member) or show
// (member to control).
class ORVO_API CDataExchange {
public:
    // For one run over the controls of a dialog.
    CDataExchange(CWnd* dialog, BOOL saveAndValidate) : m_bSaveAndValidate(saveAndValidate), m_pDlgWnd(dialog) {}

    const BOOL m_bSaveAndValidate;  // true: controls are read and checked; false: members are shown
    CWnd* const m_pDlgWnd;          // the dialog

    // The control of this number, as FromHandle; a number that the dialog lacks ends the run. The edit that was
    // prepared last gets the focus when the run fails.
    CWnd* PrepareCtrl(int id);
    CWnd* PrepareEditCtrl(int id);
    // Ends the run: UpdateData gives FALSE. To be called after the user has been told.
    [[noreturn]] void Fail();

private:
    friend class CWnd;

    // Calls the dialog's DoDataExchange; false when that was ended.
    bool Run();

    HWND m_lastControl = nullptr;  // which may be gone when the user has been told
    bool m_isEditLast = false;
};

// As CWnd::SendMessage, to a window by its handle; 0 for one that is gone.
ORVO_API LRESULT SendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// A font of a window. Only handed on from one window to another.
class ORVO_API CFont {
public:
    // The toolkit's usual one.
    CFont();
    ~CFont();
    CFont(const CFont&) = delete;
    CFont& operator=(const CFont&) = delete;

private:
    friend class CWnd;
    struct Impl;
    Impl* m_impl;
};

// The host's main window, the parent of what commands show; null where the host has none.
ORVO_API CWnd* acedGetAcadFrame();
// For the host: names its main window, or takes it back with null.
ORVO_API void acedSetAcadFrame(CWnd* frame);
