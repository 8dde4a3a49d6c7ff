// The language switch: tables that give another text for a built-in one, one dictionary for each module.
#pragma once

#include <memory>
#include <vector>

#include "platform/base/Api.h"
#include "platform/base/CString.h"

class QcDtDictionary;

// Holds the tables of the language in force. The built-in texts are Chinese and need no table.
//
// A table is the dictionary file languages/<language>.xml below one of the support folders. Below its root stands one
// dictionary for each module, named by the module's key (compared without case of ASCII letters); in it, text items
// named by the built-in text with the translation as value. Items may be grouped in dictionaries one level further
// down, for the reader's sake (such as texts that must stand as they are); groups are flattened on loading, anything
// deeper and anything that is no text is passed over. Of several entries for one text the first counts. An entry whose
// printf conversions differ from the built-in text's, or whose translation is empty, is dropped; the former with a
// message that names file and text.
class ORVO_API TeskLanguageSwitch {
public:
    // Built-in texts, without a table.
    TeskLanguageSwitch();
    virtual ~TeskLanguageSwitch();
    TeskLanguageSwitch(const TeskLanguageSwitch&) = delete;
    TeskLanguageSwitch& operator=(const TeskLanguageSwitch&) = delete;

    // The text to show for a built-in text: from g_pCurModuleLang, else from the first module dictionary (in the order
    // of the file) that has it, else the text itself. A text that is there is never lost; null gives an empty text.
    virtual CString Translate(const wchar_t* text) const;

    // The dictionary of a module; null for a key that no table loaded so far has had. It belongs to the switch and
    // stays at its address until the switch is destroyed; a change of language refills it (or leaves it empty).
    virtual QcDtDictionary* GetModuleDictionary(const wchar_t* key);

    // Puts a language in force: "zh" (the built-in texts; no table is read), "en", or any other name of letters,
    // digits, '-' and '_' for which there is a table. g_strCurLanguage becomes "Chs", "Enu", or the name itself. False,
    // with a message, when the name is no such name or the table is missing or refused: the built-in texts are then in
    // force, and g_strCurLanguage is "Chs".
    bool SetLanguage(const wchar_t* language);

private:
    struct Module;

    Module* FindModule(const wchar_t* key) const;
    QcDtDictionary& ModuleDictionary(const CString& key);
    void UseBuiltInTexts();
    bool Load(const CString& path);

    std::vector<std::unique_ptr<Module>> m_modules;
};

// The switch in force; null (all texts as built in) until the host sets one up.
ORVO_API extern TeskLanguageSwitch* g_pTeskLangSwitch;
// The dictionary in which texts are looked up first; null when there is none.
ORVO_API extern QcDtDictionary* g_pCurModuleLang;
// The interface language in force, "Chs" at first. Lives as long as the process, also past every static destructor.
ORVO_API extern CString& g_strCurLanguage;

// Whether the person asked for the language when the program was started, so that none that was kept counts.
ORVO_API extern bool g_isLanguageAsked;

// The text to show for a built-in text of the platform itself: through the switch, if there is one.
ORVO_API CString PlatformText(const wchar_t* text);
