// The signals that ask a program to end, turned into a call in the event loop: a window that is closed keeps its
// settings, a program that is killed does not.
#pragma once

#include <QSocketNotifier>
#include <csignal>
#include <functional>
#include <memory>

// While it lives, an interrupt, a hang-up and a request to terminate call `onQuit` from the event loop. One at a time.
class QuitSignals {
public:
    explicit QuitSignals(std::function<void()> onQuit);
    ~QuitSignals();
    QuitSignals(const QuitSignals&) = delete;
    QuitSignals& operator=(const QuitSignals&) = delete;

private:
    static constexpr int kSignals[] = {SIGINT, SIGHUP, SIGTERM};

    std::unique_ptr<QSocketNotifier> m_notifier;
    struct sigaction m_before[3] = {};
};
