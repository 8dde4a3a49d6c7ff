// A plug-in that calls what is nowhere defined.
#include "platform/host/HostMessages.h"

namespace Nowhere {
int Defined(int number);
}

extern "C" ORVO_API int acrxEntryPoint(int message, void* /*applicationHandle*/) {
    return Nowhere::Defined(message);
}
