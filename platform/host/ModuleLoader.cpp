// Opens and closes plug-ins with dlopen and dlclose, and sends them the messages that the host sends around both.
#include "platform/host/ModuleLoader.h"

#include <dlfcn.h>
#include <link.h>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#include "platform/base/Language.h"
#include "platform/base/Message.h"
#include "platform/host/LibraryFile.h"
#include "platform/host/RxRegistry.h"
#include "platform/host/Subcommands.h"

namespace {

// The dynamic linker searches for names without a '/'; a path made absolute is only ever the file that is meant.
CString AbsolutePath(const wchar_t* path) {
    const std::string bytes = ToUtf8(path ? path : L"");
    const std::unique_ptr<char, void (*)(void*)> resolved(realpath(bytes.c_str(), nullptr), std::free);
    return resolved ? FromUtf8(resolved.get()) : CString();
}

CString LinkerError() {
    const char* cause = dlerror();
    return FromUtf8(cause ? cause : "");
}

// Whether something lies in the library itself, and not in one that it is linked with.
bool IsOwn(void* handle, const void* address) {
    Dl_info info{};
    void* owner = nullptr;
    link_map* library = nullptr;
    return dladdr1(address, &info, &owner, RTLD_DL_LINKMAP) != 0 && dlinfo(handle, RTLD_DI_LINKMAP, &library) == 0 &&
           owner == library;
}

// The library's own entry point; null when it has none. A look-up by name alone would also find that of another plug-in
// that the library is linked with.
AcRxEntryPoint OwnEntryPoint(void* handle) {
    void* symbol = dlsym(handle, "acrxEntryPoint");
    return symbol && IsOwn(handle, symbol) ? reinterpret_cast<AcRxEntryPoint>(symbol) : nullptr;
}

// Those whose plug-in is loaded, in the order of loading. Never destroyed: plug-ins may outlive static objects.
std::vector<ModuleLoader*>& LoadedOnes() {
    static auto* const list = new std::vector<ModuleLoader*>;
    return *list;
}

}  // namespace

ModuleLoader::~ModuleLoader() {
    if (!m_handle)
        return;
    Send(AcRx::kUnloadAppMsg);
    Close();
}

bool ModuleLoader::Load(const wchar_t* path, CString& error) {
    const CString name(path);  // the path may be held by `error`
    error.Empty();
    if (m_handle) {
        error.Format(PlatformText(L"无法加载模块“%s”：“%s”尚未卸载。"), name, m_path);
        return false;
    }
    m_path = AbsolutePath(name);
    if (m_path.IsEmpty()) {
        error.Format(PlatformText(L"无法加载模块“%s”：文件不存在。"), name);
        return false;
    }
    if (const CString fault = FaultOfLibraryFile(m_path); !fault.IsEmpty()) {
        error.Format(PlatformText(L"无法加载模块“%s”：%s。"), m_path, fault);
        return false;
    }
    m_handle = dlopen(ToUtf8(m_path.View()).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!m_handle) {
        error.Format(PlatformText(L"无法加载模块“%s”：%s。"), m_path, LinkerError());
        return false;
    }
    m_entryPoint = OwnEntryPoint(m_handle);
    if (!m_entryPoint) {
        Close();
        error.Format(PlatformText(L"无法加载模块“%s”：不是插件（没有acrxEntryPoint）。"), m_path);
        return false;
    }
    if (const int answer = Send(AcRx::kInitAppMsg); answer != AcRx::kRetOK) {
        Close();
        error.Format(PlatformText(L"无法加载模块“%s”：初始化失败（%d）。"), m_path, answer);
        return false;
    }
    LoadedOnes().push_back(this);
    return true;
}

int ModuleLoader::Send(int message) {
    if (!m_entryPoint)
        return AcRx::kRetError;
    CString cause;
    try {
        return m_entryPoint(message, m_handle);
    } catch (const std::exception& error) {
        cause = FromUtf8(error.what());
    } catch (...) {
        cause = PlatformText(L"原因不明");
    }
    CString text;
    text.Format(PlatformText(L"模块“%s”处理消息 %d 时出错：%s"), m_path, message, cause);
    ReportMessage(text);
    return AcRx::kRetError;
}

ModuleLoader::Unloaded ModuleLoader::Unload() {
    if (!m_handle)
        return Unloaded::NotLoaded;
    if (acrxApplicationIsLocked(m_handle))
        return Unloaded::Locked;
    Send(AcRx::kUnloadAppMsg);
    return Close();
}

ModuleLoader::Unloaded ModuleLoader::Close() {
    std::erase(LoadedOnes(), this);
    HostSubcommands().Forget(m_handle);
    HostCommandStack().forget(
        [this](AcRxFunctionPtr function) { return IsOwn(m_handle, reinterpret_cast<const void*>(function)); });
    HostDynamicLinker().forget(m_handle);
    dlclose(m_handle);
    m_handle = nullptr;
    m_entryPoint = nullptr;
    void* still = dlopen(ToUtf8(m_path.View()).c_str(), RTLD_LAZY | RTLD_NOLOAD);
    if (!still)
        return Unloaded::Gone;
    dlclose(still);
    return Unloaded::StillMapped;
}

void SendToPlugIns(int message) {
    // A plug-in may have others loaded or unloaded while it handles the message.
    const std::vector<ModuleLoader*> loaders = LoadedOnes();
    for (ModuleLoader* loader : loaders)
        if (std::find(LoadedOnes().begin(), LoadedOnes().end(), loader) != LoadedOnes().end())
            loader->Send(message);
}
