// The host's registry of services, where a plug-in finds what the host offers by name. Includes the services.
#pragma once

#include "platform/base/Api.h"
#include "platform/host/AcRxObject.h"
#include "platform/host/CommandStack.h"
#include "platform/host/DynamicLinker.h"

// Services by name. There are two: "DynamicLinker" (an AcRxDynamicLinker) and "ACAD_REGISTERED_COMMANDS" (an
// AcEdCommandStack).
class ORVO_API AcRxDictionary : public AcRxObject {
public:
    // The service of this exact name; null for any other name. It belongs to the host and lives as long as the process,
    // also past every static destructor.
    AcRxObject* at(const wchar_t* name) const;
};

// Never null; always the same object.
ORVO_API AcRxDictionary* acrxSysRegistry();
