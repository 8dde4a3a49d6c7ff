// The stack of the toolkit's events that are being turned into messages, the newest one first.
#include "platform/window/toolkit/LiveEvent.h"

#include <QEvent>
#include <QObject>
#include <QWidget>

#include "platform/window/toolkit/DispatchContext.h"

LiveEvent::LiveEvent(const QWidget* widget, QEvent* event)
    : m_pWidget(widget), m_pEvent(event), m_pOuter(DispatchContext::Current().event) {
    DispatchContext::Current().event = this;
}

LiveEvent::~LiveEvent() {
    DispatchContext::Current().event = m_pOuter;
}

void LiveEvent::Allow(UINT message, WPARAM wParam) {
    m_nMessage = message;
    m_wParam = wParam;
    m_bPrecedes = false;
}

void LiveEvent::Precede(UINT message, WPARAM wParam) {
    Allow(message, wParam);
    m_bPrecedes = true;
}

bool LiveEvent::Deliver(QWidget* widget, UINT message, WPARAM wParam) {
    LiveEvent* live = DispatchContext::Current().event;
    if (live == nullptr || live->m_pWidget != widget || live->m_nMessage != message || live->m_wParam != wParam)
        return false;
    if (live->m_bPrecedes)
        return true;
    if (live->m_bDelivered)
        return false;
    live->m_bDelivered = true;
    // Past the widget's filters, or it would come back here.
    static_cast<QObject*>(widget)->event(live->m_pEvent);
    return true;
}

void LiveEvent::Ignore(const QWidget* widget) {
    LiveEvent* live = DispatchContext::Current().event;
    if (live == nullptr || live->m_pWidget != widget || live->m_bDelivered)
        return;
    live->m_bDelivered = true;
    live->m_pEvent->ignore();
}
