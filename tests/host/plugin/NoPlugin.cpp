// A library that is no plug-in: it exports something, but no entry point.
#include "platform/base/Api.h"
#include "platform/host/HostMessages.h"

extern "C" ORVO_API int NotAnEntryPoint() {
    return 1;
}
