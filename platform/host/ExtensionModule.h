// What the framework knows of a library that extends a program: its state, the objects that announce it, and the module
// whose resources are in force.
#pragma once

#include "platform/base/Api.h"
#include "platform/base/ModuleFile.h"

// A library's state with the framework. Each library has one static object of this type, zero at first.
struct AFX_EXTENSION_MODULE {
    bool bInitialized = false;      // whether the library was taken in
    HINSTANCE hModule = nullptr;    // the library; null before
    HINSTANCE hResource = nullptr;  // where its resources are; null before
};

// Takes a library in: notes its handle, which is also where its resources are. Doing so again changes nothing. False,
// with the state as it was, when the handle is null or a test asked for a failure.
ORVO_API bool AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HINSTANCE module);
// Lets a library go: deletes every CDynLinkLibrary object of it and zeroes its state. A state that was never
// initialised is left alone.
ORVO_API void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state);

// For tests: while set, AfxInitExtensionModule fails.
ORVO_API void SetExtensionModuleFailureForTest(bool fail);

// Announces a library to the framework: while the object exists, the library is in the framework's list. Made with
// `new` by the library once it is initialised; the framework deletes it in AfxTermExtensionModule.
class ORVO_API CDynLinkLibrary {
public:
    // Puts itself at the head of the framework's list, for the library of this state.
    explicit CDynLinkLibrary(const AFX_EXTENSION_MODULE& state);
    // Takes itself out of the list.
    virtual ~CDynLinkLibrary();
    CDynLinkLibrary(const CDynLinkLibrary&) = delete;
    CDynLinkLibrary& operator=(const CDynLinkLibrary&) = delete;

    // The library, and where its resources are.
    HINSTANCE GetModule() const { return m_module; }
    HINSTANCE GetResources() const { return m_resources; }
    // The next object in the framework's list, newest first; null at its end.
    CDynLinkLibrary* GetNext() const { return m_next; }

private:
    HINSTANCE m_module;
    HINSTANCE m_resources;
    CDynLinkLibrary* m_next;
};

// The newest object in the framework's list; null when there is none.
ORVO_API CDynLinkLibrary* AfxGetFirstDynLinkLibrary();

// The framework's state of the process.
struct AFX_MODULE_STATE {
    // The module in whose resources dialogs and texts are looked up; null stands for the program.
    HINSTANCE m_hCurrentResourceHandle = nullptr;
};

// Never null; always the same object. Usable while static objects are constructed.
ORVO_API AFX_MODULE_STATE* AfxGetModuleState();
// Its current resource handle, to read and to change; null stands for the program.
ORVO_API HINSTANCE AfxGetResourceHandle();
ORVO_API void AfxSetResourceHandle(HINSTANCE resources);
