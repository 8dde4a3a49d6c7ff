// The commands that plug-ins have added to the host, in groups.
// Why: docs/decisions/host.md
#pragma once

#include <functional>
#include <memory>

#include "platform/base/CString.h"
#include "platform/host/AcRxObject.h"
#include "platform/host/ErrorStatus.h"

// What a command runs, in the thread of the user interface.
using AcRxFunctionPtr = void (*)();

// One command: its name as the user types it and the function that it runs.
struct AcEdCommand {
    CString name;                        // with its letters as they were given
    AcRxFunctionPtr function = nullptr;  // the plug-in's, as long as that is loaded
    int flags = 0;                       // as they were given; 0 for an ordinary command
};

// All groups in the order in which they were defined. Names of groups and commands are compared without case of ASCII
// letters. Pointers and indexes that it gives hold until the next change.
class ORVO_API AcEdCommandStack : public AcRxObject {
public:
    // Without groups.
    AcEdCommandStack();
    ~AcEdCommandStack() override;

    // Makes an empty group, unless there is one of that name. eInvalidInput for an empty name or null.
    Acad::ErrorStatus addGroup(const wchar_t* group);
    // Adds a command to a group, which is made when there is none. A command of the same name in the same group is
    // replaced. eInvalidInput when the group, the name (null or empty) or the function is missing.
    Acad::ErrorStatus addCommand(const wchar_t* group, const wchar_t* name, int flags, AcRxFunctionPtr function);
    // Removes a group with its commands; eKeyNotFound when there is none.
    Acad::ErrorStatus removeGroup(const wchar_t* group);
    // Removes the commands whose function is one of these, in every group; the groups stay. The host does so with a
    // library's functions before it closes the library.
    void forget(const std::function<bool(AcRxFunctionPtr)>& isGone);

    // Whether there is a group of this name.
    bool hasGroup(const wchar_t* group) const;
    // How many groups there are.
    int groupCount() const;
    // The group's name by its index from 0; empty for an index out of range.
    CString groupName(int index) const;
    // How many commands a group has; 0 for an unknown group.
    int commandCount(const wchar_t* group) const;
    // A command of a group by its index from 0; null for an unknown group or an index out of range.
    const AcEdCommand* commandAt(const wchar_t* group, int index) const;

    // The command of this name in the earliest group that has it; null when none has.
    const AcEdCommand* lookupCmd(const wchar_t* name) const;

private:
    struct Groups;
    std::unique_ptr<Groups> m_groups;
};

// The host's own, which the registry gives by name. It lives as long as the process.
ORVO_API AcEdCommandStack& HostCommandStack();
