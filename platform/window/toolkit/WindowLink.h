// The seam between the framework's windows and the toolkit's widgets: what is known of a widget that is a window of the
// framework. For the sources of this room only.
#pragma once

#include <memory>
#include <vector>

#include "platform/window/CWnd.h"

class QEvent;
struct QMetaObject;
class QWidget;

// One for each widget that is a window, from Make until the widget is gone. A window's handle is the widget's address;
// handles of windows that are gone are recognised, because they have no link.
class WindowLink {
public:
    // What a kind of window does with a message that no CWnd has kept to itself.
    using Procedure = LRESULT (*)(WindowLink& link, UINT message, WPARAM wParam, LPARAM lParam);

    QWidget* const m_pWidget;
    UINT m_nID;
    DWORD m_dwStyle;
    const Procedure m_pfnDefault;
    CWnd* m_pWnd = nullptr;              // the CWnd that is attached
    std::unique_ptr<CWnd> m_pTemporary;  // what FromHandle gives while none is attached
    std::unique_ptr<CFont> m_pFont;      // what GetFont gives
    int m_nOrder;                        // controls of a dialog are visited by this
    int m_nRunning = 0;                  // how many of its messages are being handled right now

    // Makes a widget a window: gives it its object name (IDC_<id>), and from now on its keys, its focus and so on come
    // as messages. The link is destroyed with the widget.
    static WindowLink& Make(QWidget* widget, UINT id, DWORD style, Procedure procedure);
    // Null for null and for what is no window (any more).
    static WindowLink* Of(HWND window);
    static WindowLink* Of(const QWidget* widget);
    // The window that a widget is or lies in; null when it lies in none.
    static WindowLink* Around(const QWidget* widget);
    // The controls right inside a window, in their order.
    static std::vector<WindowLink*> Controls(const QWidget* dialog);
    // The control of a dialog by its number; null when there is none.
    static WindowLink* Find(const QWidget* dialog, UINT id);

    bool IsRadio() const;
    // Whether the widget's own class is destroyed already and only the toolkit's base is left, which still loses the
    // focus and is hidden: such a widget is no window of its kind any more.
    bool IsGoing() const;
    HWND Handle() const { return HandleOf(m_pWidget); }
    static HWND HandleOf(const QWidget* widget);
    // The window around this one; null at the top.
    WindowLink* Parent() const;
    // Tells the parent with WM_COMMAND, as controls do.
    void NotifyParent(UINT code);
    // Tells the parent with WM_NOTIFY and gives its answer; 0 without a parent. `head` begins the notification, and its
    // sender is filled in.
    LRESULT NotifyParent(NMHDR& head);
    // Hands the event from which the message being handled was made to the widget, once. False when the message was not
    // made from an event, so that the kind of window must do by itself what the message asks.
    bool DeliverEvent(UINT message, WPARAM wParam);
    // Lets the event go on to the window around this one, without the widget.
    void IgnoreEvent();
    // For characters and keys that did not come from an event: gives the widget a key event of its own.
    void TypeKey(UINT virtualKey);
    void TypeCharacter(wchar_t character);

    WindowLink(const WindowLink&) = delete;
    WindowLink& operator=(const WindowLink&) = delete;
    ~WindowLink();

private:
    WindowLink(QWidget* widget, UINT id, DWORD style, Procedure procedure);

    const QMetaObject* m_pKind;  // the widget's class while it lives
};

// While it lives, a window that is destroyed stays until its own work is over.
class WindowAtWork {
public:
    explicit WindowAtWork(WindowLink& link) : m_hWindow(link.Handle()) { ++link.m_nRunning; }
    ~WindowAtWork();
    WindowAtWork(const WindowAtWork&) = delete;
    WindowAtWork& operator=(const WindowAtWork&) = delete;

private:
    HWND m_hWindow;
};

// What all kinds of windows have in common: the toolkit does with an event what it always does, and the text is the
// window's title. Procedures of kinds end with it.
LRESULT CommonProcedure(WindowLink& link, UINT message, WPARAM wParam, LPARAM lParam);

// Sends a message to what is attached, or to the kind of window.
LRESULT Dispatch(WindowLink& link, UINT message, WPARAM wParam, LPARAM lParam);
// Calls the WindowProc of a CWnd so that Default() knows the message.
LRESULT CallWindow(CWnd& window, UINT message, WPARAM wParam, LPARAM lParam);

// Copies a text into a caller's buffer with room for `room` characters and the closing zero among them; gives the
// length.
LRESULT CopyText(const CString& text, WPARAM room, LPARAM buffer);

// The controls of dialogs, each with its widget, its notifications and its procedure. `parent` is the window around it;
// texts are as they are shown.
struct ControlRequest {
    QWidget* parent;
    UINT nID;
    DWORD dwStyle;
    CString strText;
};
WindowLink& MakeEdit(const ControlRequest& request);
WindowLink& MakeStatic(const ControlRequest& request);
WindowLink& MakeButton(const ControlRequest& request);
WindowLink& MakeListBox(const ControlRequest& request);
WindowLink& MakeComboBox(const ControlRequest& request);
WindowLink& MakeSpinButton(const ControlRequest& request);
WindowLink& MakeDatePicker(const ControlRequest& request);
