// Cuts a resource script into tokens, letter by letter. Names and numbers are ASCII; other characters stand in texts
// and comments.
#include "platform/window/resource/ResourceTokens.h"

#include <charconv>
#include <limits>

#include "platform/base/Characters.h"
#include "platform/base/Language.h"

namespace {

constexpr std::string_view kSigns = ",|&+-~(){}";

bool IsLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') || character == '_';
}

bool IsControl(char character) {
    return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
}

bool IsSpace(char character) {
    return character == ' ' || character == '\t' || character == '\r' || character == '\n' || character == '\f';
}

}  // namespace

ResourceTokens::ResourceTokens(std::string_view utf8) : m_script(utf8) {
    if (m_script.substr(0, kByteOrderMark.size()) == kByteOrderMark)
        m_at = kByteOrderMark.size();
}

ResourceToken ResourceTokens::Next() {
    if (m_fault.kind != Kind::kFault) {
        ResourceToken token = TakeToken();
        if (token.kind != Kind::kFault)
            return token;
        m_fault = std::move(token);
    }
    return m_fault;
}

// Zero at the end: no piece of a script holds one.
char ResourceTokens::Peek(std::size_t ahead) const {
    return ahead < m_script.size() - m_at ? m_script[m_at + ahead] : '\0';
}

void ResourceTokens::Step() {
    if (m_script[m_at++] == '\n') {
        m_lineBegins = true;
        if (m_line < std::numeric_limits<int>::max())
            ++m_line;
    }
}

std::string_view ResourceTokens::TakeWord() {
    const std::size_t start = m_at;
    while (IsLetter(Peek()) || IsDigit(Peek()))
        ++m_at;
    return m_script.substr(start, m_at - start);
}

// False for a comment that is never closed; the place is then its beginning.
bool ResourceTokens::SkipSpace() {
    while (!IsAtEnd())
        if (IsSpace(Peek()))
            Step();
        else if (Peek() == '/' && Peek(1) == '/')
            SkipLine();
        else if (Peek() != '/' || Peek(1) != '*')
            break;
        else if (!SkipComment())
            return false;
    return true;
}

void ResourceTokens::SkipLine() {
    while (!IsAtEnd() && Peek() != '\n')
        Step();
}

bool ResourceTokens::SkipComment() {
    const std::size_t end = m_script.find("*/", m_at + 2);
    if (end == std::string_view::npos)
        return false;
    while (m_at < end + 2)
        Step();
    return true;
}

ResourceToken ResourceTokens::TakeToken() {
    ResourceToken token;
    do {
        if (!SkipSpace())
            return Fault(L"注释没有结束");
        if (Peek() != '#' || !m_lineBegins)
            return TakePiece();
    } while (SkipDirective(token));
    return token;
}

ResourceToken ResourceTokens::TakePiece() {
    m_lineBegins = false;
    ResourceToken token;
    token.line = m_line;
    if (IsAtEnd())
        return token;
    if (Peek() == '"' || (Peek() == 'L' && Peek(1) == '"'))
        return TakeText();
    if (IsDigit(Peek()))
        return TakeNumber();
    if (IsLetter(Peek())) {
        token.kind = Kind::kWord;
        token.word = TakeWord();
        return token;
    }
    if (kSigns.find(Peek()) == std::string_view::npos)
        return Fault(L"这里有不能用的字符");
    token.kind = Kind::kSign;
    token.sign = Peek();
    Step();
    return token;
}

// False for a directive that is a token (or a fault).
bool ResourceTokens::SkipDirective(ResourceToken& token) {
    Step();
    while (Peek() == ' ' || Peek() == '\t')
        Step();
    const std::string_view name = TakeWord();
    if (name == "include" || name == "pragma") {
        SkipLine();
        return true;
    }
    if (name == "line" && TakeLineNumber())
        return true;
    m_lineBegins = false;
    token.kind = Kind::kDefine;
    token.line = m_line;
    if (name != "define")
        token = Fault(L"不认识的预处理指令");
    return false;
}

// What follows the line of the directive has the number that it names.
bool ResourceTokens::TakeLineNumber() {
    while (Peek() == ' ' || Peek() == '\t')
        Step();
    const std::string_view digits = TakeWord();
    int line = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), line);
    if (error != std::errc() || end != digits.data() + digits.size() || line < 1)
        return false;
    SkipLine();
    if (!IsAtEnd())
        Step();
    m_line = line;
    return true;
}

// Decimal or 0x, with an L or U behind it that says nothing.
ResourceToken ResourceTokens::TakeNumber() {
    ResourceToken token;
    token.kind = Kind::kNumber;
    token.line = m_line;
    std::string_view digits = TakeWord();
    while (digits.size() > 1 && std::string_view("lLuU").find(digits.back()) != std::string_view::npos)
        digits.remove_suffix(1);
    int base = 10;
    if (digits.size() > 2 && digits[0] == '0' && (digits[1] == 'x' || digits[1] == 'X')) {
        base = 16;
        digits.remove_prefix(2);
    }
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), token.number, base);
    if (error != std::errc() || end != digits.data() + digits.size())
        return Fault(L"数写错了");
    return token;
}

ResourceToken ResourceTokens::TakeText() {
    ResourceToken token;
    token.kind = Kind::kText;
    token.line = m_line;
    m_at += Peek() == 'L' ? 2 : 1;
    std::string bytes;
    for (;;) {
        const char character = Peek();
        if (IsControl(character) && character != '\t')
            return Fault(L"文字没有在同一行结束");
        ++m_at;
        if (character == '"') {
            if (Peek() != '"')
                break;
            ++m_at;
            bytes.push_back('"');
        } else if (character != '\\') {
            bytes.push_back(character);
        } else if (!TakeEscape(bytes)) {
            return Fault(L"文字中“\\”后面的字符不对");
        }
    }
    token.text = FromUtf8(bytes);
    return token;
}

bool ResourceTokens::TakeEscape(std::string& bytes) {
    constexpr std::string_view kNames = "ntr\"\\";
    constexpr std::string_view kMeanings = "\n\t\r\"\\";
    const std::size_t which = kNames.find(Peek());
    if (which == std::string_view::npos)
        return false;
    bytes.push_back(kMeanings[which]);
    ++m_at;
    return true;
}

ResourceToken ResourceTokens::Fault(const wchar_t* message) const {
    ResourceToken token;
    token.kind = Kind::kFault;
    token.line = m_line;
    token.text = PlatformText(message);
    return token;
}
