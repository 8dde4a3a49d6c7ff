// The host's way into the module: what happens when the library is loaded and unloaded.
#include "frame/Commands.h"
#include "frame/ConfigFiles.h"
#include "frame/ModuleHandles.h"
#include "platform/host/CommandStack.h"
#include "platform/host/Commands.h"
#include "platform/host/DynamicLinker.h"
#include "platform/host/ExtensionModule.h"
#include "platform/host/HostMessages.h"
#include "platform/host/RxRegistry.h"

namespace {

const wchar_t* const kCommandGroup = L"OrvoDataBase";

constinit AFX_EXTENSION_MODULE g_extensionModule;

template <class Service>
Service* FindService(const wchar_t* name) {
    AcRxDictionary* registry = acrxSysRegistry();
    return registry ? dynamic_cast<Service*>(registry->at(name)) : nullptr;
}

void InitApplication(void* applicationHandle) {
    if (AfxInitExtensionModule(g_extensionModule, g_hAppInstance)) {
        g_hResourceInstance = g_hAppInstance;
        new CDynLinkLibrary(g_extensionModule);  // the framework deletes it when the extension module ends
    }
    acrxUnlockApplication(applicationHandle);
    if (AcRxDynamicLinker* linker = FindService<AcRxDynamicLinker>(L"DynamicLinker"))
        linker->registerAppMDIAware(applicationHandle);
    QcDefineCommand(kCommandGroup, g_commandTable, kCommandCount, 0);
    LoadSunData();
    LoadSunSterm();
    LoadSunSet();
}

void UnloadApplication() {
    SaveSunSet();
    if (AcEdCommandStack* commands = FindService<AcEdCommandStack>(L"ACAD_REGISTERED_COMMANDS"))
        commands->removeGroup(kCommandGroup);
    AfxTermExtensionModule(g_extensionModule);
}

// The module takes no part in the host's drawings and defines no functions for it.
void LoadDrawing() {}
void UnloadDrawing() {}
void InvokeFunction() {}

}  // namespace

extern "C" int acrxEntryPoint(int message, void* applicationHandle) {
    switch (message) {
        case AcRx::kInitAppMsg:
            InitApplication(applicationHandle);
            break;
        case AcRx::kUnloadAppMsg:
            UnloadApplication();
            break;
        case AcRx::kLoadDwgMsg:
            LoadDrawing();
            break;
        case AcRx::kUnloadDwgMsg:
            UnloadDrawing();
            break;
        case AcRx::kInvkSubrMsg:
            InvokeFunction();
            break;
        default:
            break;
    }
    return AcRx::kRetOK;
}
