// The host's list of the plug-ins that are loaded, and of what they have told about themselves.
#pragma once

#include <memory>

#include "platform/base/Api.h"
#include "platform/host/AcRxObject.h"

// Plug-ins are named by their application handles; a null handle names none.
class ORVO_API AcRxDynamicLinker : public AcRxObject {
public:
    // Without plug-ins.
    AcRxDynamicLinker();
    ~AcRxDynamicLinker() override;

    // Notes that a plug-in can serve several open drawings at once. Doing so again changes nothing. False for a null
    // handle.
    bool registerAppMDIAware(void* applicationHandle);
    // Whether registerAppMDIAware was called for it and the host has not forgotten it since.
    bool isRegistered(void* applicationHandle) const;

    // A plug-in is locked until it is unlocked: see acrxUnlockApplication. For a null handle setting gives false.
    bool setLocked(void* applicationHandle, bool locked);
    bool isLocked(void* applicationHandle) const;

    // The host calls this when the plug-in has gone: a later one of the same handle is neither registered nor unlocked.
    void forget(void* applicationHandle);

private:
    struct Records;
    std::unique_ptr<Records> m_records;
};

// The host's own, which the registry gives by name. It lives as long as the process.
ORVO_API AcRxDynamicLinker& HostDynamicLinker();

// The host does not unload a plug-in that is locked, as each is at first; unlocking permits it. Unlocking gives
// false for a null handle. They act on the registry's own linker.
ORVO_API bool acrxUnlockApplication(void* applicationHandle);
ORVO_API bool acrxApplicationIsLocked(void* applicationHandle);
