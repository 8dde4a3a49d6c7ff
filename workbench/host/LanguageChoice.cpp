// The language from the command line or the environment.
#include "workbench/host/LanguageChoice.h"

#include <cstdlib>
#include <string_view>

#include "workbench/host/StartOptions.h"

namespace {

bool IsKnown(std::string_view language) {
    return language == "zh" || language == "en";
}

std::string_view EnvironmentLocale() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(name);
        if (value && *value)
            return value;
    }
    return {};
}

}  // namespace

bool IsLanguageAsked(int argc, const char* const* argv) {
    const std::vector<std::string_view> wanted = OptionValues(argc, argv, "--language");
    return !wanted.empty() && IsKnown(wanted.front());
}

CString ChooseLanguage(int argc, const char* const* argv) {
    if (IsLanguageAsked(argc, argv))
        return FromUtf8(OptionValues(argc, argv, "--language").front());
    const std::string_view locale = EnvironmentLocale();
    const std::string_view language = locale.substr(0, locale.find_first_of("_.@"));
    const bool isNeutral = language.empty() || language == "C" || language == "POSIX";
    return isNeutral || language.substr(0, 2) == "zh" ? L"zh" : L"en";
}
