// The stack of the toolkit's events that are being turned into messages, the newest one first.
#include "platform/window/toolkit/LiveEvent.h"

#include <QEvent>
#include <QObject>
#include <QWidget>

namespace {

LiveEvent* s_pNewest = nullptr;

}  // namespace

LiveEvent::LiveEvent(WindowLink& link, QEvent* event) : m_hWindow(link.Handle()), m_pEvent(event), m_pOuter(s_pNewest) {
    s_pNewest = this;
}

LiveEvent::~LiveEvent() {
    s_pNewest = m_pOuter;
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

bool LiveEvent::Deliver(WindowLink& link, UINT message, WPARAM wParam) {
    LiveEvent* live = s_pNewest;
    if (live == nullptr || live->m_hWindow != link.Handle() || live->m_nMessage != message || live->m_wParam != wParam)
        return false;
    if (live->m_bPrecedes)
        return true;
    if (live->m_bDelivered)
        return false;
    live->m_bDelivered = true;
    // Past the widget's filters, or it would come back here.
    static_cast<QObject*>(link.m_pWidget)->event(live->m_pEvent);
    return true;
}

void LiveEvent::Ignore(WindowLink& link) {
    LiveEvent* live = s_pNewest;
    if (live == nullptr || live->m_hWindow != link.Handle() || live->m_bDelivered)
        return;
    live->m_bDelivered = true;
    live->m_pEvent->ignore();
}
