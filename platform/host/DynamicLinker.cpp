// What plug-ins have told about themselves: two sets of handles; everything not in them is in its first state.
#include "platform/host/DynamicLinker.h"

#include <set>

struct AcRxDynamicLinker::Records {
    std::set<void*> registered;
    std::set<void*> unlocked;
};

AcRxDynamicLinker::AcRxDynamicLinker() : m_records(std::make_unique<Records>()) {}

AcRxDynamicLinker::~AcRxDynamicLinker() = default;

bool AcRxDynamicLinker::registerAppMDIAware(void* applicationHandle) {
    if (!applicationHandle)
        return false;
    m_records->registered.insert(applicationHandle);
    return true;
}

bool AcRxDynamicLinker::isRegistered(void* applicationHandle) const {
    return m_records->registered.contains(applicationHandle);
}

bool AcRxDynamicLinker::setLocked(void* applicationHandle, bool locked) {
    if (!applicationHandle)
        return false;
    if (locked)
        m_records->unlocked.erase(applicationHandle);
    else
        m_records->unlocked.insert(applicationHandle);
    return true;
}

bool AcRxDynamicLinker::isLocked(void* applicationHandle) const {
    return !m_records->unlocked.contains(applicationHandle);
}

void AcRxDynamicLinker::forget(void* applicationHandle) {
    m_records->registered.erase(applicationHandle);
    m_records->unlocked.erase(applicationHandle);
}

// Never destroyed: a plug-in may still ask for it while the process ends.
AcRxDynamicLinker& HostDynamicLinker() {
    static auto* const linker = new AcRxDynamicLinker;
    return *linker;
}

bool acrxUnlockApplication(void* applicationHandle) {
    return HostDynamicLinker().setLocked(applicationHandle, false);
}

bool acrxApplicationIsLocked(void* applicationHandle) {
    return HostDynamicLinker().isLocked(applicationHandle);
}
