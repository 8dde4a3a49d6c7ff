// The drivers in force, the newest one first.
#include "platform/window/ModalDriver.h"

#include <utility>

namespace {

ModalDriver* s_pNewest = nullptr;

}  // namespace

ModalDriver::ModalDriver(Answer answer) : m_answer(std::move(answer)), m_pOuter(s_pNewest) {
    s_pNewest = this;
}

ModalDriver::~ModalDriver() {
    // Mostly it is the newest one that goes; whichever it is, the chain closes behind it.
    ModalDriver** link = &s_pNewest;
    while (*link != this)
        link = &(*link)->m_pOuter;
    *link = m_pOuter;
}

int ModalDriver::GetCount() const {
    return m_nCount;
}

bool ModalDriver::IsThere() {
    return s_pNewest != nullptr;
}

int ModalDriver::Ask(const ModalWindow& window) {
    if (s_pNewest == nullptr)
        return 0;
    ++s_pNewest->m_nCount;
    try {
        const Answer answer = s_pNewest->m_answer;  // a copy: the driver may go while it answers
        return answer(window);
    } catch (...) {
        return -1;  // nothing may pass through the event loop
    }
}
