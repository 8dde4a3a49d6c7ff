// The stack of modal drivers, the newest one first.
#include "platform/window/ModalDriver.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <utility>

namespace {

ModalDriver* s_pNewest = nullptr;
ModalDriver::MistakeHandler s_handler = nullptr;

void Report(const std::string& text) {
    if (s_handler != nullptr) {
        s_handler(text.c_str());
        return;
    }
    std::fprintf(stderr, "A driver of modal windows made a mistake: %s\n", text.c_str());
    std::abort();
}

}  // namespace

ModalDriver::ModalDriver(Answer answer) : m_answer(std::move(answer)), m_outer(s_pNewest) {
    s_pNewest = this;
}

ModalDriver::~ModalDriver() {
    // Mostly it is the newest one that goes; whichever it is, the chain closes behind it.
    ModalDriver** link = &s_pNewest;
    while (*link != this)
        link = &(*link)->m_outer;
    *link = m_outer;
}

int ModalDriver::GetCount() const {
    return m_count;
}

bool ModalDriver::IsThere() {
    return s_pNewest != nullptr;
}

int ModalDriver::Ask(const ModalWindow& window) {
    if (s_pNewest == nullptr)
        return 0;
    ++s_pNewest->m_count;
    try {
        const Answer answer = s_pNewest->m_answer;  // a copy: the driver may go while it answers
        return answer(window);
    } catch (const std::exception& thrown) {  // nothing may pass through the event loop
        Report(std::string("its answer threw: ") + thrown.what());
    } catch (...) {
        Report("its answer threw what is no exception of the library's");
    }
    return kCareful;
}

void ModalDriver::ReportUnknown(const ModalWindow& window, int command) {
    Report("the window \"" + ToUtf8(window.caption.View()) + "\" knows nothing of the command " +
           std::to_string(command));
}

void ModalDriver::ReportOpen(const ModalWindow& window, int command) {
    Report("the command " + std::to_string(command) + " did not end the window \"" + ToUtf8(window.caption.View()) +
           "\"");
}

ModalDriver::MistakeHandler ModalDriver::SetMistakeHandler(MistakeHandler handler) {
    return std::exchange(s_handler, handler);
}
