// Checks whether a translated format may stand in for the built-in one: filled with arguments that it does not expect,
// a format reads whatever memory holds.
#include "frame/Resources.h"

namespace {

const wchar_t* const kFlags = L"-+ #0";
const wchar_t* const kDigits = L"0123456789";
const wchar_t* const kUnsound = L"?";
constexpr int kMostDigits = 2;  // of a width or a precision

// Moves `at` behind the characters that are of a kind; gives how many there were.
int Skip(const CString& format, int& at, const CString& kind) {
    const int start = at;
    while (at < format.GetLength() && kind.Find(format.GetAt(at)) >= 0)
        ++at;
    return at - start;
}

// The kind of the argument that the conversion behind a '%' asks for: 'd' for a whole number, 'f' for another one, 's'
// for a text; '?' when there is no such conversion. `at` moves to its last character.
wchar_t ReadConversion(const CString& format, int& at) {
    Skip(format, at, kFlags);
    if (Skip(format, at, kDigits) > kMostDigits)
        return L'?';
    if (Skip(format, at, L".") > 0 && Skip(format, at, kDigits) > kMostDigits)
        return L'?';
    const int lengths = Skip(format, at, L"l");
    const wchar_t conversion = at < format.GetLength() ? format.GetAt(at) : L'?';
    if (lengths <= 1 && CString(L"diuxXoc").Find(conversion) >= 0)
        return L'd';
    if (lengths <= 1 && CString(L"feEgG").Find(conversion) >= 0)
        return L'f';
    return lengths == 0 && conversion == L's' ? L's' : L'?';
}

// The kinds of all arguments in their order; kUnsound alone when a conversion is none.
CString ArgumentKinds(const CString& format) {
    CString kinds;
    for (int at = format.Find(L'%'); at >= 0; at = format.Find(L'%', at + 1)) {
        ++at;
        if (at < format.GetLength() && format.GetAt(at) == L'%')
            continue;
        kinds += ReadConversion(format, at);
        if (kinds.Right(1) == kUnsound)
            return kUnsound;
    }
    return kinds;
}

}  // namespace

CString TranslateFormat(const wchar_t* format) {
    const CString translated = TranslateText(format);
    return ArgumentKinds(translated) == ArgumentKinds(format) ? translated : CString(format);
}
