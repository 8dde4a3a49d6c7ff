// Goes along a format and its arguments, before they are filled in: what a user's text holds is not looked at.
#include "platform/base/PluralForms.h"

#include <string_view>

namespace {

constexpr std::wstring_view kConversions = L"diuxXocfeEgGs%";

bool IsOne(const TextArgument& argument) {
    switch (argument.kind) {
        case TextArgument::Kind::Integer:
            return argument.integer == 1;
        case TextArgument::Kind::Text:
            return std::wstring_view(argument.text) == L"1";
        case TextArgument::Kind::Real:
            return false;  // "1.00 hours"
    }
    return false;
}

// What stands between the braces at the beginning of a text; empty when these are not two forms.
std::wstring_view FormsAt(std::wstring_view text) {
    const std::size_t end = text.find(L'}');
    if (text.empty() || text.front() != L'{' || end == std::wstring_view::npos)
        return {};
    const std::wstring_view forms = text.substr(1, end - 1);
    const std::size_t bar = forms.find(L'|');
    const bool areTwo = bar != std::wstring_view::npos && forms.find(L'|', bar + 1) == std::wstring_view::npos;
    return areTwo && forms.find_first_of(L"{%") == std::wstring_view::npos ? forms : std::wstring_view();
}

}  // namespace

CString ChooseForms(const wchar_t* format, const TextArgument* arguments, std::size_t count) {
    CString chosen;
    const TextArgument* last = nullptr;
    std::size_t filled = 0;
    for (std::wstring_view rest = format; !rest.empty();) {
        const std::wstring_view forms = FormsAt(rest);
        if (last && !forms.empty()) {
            const std::size_t bar = forms.find(L'|');
            chosen += CString(IsOne(*last) ? forms.substr(0, bar) : forms.substr(bar + 1));
            rest.remove_prefix(forms.size() + 2);
            continue;
        }
        std::size_t length = 1;
        if (rest.front() == L'%') {
            const std::size_t letter = rest.find_first_of(kConversions, 1);
            length = letter == std::wstring_view::npos ? rest.size() : letter + 1;
            if (rest[length - 1] != L'%' && filled < count)
                last = &arguments[filled++];
        }
        chosen += CString(rest.substr(0, length));
        rest.remove_prefix(length);
    }
    return chosen;
}
