// After a command whose dialog can change a standard: in words, which rule is in force now.
#pragma once

#include <memory>

#include "platform/base/QcDtDictionary.h"

struct AcEdCommand;

// The dialogs edit standards in place, so that Cancel keeps what was clicked, and two buttons of theirs show the
// opposite of what the standard means.
class StandardNotice {
public:
    // Before the command runs.
    explicit StandardNotice(const AcEdCommand& command);
    // Afterwards, however its dialog ended: one line on the host's command line, when the command is the one for the
    // settings, or another one has changed a standard.
    void Tell() const;

private:
    bool m_isForSettings;
    std::unique_ptr<QcDtDictionary> m_before;
};
