// The resource scope, text translation and the module's language key.
#include "frame/Resources.h"

#include "frame/ModuleHandles.h"
#include "platform/base/Language.h"
#include "platform/host/ExtensionModule.h"

HINSTANCE GetModuleResourceHandle() {
    return g_hResourceInstance;
}

QcUtPushResource::QcUtPushResource(HINSTANCE module)
    : m_hSavedResource(AfxGetModuleState()->m_hCurrentResourceHandle),
      m_pSavedLang(g_pCurModuleLang),
      m_hModule(module) {
    AfxGetModuleState()->m_hCurrentResourceHandle = m_hModule;
    if (!g_pModuleLanguage)
        LoadModuleLanguage();
    g_pCurModuleLang = g_pModuleLanguage;
}

QcUtPushResource::~QcUtPushResource() {
    AfxGetModuleState()->m_hCurrentResourceHandle = m_hSavedResource;
    g_pCurModuleLang = m_pSavedLang;
}

CString TranslateText(const wchar_t* text) {
    const QcUtPushResource scope(g_hResourceInstance);
    return g_pTeskLangSwitch ? g_pTeskLangSwitch->Translate(text) : CString(text);
}

unsigned int ChooseTemplate(unsigned int chinese, unsigned int other) {
    return g_strCurLanguage == L"Chs" ? chinese : other;
}

std::optional<CString> LanguageKeyOfModuleFile(const wchar_t* fileName) {
    CString name(fileName);
    name.MakeUpper();
    const int folderEnd = name.ReverseFind(L'\\');
    if (folderEnd < 1 || folderEnd == name.GetLength() - 1)
        return std::nullopt;
    name = name.Mid(folderEnd + 1);
    const int point = name.Find(L'.');
    if (point < 1)
        return std::nullopt;
    name = name.Left(point);
    const wchar_t last = name.GetAt(name.GetLength() - 1);
    return last >= L'0' && last <= L'9' ? name.Left(name.GetLength() - 1) : name;
}

CString LoadModuleLanguage() {
    constexpr unsigned kMostFileName = 1024;
    wchar_t fileName[kMostFileName] = {};
    GetModuleFileName(g_hAppInstance, fileName, kMostFileName);
    const std::optional<CString> key = LanguageKeyOfModuleFile(fileName);
    if (!key || !g_pTeskLangSwitch)
        return CString();
    g_pModuleLanguage = g_pTeskLangSwitch->GetModuleDictionary(*key);
    return *key;
}
