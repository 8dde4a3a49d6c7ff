// The toolkit's event that is being turned into messages right now. For the sources of this room only.
#pragma once

#include "platform/window/WindowMessages.h"

class QEvent;
class QWidget;

// Lives on the stack while the messages made from one event are handled. The window's own behaviour is to let the
// widget have the event, at the moment when the message reaches it: a handler that passes a message on with Default()
// finds the widget's new state when that returns. A handler that does not keeps the event from the widget.
class LiveEvent {
public:
    LiveEvent(const QWidget* widget, QEvent* event);
    ~LiveEvent();
    LiveEvent(const LiveEvent&) = delete;
    LiveEvent& operator=(const LiveEvent&) = delete;

    // The message that stands for the event, and with which it is delivered. Another wParam makes it another message.
    void Allow(UINT message, WPARAM wParam);
    // The message of a key whose character follows: by itself it does nothing.
    void Precede(UINT message, WPARAM wParam);
    bool IsDelivered() const { return m_isDelivered; }

    // Hands the event to the widget, if the newest event belongs to it and this message stands for it. True also for a
    // message that only precedes the one that does.
    static bool Deliver(QWidget* widget, UINT message, WPARAM wParam);
    // Marks the event as not wanted, so that it goes on to the widget's parent.
    static void Ignore(const QWidget* widget);

private:
    const QWidget* m_widget;  // only to be recognised: it may be gone
    QEvent* m_event;
    UINT m_message = 0;
    WPARAM m_wParam = 0;
    bool m_precedes = false;
    bool m_isDelivered = false;
    LiveEvent* m_outer;
};
