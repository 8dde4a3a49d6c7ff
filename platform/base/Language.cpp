// Loading of translation tables and the look-up in them.
#include "platform/base/Language.h"

#include <new>
#include <optional>
#include <string_view>

#include "platform/base/LibraryTexts.h"
#include "platform/base/Message.h"
#include "platform/base/QcDtDictionary.h"
#include "platform/base/Support.h"
#include "platform/base/TextFormat.h"

constinit TeskLanguageSwitch* g_pTeskLangSwitch = nullptr;
bool g_isLanguageAsked = false;
constinit QcDtDictionary* g_pCurModuleLang = nullptr;

// The text lives in storage without a destructor and is made when this library is loaded, which is before any static
// object of a library that depends on it: so it is there for all of their constructors and destructors.
alignas(CString) static unsigned char g_languageStorage[sizeof(CString)];
CString& g_strCurLanguage = reinterpret_cast<CString&>(g_languageStorage);

__attribute__((constructor(101))) static void MakeCurrentLanguage() {
    new (g_languageStorage) CString(L"Chs");
}

// The table that this thread looks into first while a library asks for a text of its own: g_pCurModuleLang is one for
// all threads.
constinit static thread_local std::optional<QcDtDictionary*> t_ownTexts;

struct TeskLanguageSwitch::Module {
    explicit Module(const CString& moduleKey) : key(moduleKey), texts(moduleKey) {}

    CString key;
    QcDtDictionary texts;
};

namespace {

bool IsLanguageName(const wchar_t* language) {
    if (!language || !*language)
        return false;
    for (const wchar_t character : std::wstring_view(language)) {
        const bool isLetter = (character >= L'a' && character <= L'z') || (character >= L'A' && character <= L'Z');
        if (!isLetter && !(character >= L'0' && character <= L'9') && character != L'-' && character != L'_')
            return false;
    }
    return true;
}

// The translation of a text; empty when there is none.
CString TranslationIn(const QcDtDictionary& texts, const wchar_t* text) {
    const QcDtDictItem* item = texts.FindItem(text);
    return item && item->GetType() == QcDtKindString ? item->GetStringValue() : CString();
}

// Reports a text that is made of two others.
void Report(const wchar_t* format, const CString& first, const CString& second) {
    CString message;
    message.Format(PlatformText(format), first, second);
    ReportMessage(message);
}

// Takes one entry over from a file, if it is one and can be used.
void AddEntry(const QcDtDictItem& entry, const CString& path, QcDtDictionary& texts) {
    if (entry.GetType() != QcDtKindString || texts.FindItem(entry.GetName()))
        return;
    const CString translation = entry.GetStringValue();
    if (translation.IsEmpty())
        return;
    if (!HasSameConversions(entry.GetName(), translation)) {
        Report(L"语言文件“%s”中“%s”的译文格式不符，已忽略。", path, entry.GetName());
        return;
    }
    if (QcDtDictItem* item = texts.FindOrAddItem(entry.GetName(), QcDtKindString))
        item->SetStringValue(translation);
}

// Takes over a module's entries, those of its groups in their place.
void AddEntries(const QcDtDictionary& table, const CString& path, QcDtDictionary& texts) {
    for (int i = 0; i < table.GetCount(); ++i) {
        const auto* group = dynamic_cast<const QcDtDictionary*>(table.GetItem(i));
        if (!group) {
            AddEntry(*table.GetItem(i), path, texts);
            continue;
        }
        for (int k = 0; k < group->GetCount(); ++k)
            AddEntry(*group->GetItem(k), path, texts);
    }
}

}  // namespace

TeskLanguageSwitch::TeskLanguageSwitch() = default;

TeskLanguageSwitch::~TeskLanguageSwitch() {
    if (g_pTeskLangSwitch == this)
        g_pTeskLangSwitch = nullptr;
    for (const auto& module : m_modules)
        if (g_pCurModuleLang == &module->texts)
            g_pCurModuleLang = nullptr;
}

CString TeskLanguageSwitch::Translate(const wchar_t* text) const {
    if (!text || !*text)
        return CString();
    if (const QcDtDictionary* const first = t_ownTexts.value_or(g_pCurModuleLang)) {
        CString translation = TranslationIn(*first, text);
        if (!translation.IsEmpty())
            return translation;
    }
    for (const auto& module : m_modules) {
        CString translation = TranslationIn(module->texts, text);
        if (!translation.IsEmpty())
            return translation;
    }
    return CString(text);
}

QcDtDictionary* TeskLanguageSwitch::GetModuleDictionary(const wchar_t* key) {
    Module* module = FindModule(key);
    return module ? &module->texts : nullptr;
}

bool TeskLanguageSwitch::SetLanguage(const wchar_t* language) {
    const CString name(language);
    UseBuiltInTexts();
    if (name == L"zh")
        return true;
    if (!IsLanguageName(name)) {
        CString message;
        message.Format(PlatformText(L"“%s”不是语言名称。"), name);
        ReportMessage(message);
        return false;
    }
    CString path;
    if (!FindFileInFolder(L"languages", name + L".xml", path)) {
        Report(L"未找到语言“%s”的文件languages/%s.xml。", name, name);
        return false;
    }
    if (!Load(path)) {
        Report(L"无法读取语言“%s”的文件“%s”。", name, path);
        return false;
    }
    g_strCurLanguage = name == L"en" ? CString(L"Enu") : name;
    return true;
}

TeskLanguageSwitch::Module* TeskLanguageSwitch::FindModule(const wchar_t* key) const {
    if (!key || !*key)
        return nullptr;
    for (const auto& module : m_modules)
        if (module->key.CompareNoCase(key) == 0)
            return module.get();
    return nullptr;
}

QcDtDictionary& TeskLanguageSwitch::ModuleDictionary(const CString& key) {
    Module* module = FindModule(key);
    if (!module)
        module = m_modules.emplace_back(std::make_unique<Module>(key)).get();
    return module->texts;
}

void TeskLanguageSwitch::UseBuiltInTexts() {
    for (const auto& module : m_modules)
        module->texts.RemoveAll();
    g_strCurLanguage = L"Chs";
}

bool TeskLanguageSwitch::Load(const CString& path) {
    QcDtDictionary table;
    if (!table.ReadFromXML(path))
        return false;
    for (int i = 0; i < table.GetCount(); ++i) {
        const auto* texts = dynamic_cast<const QcDtDictionary*>(table.GetItem(i));
        if (texts && !texts->GetName().IsEmpty())
            AddEntries(*texts, path, ModuleDictionary(texts->GetName()));
    }
    return true;
}

CString TranslateFor(const wchar_t* key, const wchar_t* text) {
    if (!g_pTeskLangSwitch)
        return CString(text);
    t_ownTexts = g_pTeskLangSwitch->GetModuleDictionary(key);
    CString translated = g_pTeskLangSwitch->Translate(text);
    t_ownTexts.reset();
    return translated;
}

CString PlatformText(const wchar_t* text) {
    return TranslateFor(L"ORVOPLATFORM", text);
}
