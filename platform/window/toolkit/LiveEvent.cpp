// The stack of the toolkit's events that are being turned into messages, the newest one first.
#include "platform/window/toolkit/LiveEvent.h"

#include <QEvent>
#include <QObject>
#include <QWidget>

#include "platform/window/toolkit/DispatchContext.h"

LiveEvent::LiveEvent(const QWidget* widget, QEvent* event)
    : m_widget(widget), m_event(event), m_outer(DispatchContext::Current().event) {
    DispatchContext::Current().event = this;
}

LiveEvent::~LiveEvent() {
    DispatchContext::Current().event = m_outer;
}

void LiveEvent::Allow(UINT message, WPARAM wParam) {
    m_message = message;
    m_wParam = wParam;
    m_precedes = false;
}

void LiveEvent::Precede(UINT message, WPARAM wParam) {
    Allow(message, wParam);
    m_precedes = true;
}

bool LiveEvent::Deliver(QWidget* widget, UINT message, WPARAM wParam) {
    LiveEvent* live = DispatchContext::Current().event;
    if (live == nullptr || live->m_widget != widget || live->m_message != message || live->m_wParam != wParam)
        return false;
    if (live->m_precedes)
        return true;
    if (live->m_isDelivered)
        return false;
    live->m_isDelivered = true;
    // Past the widget's filters, or it would come back here.
    static_cast<QObject*>(widget)->event(live->m_event);
    return true;
}

void LiveEvent::Ignore(const QWidget* widget) {
    LiveEvent* live = DispatchContext::Current().event;
    if (live == nullptr || live->m_widget != widget || live->m_isDelivered)
        return;
    live->m_isDelivered = true;
    live->m_event->ignore();
}
