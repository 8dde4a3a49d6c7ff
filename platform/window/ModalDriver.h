// The seam through which a test answers modal windows: boxes and dialogs that would wait for a person.
#pragma once

#include <functional>
#include <memory>

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/base/FrameworkTypes.h"

// What is shown, as far as every modal window has it.
struct ModalWindow {
    CString caption;         // of the window; empty for menus
    CString text;            // of a message box; empty for dialogs
    HWND owner = nullptr;    // the window over which it is shown
    void* widget = nullptr;  // the QWidget, for tests that press keys in it
};

// While one of these lives, each modal window of this process calls it once it is shown and active. The answer is made
// in the window itself (keys, clicks), or by giving a command (IDYES, IDOK, ...) whose button is pressed then; 0 leaves
// the window to what was done with it, kCareful closes it with its most careful answer. Drivers nest: the newest one
// answers.
//
// What a box is answered with is what MessageBox gives, also where the box has no such button: so a caller is tried
// with answers that no person can give. Every other window takes IDCANCEL as Escape, whatever buttons it has; a command
// that it knows nothing of or that leaves it open, and an answer that throws, are mistakes of the driver's. They are
// reported, and the window is closed with its most careful answer, so that no test hangs.
class ORVO_API ModalDriver {
public:
    // Answers a window: a command, 0 or kCareful.
    using Answer = std::function<int(const ModalWindow&)>;
    // Is told of a mistake of a driver's.
    using MistakeHandler = void (*)(const char* text) noexcept;

    // The most careful answer that the window knows.
    static constexpr int kCareful = -1;

    // Answers from here on, until it goes.
    explicit ModalDriver(Answer answer);
    ~ModalDriver();
    ModalDriver(const ModalDriver&) = delete;
    ModalDriver& operator=(const ModalDriver&) = delete;

    // How many windows it has answered.
    int GetCount() const;
    // Whether there is a driver, so that somebody will answer.
    static bool IsThere();
    // Whom mistakes are told to; gives who was told before. Null, as at first: they end the program with their text, so
    // that nobody can overlook one.
    static MistakeHandler SetMistakeHandler(MistakeHandler handler);

    // For modal windows: the newest driver's answer; 0 when there is none, kCareful when it throws.
    static int Ask(const ModalWindow& window);
    // For modal windows: the command is one that the window cannot carry out; it was carried out, and did not end the
    // window.
    static void ReportUnknown(const ModalWindow& window, int command);
    static void ReportOpen(const ModalWindow& window, int command);

private:
    Answer m_answer;
    int m_count = 0;
    ModalDriver* m_outer;
};
