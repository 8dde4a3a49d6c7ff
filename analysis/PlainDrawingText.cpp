// Takes the formatting codes out of the texts of drawings.
#include "analysis/PlainDrawingText.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace {

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

bool IsOneOf(wchar_t c, std::wstring_view set) {
    return set.find(c) != std::wstring_view::npos;
}

class PlainWriter {
public:
    explicit PlainWriter(std::wstring_view text) : m_text(text) {}

    CString Write(bool isLong) {
        while (m_at < m_text.size())
            if (!TakePercent() && !(isLong && TakeFormat()))
                Put(m_text[m_at++]);
        return CString(std::wstring_view(m_plain)).Trim();
    }

private:
    wchar_t Peek(std::size_t ahead) const { return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : L'\0'; }
    // Characters that control something are blanks.
    void Put(wchar_t c) { m_plain += c < L' ' || c == 0x7F ? L' ' : c; }
    void Pass(std::size_t count) { m_at = std::min(m_at + count, m_text.size()); }

    bool TakePercent();
    bool TakeNumber();
    bool TakeFormat();
    bool TakeBackslash();
    void TakeStack();

    std::wstring_view m_text;
    std::size_t m_at = 0;
    std::wstring m_plain;
};

bool PlainWriter::TakePercent() {
    if (Peek(0) != L'%' || Peek(1) != L'%')
        return false;
    const wchar_t code = Peek(2);
    if (IsDigit(code))
        return TakeNumber();
    if (IsOneOf(code, L"dD"))
        Put(L'°');
    else if (IsOneOf(code, L"pP"))
        Put(L'±');
    else if (IsOneOf(code, L"cC"))
        Put(L'Ø');
    else if (code == L'%')
        Put(L'%');
    else if (code == L'\0' || !IsOneOf(code, L"uUoOkK"))
        return false;
    Pass(3);
    return true;
}

bool PlainWriter::TakeNumber() {
    if (!IsDigit(Peek(3)) || !IsDigit(Peek(4)))
        return false;
    const int number = (Peek(2) - L'0') * 100 + (Peek(3) - L'0') * 10 + (Peek(4) - L'0');
    if (number > 255)
        return false;
    Put(static_cast<wchar_t>(number));
    Pass(5);
    return true;
}

bool PlainWriter::TakeFormat() {
    const wchar_t c = Peek(0);
    if (c == L'\\')
        return TakeBackslash();
    if (c == L'{' || c == L'}') {
        Pass(1);
        return true;
    }
    // A caret and a letter stand for a control character, a caret and a blank for the caret.
    if (c == L'^' && m_at + 1 < m_text.size()) {
        Put(Peek(1) == L' ' ? L'^' : L' ');
        Pass(2);
        return true;
    }
    return false;
}

bool PlainWriter::TakeBackslash() {
    const wchar_t code = Peek(1);
    if (m_at + 1 == m_text.size())
        return false;
    if (code == L'S') {
        TakeStack();
        return true;
    }
    if (IsOneOf(code, L"ACFHQTWcfp")) {
        const std::size_t end = m_text.find(L';', m_at);
        // Without an end all that follows is text.
        Pass(end == std::wstring_view::npos ? 2 : end + 1 - m_at);
        return true;
    }
    if (IsOneOf(code, L"PNX~"))
        Put(L' ');
    else if (!IsOneOf(code, L"LlOoKk"))
        Put(code);
    Pass(2);
    return true;
}

void PlainWriter::TakeStack() {
    const std::size_t end = std::min(m_text.find(L';', m_at), m_text.size());
    Pass(2);
    for (; m_at < end; Pass(1))
        if (Peek(0) != L'\\')
            Put(IsOneOf(Peek(0), L"#^") ? L'/' : Peek(0));
    Pass(1);
}

}  // namespace

CString PlainText(const CString& written) {
    return PlainWriter(written.View()).Write(false);
}

CString PlainLongText(const CString& written) {
    return PlainWriter(written.View()).Write(true);
}
