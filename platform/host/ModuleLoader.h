// The host's side of a plug-in: opens the library, sends it messages, closes it again.
#pragma once

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/host/HostMessages.h"

// One plug-in. The destructor unloads it, locked or not.
class ORVO_API ModuleLoader {
public:
    // Without a plug-in.
    ModuleLoader() = default;
    ~ModuleLoader();
    ModuleLoader(const ModuleLoader&) = delete;
    ModuleLoader& operator=(const ModuleLoader&) = delete;

    // Opens the library of this path (relative to the current folder; no search path is used) with its own symbols kept
    // to itself, and sends kInitAppMsg. False, with a text that names the file and the cause, when this object has a
    // plug-in already, the file is no library, was cut short or cannot be opened, it was built against other headers
    // than this host's or does not say (PlugInStamp.h), it has no acrxEntryPoint of its own, or it does not answer
    // kRetOK; the file is then closed again without a further message.
    bool Load(const wchar_t* path, CString& error);

    // Whether this object has a plug-in.
    bool IsLoaded() const { return m_handle != nullptr; }
    // What the plug-in knows itself by with the host; null when none is loaded.
    void* ApplicationHandle() const { return m_handle; }

    // Sends a message; gives the plug-in's answer, or kRetError when none is loaded. What the plug-in throws is
    // reported (Message.h) and stands for kRetError.
    int Send(int message);

    // How unloading ended.
    enum class Unloaded {
        Gone,         // the library is no longer in memory
        StillMapped,  // closed, but somebody else holds it (or the system will not let it go)
        Locked,       // nothing was done: the plug-in never permitted it (acrxUnlockApplication)
        NotLoaded,    // there was nothing to unload
    };
    // Sends kUnloadAppMsg, takes what the plug-in has left in the host's tables (commands, subcommands, notes of the
    // dynamic linker), closes the library and looks whether it is gone.
    Unloaded Unload();

private:
    CString LoadFault(const CString& name);
    CString Open();
    bool Tell(int message, int& answer, CString& thrown);
    void ForgetNames();
    Unloaded Close();

    void* m_handle = nullptr;
    AcRxEntryPoint m_entryPoint = nullptr;
    CString m_path;
};

// Sends a message to every plug-in that is loaded (their first message answered), in the order of loading. What they
// answer does not count.
ORVO_API void SendToPlugIns(int message);
