// A function of the program's own comes before the library's of the same name, to which it hands each call on.
#include "RecordedCalls.h"

#include <dlfcn.h>

#include <utility>

#include "platform/base/QcDtDictionary.h"
#include "platform/base/Support.h"
#include "platform/host/CommandStack.h"
#include "platform/host/Commands.h"
#include "platform/host/DynamicLinker.h"
#include "platform/host/ExtensionModule.h"

namespace {

CallRecord* s_record = nullptr;

template <class Result, class... Arguments>
Result HandOn(const char* symbol, Arguments... arguments) {
    return reinterpret_cast<Result (*)(Arguments...)>(dlsym(RTLD_NEXT, symbol))(arguments...);
}

void Note(const std::string& call) {
    if (s_record)
        s_record->Note(call);
}

}  // namespace

CallRecord::CallRecord() : m_hasLibrary(AfxGetFirstDynLinkLibrary() != nullptr) {
    s_record = this;
}

CallRecord::~CallRecord() {
    s_record = nullptr;
}

std::vector<std::string> CallRecord::Take() {
    NoteLibrary();
    return std::exchange(m_calls, {});
}

void CallRecord::Note(const std::string& call) {
    NoteLibrary();
    m_calls.push_back(call);
}

void CallRecord::NoteLibrary() {
    const bool hasLibrary = AfxGetFirstDynLinkLibrary() != nullptr;
    if (std::exchange(m_hasLibrary, hasLibrary) != hasLibrary)
        m_calls.emplace_back(hasLibrary ? "library" : "no library");
}

// ---- What the module calls. ----

bool AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HINSTANCE module) {
    Note("AfxInitExtensionModule");
    return HandOn<bool, AFX_EXTENSION_MODULE&, HINSTANCE>("_Z22AfxInitExtensionModuleR20AFX_EXTENSION_MODULEPKv", state,
                                                          module);
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state) {
    Note("AfxTermExtensionModule");
    HandOn<void, AFX_EXTENSION_MODULE&>("_Z22AfxTermExtensionModuleR20AFX_EXTENSION_MODULE", state);
}

bool acrxUnlockApplication(void* application) {
    Note("acrxUnlockApplication");
    return HandOn<bool>("_Z21acrxUnlockApplicationPv", application);
}

bool AcRxDynamicLinker::registerAppMDIAware(void* application) {
    Note("registerAppMDIAware");
    return HandOn<bool>("_ZN17AcRxDynamicLinker19registerAppMDIAwareEPv", this, application);
}

bool QcDefineCommand(const wchar_t* group, const QcCmdTable* table, int count, int flags) {
    Note("QcDefineCommand " + ToUtf8(group));
    return HandOn<bool>("_Z15QcDefineCommandPKwPK10QcCmdTableii", group, table, count, flags);
}

Acad::ErrorStatus AcEdCommandStack::removeGroup(const wchar_t* group) {
    Note("removeGroup " + ToUtf8(group));
    return HandOn<Acad::ErrorStatus>("_ZN16AcEdCommandStack11removeGroupEPKw", this, group);
}

bool FindFile(const wchar_t* name, CString& path) {
    Note("FindFile " + ToUtf8(name));
    return HandOn<bool, const wchar_t*, CString&>("_Z8FindFilePKwR7CString", name, path);
}

// A constructor can be handed on by its symbol only; this one's is that of QcDtDictionary(const wchar_t*, const
// wchar_t*).
extern "C" ORVO_API void ConstructDictionary(void* place, const wchar_t* name,
                                             const wchar_t* localName) asm("_ZN14QcDtDictionaryC1EPKwS1_");
void ConstructDictionary(void* place, const wchar_t* name, const wchar_t* localName) {
    if (s_record && s_record->m_onDictionary)
        s_record->m_onDictionary(place);
    HandOn<void>("_ZN14QcDtDictionaryC1EPKwS1_", place, name, localName);
}
