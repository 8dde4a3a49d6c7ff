// The libraries that extend a program: the framework's list is a chain through the objects that announce them, so that
// it needs no storage of its own.
#include "platform/host/ExtensionModule.h"

namespace {

constinit CDynLinkLibrary* g_firstLibrary = nullptr;
constinit AFX_MODULE_STATE g_moduleState;
constinit bool g_failInitialisation = false;

CDynLinkLibrary* FindLibrary(HINSTANCE module) {
    CDynLinkLibrary* library = g_firstLibrary;
    while (library && library->GetModule() != module)
        library = library->GetNext();
    return library;
}

}  // namespace

bool AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HINSTANCE module) {
    if (!module || g_failInitialisation)
        return false;
    if (!state.bInitialized)
        state = {true, module, module};
    return true;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state) {
    if (!state.bInitialized)
        return;
    while (CDynLinkLibrary* library = FindLibrary(state.hModule))
        delete library;
    state = {};
}

void SetExtensionModuleFailureForTest(bool fail) {
    g_failInitialisation = fail;
}

CDynLinkLibrary::CDynLinkLibrary(const AFX_EXTENSION_MODULE& state)
    : m_module(state.hModule), m_resources(state.hResource), m_next(g_firstLibrary) {
    g_firstLibrary = this;
}

CDynLinkLibrary::~CDynLinkLibrary() {
    if (g_firstLibrary == this) {
        g_firstLibrary = m_next;
        return;
    }
    for (CDynLinkLibrary* library = g_firstLibrary; library; library = library->m_next)
        if (library->m_next == this)
            library->m_next = m_next;
}

CDynLinkLibrary* AfxGetFirstDynLinkLibrary() {
    return g_firstLibrary;
}

AFX_MODULE_STATE* AfxGetModuleState() {
    return &g_moduleState;
}

HINSTANCE AfxGetResourceHandle() {
    return g_moduleState.m_hCurrentResourceHandle;
}

void AfxSetResourceHandle(HINSTANCE resources) {
    g_moduleState.m_hCurrentResourceHandle = resources;
}
