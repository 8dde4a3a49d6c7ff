// The seam between the framework's windows and the toolkit's widgets: what is known of a widget that is a window of the
// framework. For the sources of this room only.
// Why: docs/decisions/window.md
#pragma once

#include <memory>
#include <vector>

#include "platform/base/CString.h"
#include "platform/window/WindowMessages.h"

struct QMetaObject;
class QWidget;

// What is attached to a window: it gets the messages that else the kind of window gets.
class MessageTarget {
public:
    virtual ~MessageTarget() = default;
    virtual LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) = 0;
    // The window is gone, and has let go of this.
    virtual void LoseWindow() = 0;
};

// What somebody keeps with a window for as long as that lives.
class WindowCompanion {
public:
    virtual ~WindowCompanion() = default;
};

// One for each widget that is a window, from MakeWindow (WindowEvents.h) until the widget is gone. A window's handle is
// the widget's address; handles of windows that are gone are recognised, because they have no link.
class WindowLink {
public:
    // What a kind of window does with a message that nothing attached has kept to itself.
    using Procedure = LRESULT (*)(WindowLink& link, UINT message, WPARAM wParam, LPARAM lParam);

    QWidget* const m_widget;
    UINT m_id;
    DWORD m_style;
    const Procedure m_procedure;
    std::unique_ptr<MessageTarget> m_target;       // what is attached; null when nothing is
    std::unique_ptr<WindowCompanion> m_temporary;  // what CWnd::FromHandle gives while no CWnd is attached
    std::unique_ptr<WindowCompanion> m_font;       // what CWnd::GetFont gives
    bool m_isDialog = false;                       // Tab, Enter and Escape in it are its own
    int m_order;                                   // controls of a dialog are visited by this
    int m_running = 0;                             // how many of its messages are being handled right now

    WindowLink(QWidget* widget, UINT id, DWORD style, Procedure procedure);
    // Null for null and for what is no window (any more).
    static WindowLink* Of(HWND window);
    static WindowLink* Of(const QWidget* widget);
    // The window that a widget is or lies in; null when it lies in none.
    static WindowLink* Around(const QWidget* widget);
    // The controls right inside a window, in their order.
    static std::vector<WindowLink*> Controls(const QWidget* dialog);
    // The control of a dialog by its number; null when there is none.
    static WindowLink* Find(const QWidget* dialog, UINT id);

    // Whether it lies in a dialog, at any depth.
    bool IsInDialog() const;
    // Whether the widget's own class is destroyed already and only the toolkit's base is left, which still loses the
    // focus and is hidden: such a widget is no window of its kind any more.
    bool IsGoing() const;
    HWND Handle() const { return HandleOf(m_widget); }
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
    const QMetaObject* m_kind;  // the widget's class while it lives
};

// While it lives, a window that is destroyed stays until its own work is over.
class WindowAtWork {
public:
    explicit WindowAtWork(WindowLink& link) : m_window(link.Handle()) { ++link.m_running; }
    ~WindowAtWork();
    WindowAtWork(const WindowAtWork&) = delete;
    WindowAtWork& operator=(const WindowAtWork&) = delete;

private:
    HWND m_window;
};

// What all kinds of windows have in common: the toolkit does with an event what it always does, and the text is the
// window's title. Procedures of kinds end with it.
LRESULT CommonProcedure(WindowLink& link, UINT message, WPARAM wParam, LPARAM lParam);

// Sends a message to what is attached, or to the kind of window.
LRESULT Dispatch(WindowLink& link, UINT message, WPARAM wParam, LPARAM lParam);
// Gives 0 without a window.
LRESULT Dispatch(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// What a window says that its text is; empty without a window.
CString TextOf(HWND window);
// Copies a text into a caller's buffer with room for `room` characters and the closing zero among them; gives the
// length.
LRESULT CopyText(const CString& text, WPARAM room, LPARAM buffer);
