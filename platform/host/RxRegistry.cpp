// The registry. It is made at first use and never destroyed, as its services are: a plug-in may still ask for them
// while the process ends.
#include "platform/host/RxRegistry.h"

#include <string_view>

AcRxObject* AcRxDictionary::at(const wchar_t* name) const {
    const std::wstring_view wanted = name ? name : L"";
    if (wanted == L"DynamicLinker")
        return &HostDynamicLinker();
    if (wanted == L"ACAD_REGISTERED_COMMANDS")
        return &HostCommandStack();
    return nullptr;
}

AcRxDictionary* acrxSysRegistry() {
    static auto* const registry = new AcRxDictionary;
    return registry;
}
