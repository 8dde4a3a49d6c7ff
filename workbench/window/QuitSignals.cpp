// Catches the signals. A handler may do next to nothing, so it writes a byte into a pipe that the event loop reads.
#include "workbench/window/QuitSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <iterator>

namespace {

int g_pipe[2] = {-1, -1};

void NoteSignal(int) {
    const int before = errno;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(g_pipe[1], &byte, 1);  // a full pipe has said it already
    errno = before;
}

}  // namespace

QuitSignals::QuitSignals(std::function<void()> onQuit) {
    if (pipe2(g_pipe, O_NONBLOCK | O_CLOEXEC) != 0)
        return;  // the signals do what they did before
    m_notifier = std::make_unique<QSocketNotifier>(g_pipe[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [onQuit = std::move(onQuit)](QSocketDescriptor) {
                         char bytes[16];
                         while (read(g_pipe[0], bytes, sizeof bytes) > 0) {
                         }
                         onQuit();
                     });
    struct sigaction action = {};
    action.sa_handler = NoteSignal;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < std::size(kSignals); ++i)
        sigaction(kSignals[i], &action, &m_before[i]);
}

QuitSignals::~QuitSignals() {
    if (!m_notifier)
        return;
    for (std::size_t i = 0; i < std::size(kSignals); ++i)
        sigaction(kSignals[i], &m_before[i], nullptr);
    m_notifier.reset();
    for (int& end : g_pipe)
        close(end);
}
