// How work that takes its time tells how far it is, and learns that nobody wants it any more.
// Why: docs/decisions/host.md
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"

// Given to a subcommand while it runs, and not beyond.
class ORVO_API Progress {
public:
    // For those who derive from it.
    Progress() = default;
    virtual ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // Tells that `done` of `total` parts of the work are done or being done. `text` says so in words: a text as the
    // user reads it, with two %d for the two numbers, or without any. It may be called as often as the work likes, from
    // the thread of the host: what is shown changes some times a second at most.
    //
    // False once the user wants the work to stop, and ever after: the work then undoes what is half done, says that it
    // was cancelled, and ends with kExitFailed. Work that never calls it cannot be cancelled, only killed.
    [[nodiscard]] virtual bool Show(int done, int total, const CString& text) = 0;
};
