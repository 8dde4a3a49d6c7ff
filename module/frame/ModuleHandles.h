// The handles that the frame keeps for the whole time the module is loaded. For the frame's own sources.
#pragma once

#include "platform/base/ModuleFile.h"

class QcDtDictionary;

// The module itself, known from the moment the library is attached.
extern HINSTANCE g_hAppInstance;
// Where the module's resources are found; null until the host initialises the module.
extern HINSTANCE g_hResourceInstance;
// The module's language dictionary, owned by the language switch; null until a scope has found it.
extern QcDtDictionary* g_pModuleLanguage;
