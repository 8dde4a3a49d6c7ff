// The one function through which the host speaks to a plug-in, and what it says.
#pragma once

#include "platform/base/Api.h"
#if __has_include("platform/host/BuildStamp.h")  // in the tree itself plug-ins alone see what the build has made
#include "platform/host/PlugInStamp.h"
#endif

namespace AcRx {

// The numbers of the messages, as the host sends them.
enum AppMsgCode : int {
    kInitAppMsg = 1,    // the plug-in has just been loaded
    kUnloadAppMsg = 2,  // it is about to be unloaded
    kLoadDwgMsg = 3,    // a drawing was opened: the one that the host has now (acdbCurDwg)
    kUnloadDwgMsg = 4,  // it is being closed
    kInvkSubrMsg = 5,   // a function that the plug-in defined is called
};

// The plug-in's answer.
enum AppRetCode : int {
    kRetOK = 0,     // heard, whether there was anything to do or not
    kRetError = 3,  // on kInitAppMsg: it is not to be loaded
};

}  // namespace AcRx

// A plug-in defines and exports this function. The application handle is the host's name for the loaded plug-in; it is
// only passed back to the host. The answer is an AppRetCode; other messages may come and are answered with kRetOK. This
// header also leaves the stamp (PlugInStamp.h) in the plug-in, without which the host does not open it.
extern "C" ORVO_API int acrxEntryPoint(int message, void* applicationHandle);

// That function, as the host looks it up.
using AcRxEntryPoint = int (*)(int message, void* applicationHandle);
