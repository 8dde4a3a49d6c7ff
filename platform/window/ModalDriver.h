// The seam through which a test answers modal windows: boxes and dialogs that would wait for a person.
#pragma once

#include <functional>
#include <memory>

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/base/FrameworkTypes.h"

// What is shown, as far as every modal window has it.
struct ModalWindow {
    CString caption;
    CString text;            // of a message box; empty for dialogs
    HWND owner = nullptr;    // the window over which it is shown
    void* widget = nullptr;  // the QWidget, for tests that press keys in it
};

// While one of these lives, each modal window of this process calls it once it is shown and active. The answer is made
// in the window itself (keys, clicks), or by giving a command (IDYES, IDOK, ...) whose button is pressed then; 0 leaves
// the window to what was done with it. Drivers nest: the newest one answers. A command that the window has no button
// for closes the window with its most careful answer, so that no test hangs; so does a driver that throws.
class ORVO_API ModalDriver {
public:
    using Answer = std::function<int(const ModalWindow&)>;

    explicit ModalDriver(Answer answer);
    ~ModalDriver();
    ModalDriver(const ModalDriver&) = delete;
    ModalDriver& operator=(const ModalDriver&) = delete;

    // How many windows it has answered.
    int GetCount() const;
    // Whether there is a driver, so that somebody will answer.
    static bool IsThere();
    // For modal windows: the newest driver's answer; 0 when there is none. What an answer throws is reported as -1.
    static int Ask(const ModalWindow& window);

private:
    Answer m_answer;
    int m_nCount = 0;
    ModalDriver* m_pOuter;
};
