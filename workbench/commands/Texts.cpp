// Translation of the workbench's texts.
#include "workbench/commands/Texts.h"

#include "platform/base/Language.h"

namespace {

const wchar_t* const kLanguageKey = L"ORVOWORKBENCH";

}  // namespace

CString Say(const wchar_t* text) {
    if (!g_pTeskLangSwitch)
        return CString(text);
    QcDtDictionary* const outer = g_pCurModuleLang;
    g_pCurModuleLang = g_pTeskLangSwitch->GetModuleDictionary(kLanguageKey);
    CString translated = g_pTeskLangSwitch->Translate(text);
    g_pCurModuleLang = outer;
    return translated;
}
