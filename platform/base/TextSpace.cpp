// White space by Unicode's list.
#include "platform/base/TextSpace.h"

#include <string_view>

bool IsTextSpace(wchar_t character) {
    constexpr std::wstring_view kSpaces =
        L"\t\n\v\f\r \u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200A"
        L"\u2028\u2029\u202F\u205F\u3000";
    return kSpaces.find(character) != std::wstring_view::npos;
}
