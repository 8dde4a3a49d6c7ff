// Checks a format against its arguments, then lets {fmt} fill it.
#include "platform/base/TextFormat.h"

#include <fmt/args.h>
#include <fmt/printf.h>
#include <fmt/xchar.h>

#include <cwchar>
#include <string_view>
#include <vector>

namespace {

using Kinds = std::vector<TextArgument::Kind>;

constexpr int kMostWidth = 99;

// Reads a number of at most kMostWidth; false when it is larger. No digits at all are 0.
bool SkipNumber(const wchar_t*& at) {
    int value = 0;
    for (; *at >= L'0' && *at <= L'9'; ++at) {
        value = value * 10 + (*at - L'0');
        if (value > kMostWidth)
            return false;
    }
    return true;
}

bool KindOf(wchar_t conversion, TextArgument::Kind& kind) {
    if (conversion == L'\0')
        return false;
    if (std::wcschr(L"diuxXoc", conversion))
        kind = TextArgument::Kind::Integer;
    else if (std::wcschr(L"feEgG", conversion))
        kind = TextArgument::Kind::Real;
    else if (conversion == L's')
        kind = TextArgument::Kind::Text;
    else
        return false;
    return true;
}

// What a format asks for, in order; false when it is malformed.
bool ReadConversions(const wchar_t* format, Kinds& kinds) {
    for (const wchar_t* at = format; *at; ++at) {
        if (*at != L'%')
            continue;
        if (*++at == L'%')
            continue;
        while (*at && std::wcschr(L"-+ #0", *at))
            ++at;
        if (!SkipNumber(at))
            return false;
        if (*at == L'.' && !SkipNumber(++at))
            return false;
        const bool isLong = *at == L'l';
        if (isLong)
            ++at;
        TextArgument::Kind kind{};
        if (!KindOf(*at, kind) || (isLong && kind == TextArgument::Kind::Text))
            return false;
        kinds.push_back(kind);
    }
    return true;
}

bool Fits(const Kinds& kinds, const TextArgument* arguments, std::size_t count) {
    if (kinds.size() != count)
        return false;
    for (std::size_t i = 0; i < count; ++i)
        if (kinds[i] != arguments[i].kind)
            return false;
    return true;
}

}  // namespace

bool FormatText(std::wstring& out, const wchar_t* format, const TextArgument* arguments, std::size_t count) {
    Kinds kinds;
    if (!format || !ReadConversions(format, kinds) || !Fits(kinds, arguments, count))
        return false;
    fmt::dynamic_format_arg_store<fmt::wprintf_context> store;
    for (std::size_t i = 0; i < count; ++i) {
        switch (arguments[i].kind) {
            case TextArgument::Kind::Integer:
                store.push_back(arguments[i].integer);
                break;
            case TextArgument::Kind::Real:
                store.push_back(arguments[i].real);
                break;
            case TextArgument::Kind::Text:
                store.push_back(std::wstring_view(arguments[i].text));
                break;
        }
    }
    try {
        out = fmt::vsprintf(std::wstring_view(format), fmt::basic_format_args<fmt::wprintf_context>(store));
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

bool HasSameConversions(const wchar_t* model, const wchar_t* candidate) {
    if (!model || !candidate)
        return false;
    Kinds wanted;
    if (!ReadConversions(model, wanted))
        return true;
    Kinds offered;
    return ReadConversions(candidate, offered) && offered == wanted;
}
