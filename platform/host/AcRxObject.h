// The base of everything that the host's registry holds.
#pragma once

#include "platform/base/Api.h"

// An object with an identity, not a value.
class ORVO_API AcRxObject {
public:
    // For those who derive from it.
    AcRxObject() = default;
    virtual ~AcRxObject();
    AcRxObject(const AcRxObject&) = delete;
    AcRxObject& operator=(const AcRxObject&) = delete;
};
