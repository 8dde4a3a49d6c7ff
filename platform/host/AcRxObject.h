// The base of everything that the host's registry holds.
#pragma once

#include "platform/base/Api.h"

class ORVO_API AcRxObject {
public:
    AcRxObject() = default;
    virtual ~AcRxObject();
    AcRxObject(const AcRxObject&) = delete;
    AcRxObject& operator=(const AcRxObject&) = delete;
};
