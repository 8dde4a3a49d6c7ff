// The module's resources and texts: the scope in which its resources and language are the current ones, and the way
// every text that a user sees takes through the language switch.
// Why: docs/decisions/frame.md
#pragma once

#include <optional>

#include "platform/base/Api.h"
#include "platform/base/CString.h"
#include "platform/base/ModuleFile.h"

class QcDtDictionary;

// The handle that resource scopes of this module make current: null until the host has initialised the module.
ORVO_API HINSTANCE GetModuleResourceHandle();

// Makes a module's resources and this module's language dictionary current for as long as it lives, then brings back
// what was current before. Scopes change process-wide state and must nest strictly. The first scope that finds the
// module without a language dictionary asks the language switch for it; once there, it is never asked for again.
class ORVO_API QcUtPushResource {
public:
    // Makes the resources of this handle current, whatever it is; null stands for nobody's.
    explicit QcUtPushResource(HINSTANCE module);
    // Brings back what was current before.
    virtual ~QcUtPushResource();

    QcUtPushResource(const QcUtPushResource&) = delete;
    QcUtPushResource& operator=(const QcUtPushResource&) = delete;

private:
    HINSTANCE m_hSavedResource;
    QcDtDictionary* m_pSavedLang;
    HINSTANCE m_hModule;
};

// The text to show for a built-in text. Without a language switch, or where the switch knows no translation, that is
// the built-in text itself; null gives an empty text.
ORVO_API CString TranslateText(const wchar_t* text);

// The translation of a built-in printf-style format; the format itself where the translation asks for arguments of
// other kinds or in another order, or is no sound format. (The built-in ones are.)
CString TranslateFormat(const wchar_t* format);

// Fills a built-in printf-style format after translating it.
template <class... Args>
CString FormatTranslated(const wchar_t* format, const Args&... args) {
    CString text;
    text.Format(TranslateFormat(format), args...);
    return text;
}

// Dialogs come in two templates: the one for the Chinese interface and the one for every other language.
unsigned int ChooseTemplate(unsigned int chinese, unsigned int other);

// Finds this module's language dictionary by the key in its file name, and makes it the module's, also when there is
// none for that key. Gives the key; an empty text, with nothing changed, when the file name holds no key or there is no
// language switch.
ORVO_API CString LoadModuleLanguage();

// The language key in the full file name of a module: upper-cased, without folders, without everything from the first
// point on, without one final digit, so that "8.ARX" has an empty key. Folders end in '\'. None when there is no folder
// before the name, no name behind the last '\', no point in the name or none but at its start.
ORVO_API std::optional<CString> LanguageKeyOfModuleFile(const wchar_t* fileName);
