// The language from the command line or the environment.
#include "workbench/host/LanguageChoice.h"

#include <cstdlib>
#include <string_view>

namespace {

constexpr std::string_view kOption = "--language";

bool IsKnown(std::string_view language) {
    return language == "zh" || language == "en";
}

// The value of the option as it stands; empty when there is none. What follows "--" is no option.
std::string_view OptionValue(int argc, const char* const* argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument(argv[i]);
        if (argument == "--")
            break;
        if (argument == kOption)
            return i + 1 < argc ? argv[i + 1] : std::string_view();
        if (argument.substr(0, kOption.size()) == kOption && argument.substr(kOption.size(), 1) == "=")
            return argument.substr(kOption.size() + 1);
    }
    return {};
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

CString ChooseLanguage(int argc, const char* const* argv) {
    const std::string_view wanted = OptionValue(argc, argv);
    if (IsKnown(wanted))
        return FromUtf8(wanted);
    const std::string_view locale = EnvironmentLocale();
    const std::string_view language = locale.substr(0, locale.find_first_of("_.@"));
    const bool isNeutral = language.empty() || language == "C" || language == "POSIX";
    return isNeutral || language.substr(0, 2) == "zh" ? L"zh" : L"en";
}
