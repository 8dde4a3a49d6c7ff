// All of the module's static objects, in the one order that matters: the settings first, then the animation path, then
// the dictionaries. They are built when the library is attached and destroyed in reverse when it is detached; what
// their constructors reach (handles, texts, the language) needs no constructor itself.
#include "avi/OrvoAVIFile.h"
#include "frame/ConfigDictionaries.h"
#include "frame/ModuleHandles.h"
#include "platform/base/QcDtDictionary.h"
#include "settings/OrvoDataSet.h"

// Any address in the library names it, so its own one does; set by the linker when the library is attached.
constinit HINSTANCE g_hAppInstance = &g_hAppInstance;
constinit HINSTANCE g_hResourceInstance = nullptr;
constinit QcDtDictionary* g_pModuleLanguage = nullptr;

OrvoDataSet g_SunDataSet;
CString g_sRecordFile(L"c:\\sun.avi");
QcDtDictionary g_dictSunZone(nullptr, nullptr);
QcDtDictionary g_dictSunSet(nullptr, nullptr);
QcDtDictionary g_dictSunSterm(nullptr, nullptr);
