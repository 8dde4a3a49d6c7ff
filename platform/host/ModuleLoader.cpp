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
#include "platform/host/LinkerFault.h"
#include "platform/host/PlugInFiles.h"
#include "platform/host/RxRegistry.h"
#include "platform/host/Subcommands.h"

namespace {

// The dynamic linker searches for names without a '/'; a path made absolute is only ever the file that is meant.
CString AbsolutePath(const wchar_t* path) {
    const std::string bytes = ToUtf8(path ? path : L"");
    const std::unique_ptr<char, void (*)(void*)> resolved(realpath(bytes.c_str(), nullptr), std::free);
    return resolved ? FromUtf8(resolved.get()) : CString();
}

// What may have been meant by a path where no file is.
CString SuggestionFor(const CString& path) {
    const CString library = path + L".so";
    CString suggestion;
    if (!path.IsEmpty() && !AbsolutePath(library).IsEmpty())
        suggestion.Format(PlatformText(L"有“%s”这个文件。"), library);
    return suggestion;
}

// When it was that a plug-in got a message.
CString WhenOf(int message) {
    switch (message) {
        case AcRx::kInitAppMsg:
            return PlatformText(L"启动时");
        case AcRx::kUnloadAppMsg:
            return PlatformText(L"关闭时");
        case AcRx::kLoadDwgMsg:
            return PlatformText(L"打开图形时");
        case AcRx::kUnloadDwgMsg:
            return PlatformText(L"关闭图形时");
        default:
            CString when;
            when.Format(PlatformText(L"处理消息 %d 时"), message);
            return when;
    }
}

CString RefusalText(int answer) {
    if (answer == AcRx::kRetError)
        return PlatformText(L"插件在启动时拒绝加载（acrxEntryPoint 返回了 kRetError）");
    CString text;
    text.Format(PlatformText(L"插件在启动时返回了 %d，而不是 kRetOK"), answer);
    return text;
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
    error = LoadFault(name);
    if (error.IsEmpty())
        NoteLoaded(name);
    else
        NoteNotLoaded(name);
    return error.IsEmpty();
}

// What went wrong, in a sentence that names the file; empty when the plug-in is loaded.
CString ModuleLoader::LoadFault(const CString& name) {
    CString text;
    if (m_handle) {
        text.Format(PlatformText(L"无法加载模块“%s”：“%s”尚未卸载。"), name, m_path);
        return text;
    }
    m_path = AbsolutePath(name);
    if (m_path.IsEmpty()) {
        text.Format(PlatformText(L"无法加载模块“%s”：文件不存在。"), name);
        return text + SuggestionFor(name);
    }
    const CString fault = Open();
    if (fault.IsEmpty())
        LoadedOnes().push_back(this);
    else
        text.Format(PlatformText(L"无法加载模块“%s”：%s。"), m_path, fault);
    return text;
}

// Opens the library and starts the plug-in; what went wrong, in words without a full stop, leaves it closed.
CString ModuleLoader::Open() {
    CString fault = FaultOfLibraryFile(m_path);
    if (fault.IsEmpty())
        fault = FaultOfStamps(m_path);
    if (!fault.IsEmpty())
        return fault;
    m_handle = dlopen(ToUtf8(m_path.View()).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!m_handle)
        return LinkerFault(m_path, dlerror());
    NotePlugIn(m_handle, m_path);
    m_entryPoint = OwnEntryPoint(m_handle);
    int answer = AcRx::kRetOK;
    if (!m_entryPoint)
        fault = PlatformText(L"不是插件（没有acrxEntryPoint）");
    else if (CString thrown; !Tell(AcRx::kInitAppMsg, answer, thrown))
        fault.Format(PlatformText(L"插件在启动时抛出错误：%s"), thrown);
    else if (answer != AcRx::kRetOK)
        fault = RefusalText(answer);
    if (!fault.IsEmpty())
        Close();
    return fault;
}

// False, with what was thrown, when the plug-in did not answer.
bool ModuleLoader::Tell(int message, int& answer, CString& thrown) {
    try {
        answer = m_entryPoint(message, m_handle);
        return true;
    } catch (const std::exception& error) {
        thrown = FromUtf8(error.what());
    } catch (...) {
        thrown = PlatformText(L"不是 std::exception，原因不明");
    }
    return false;
}

int ModuleLoader::Send(int message) {
    if (!m_entryPoint)
        return AcRx::kRetError;
    int answer = AcRx::kRetError;
    if (CString thrown; !Tell(message, answer, thrown)) {
        CString text;
        text.Format(PlatformText(L"模块“%s”%s抛出错误：%s"), m_path, WhenOf(message), thrown);
        ReportMessage(text);
    }
    return answer;
}

ModuleLoader::Unloaded ModuleLoader::Unload() {
    if (!m_handle)
        return Unloaded::NotLoaded;
    if (acrxApplicationIsLocked(m_handle))
        return Unloaded::Locked;
    Send(AcRx::kUnloadAppMsg);
    return Close();
}

void ModuleLoader::ForgetNames() {
    HostSubcommands().Forget(m_handle);
    HostCommandStack().forget(
        [this](AcRxFunctionPtr function) { return IsOwn(m_handle, reinterpret_cast<const void*>(function)); });
    HostDynamicLinker().forget(m_handle);
}

ModuleLoader::Unloaded ModuleLoader::Close() {
    std::erase(LoadedOnes(), this);
    ForgetPlugIn(m_handle);
    // A file that is open twice is one library, whose names go with the last.
    if (std::none_of(LoadedOnes().begin(), LoadedOnes().end(),
                     [this](const ModuleLoader* each) { return each->m_handle == m_handle; }))
        ForgetNames();
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
