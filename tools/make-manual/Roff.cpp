// Escapes, one character at a time.
#include "Roff.h"

#include "platform/base/PlainText.h"

namespace {

// From the first ideograph on, with the wide punctuation.
bool IsWide(wchar_t character) {
    constexpr wchar_t kFirstWide = 0x2E80;
    return character >= kFirstWide;
}

// What must not begin a line, or end one.
bool ClosesWord(wchar_t character) {
    return CString(L"，。；：、？！）》”】").Find(character) >= 0;
}

bool OpensWord(wchar_t character) {
    return CString(L"（《“【").Find(character) >= 0;
}

std::string Escaped(wchar_t character, bool isTyped) {
    switch (character) {
        case L'\\':
            return "\\(rs";
        case L'\'':
            return "\\(aq";
        case L'`':
            return "\\(ga";
        case L'"':
            return "\\(dq";
        case L'^':
            return "\\(ha";
        case L'~':
            return "\\(ti";
        case L'-':
            return isTyped ? "\\-" : "-";
        default:
            return ToUtf8(CString(character).View());
    }
}

// A point at the beginning of a line would begin a request.
std::string Guarded(const std::string& text) {
    return !text.empty() && text.front() == '.' ? "\\&" + text : text;
}

}  // namespace

std::string Typed(const CString& text) {
    std::string typed;
    for (const wchar_t character : text.View())
        typed += Escaped(character, true);
    return Guarded(typed);
}

std::string Bold(const CString& text) {
    return "\\fB" + Typed(text) + "\\fR";
}

std::string Italic(const CString& text) {
    return "\\fI" + Typed(text) + "\\fR";
}

std::string Prose(const CString& text) {
    std::string prose;
    bool isTyped = false;
    wchar_t before = L' ';
    for (int at = 0; at < text.GetLength(); ++at) {
        const wchar_t character = text.GetAt(at);
        if (character == L'`') {
            isTyped = !isTyped;
            prose += isTyped ? "\\fB" : "\\fR";
            continue;
        }
        const bool isBreakable = (IsWide(character) || IsWide(before)) && before != L' ' && character != L' ';
        if (isBreakable && !ClosesWord(character) && !OpensWord(before))
            prose += "\\:";
        const wchar_t next = at + 1 < text.GetLength() ? text.GetAt(at + 1) : L' ';
        const bool isOption = character == L'-' && (before == L' ' || before == L'-' || next == L'-' || IsWide(before));
        prose += Escaped(character, isTyped || isOption);
        before = character;
    }
    return Guarded(prose);
}
