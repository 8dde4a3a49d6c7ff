// Reads the parts of a statement. Numbers are read as a C compiler reads them, so that a script means here what it
// means to a resource compiler.
#include "platform/window/resource/ResourceParser.h"

#include <algorithm>
#include <limits>

#include "platform/base/Language.h"
#include "platform/window/resource/ResourceNames.h"

namespace {

constexpr int kMostDepth = 100;

char UpperCase(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

}  // namespace

ResourceParser::ResourceParser(std::string_view utf8) : m_tokens(utf8) {
    m_token = m_tokens.Next();
}

bool ResourceParser::IsWord(std::string_view keyword) const {
    return m_token.kind == Kind::kWord &&
           std::equal(keyword.begin(), keyword.end(), m_token.word.begin(), m_token.word.end(),
                      [](char wanted, char character) { return wanted == UpperCase(character); });
}

bool ResourceParser::TakeWord(std::string_view keyword) {
    const bool isThere = IsWord(keyword);
    if (isThere)
        Advance();
    return isThere;
}

bool ResourceParser::TakeSign(char sign) {
    const bool isThere = IsSign(sign);
    if (isThere)
        Advance();
    return isThere;
}

void ResourceParser::Advance() {
    m_lastLine = m_token.line;
    m_token = m_tokens.Next();
}

// What cannot be read at all is the fault, whatever was expected in its place.
bool ResourceParser::Fail(const wchar_t* builtInText) {
    return FailAt(m_token.line, m_token.kind == Kind::kFault ? m_token.text : PlatformText(builtInText));
}

bool ResourceParser::FailAt(int line, const CString& text) {
    if (m_message.IsEmpty())
        m_message.Format(PlatformText(L"第 %d 行：%s"), line, text);
    return false;
}

bool ResourceParser::FailWithName(int line, const wchar_t* builtInFormat, std::string_view name) {
    CString text;
    text.Format(PlatformText(builtInFormat), FromUtf8(name));
    return FailAt(line, text);
}

bool ResourceParser::ReadComma() {
    return TakeSign(',') || Fail(L"这里应该是逗号");
}

bool ResourceParser::ReadText(CString& text) {
    if (m_token.kind != Kind::kText)
        return Fail(L"这里应该是引号中的文字");
    text = m_token.text;
    Advance();
    return true;
}

bool ResourceParser::ReadNumber(DWORD& value) {
    if (!ReadBits(value))
        return false;
    while (TakeSign('|')) {
        DWORD more = 0;
        if (!ReadBits(more))
            return false;
        value |= more;
    }
    return true;
}

bool ResourceParser::ReadBits(DWORD& value) {
    if (!ReadSum(value))
        return false;
    while (TakeSign('&')) {
        DWORD more = 0;
        if (!ReadSum(more))
            return false;
        value &= more;
    }
    return true;
}

bool ResourceParser::ReadSum(DWORD& value) {
    if (!ReadOperand(value))
        return false;
    while (IsSign('+') || IsSign('-')) {
        const bool isPlus = TakeSign('+');
        DWORD more = 0;
        if (!isPlus)
            Advance();
        if (!ReadOperand(more))
            return false;
        value = isPlus ? value + more : value - more;
    }
    return true;
}

// Signs and parentheses count as depth: each is a call of its own.
bool ResourceParser::ReadOperand(DWORD& value) {
    if (m_depth == kMostDepth)
        return Fail(L"括号或符号太多");
    ++m_depth;
    bool isRead = false;
    if (TakeSign('-')) {
        isRead = ReadOperand(value);
        value = 0 - value;
    } else if (TakeSign('~')) {
        isRead = ReadOperand(value);
        value = ~value;
    } else if (TakeSign('(')) {
        isRead = ReadNumber(value) && (TakeSign(')') || Fail(L"缺少右括号"));
    } else if (m_token.kind == Kind::kNumber) {
        value = m_token.number;
        Advance();
        isRead = true;
    } else {
        isRead = ReadName(value);
    }
    --m_depth;
    return isRead;
}

bool ResourceParser::ReadName(DWORD& value) {
    if (m_token.kind != Kind::kWord)
        return Fail(L"这里应该是数");
    const auto own = m_names.find(m_token.word);
    if (own != m_names.end())
        value = own->second;
    else if (!FindResourceName(m_token.word, value))
        return FailWithName(m_token.line, L"不认识的名称“%s”", m_token.word);
    Advance();
    return true;
}

bool ResourceParser::ReadShort(short& value) {
    const int line = m_token.line;
    DWORD number = 0;
    if (!ReadNumber(number))
        return false;
    const auto wide = static_cast<LONG>(number);
    if (wide < std::numeric_limits<short>::min() || wide > std::numeric_limits<short>::max())
        return FailAt(line, PlatformText(L"数超出范围"));
    value = static_cast<short>(wide);
    return true;
}

bool ResourceParser::ReadID(UINT& id) {
    constexpr DWORD kNobody = 0xFFFFFFFF;
    constexpr DWORD kMost = 0xFFFF;
    const int line = m_token.line;
    DWORD number = 0;
    if (!ReadNumber(number))
        return false;
    if (number > kMost && number != kNobody)
        return FailAt(line, PlatformText(L"数超出范围"));
    id = number & kMost;
    return true;
}

bool ResourceParser::ReadStyle(DWORD& style) {
    do {
        const bool isTakenOut = TakeWord("NOT");
        DWORD bits = 0;
        if (!ReadBits(bits))
            return false;
        style = isTakenOut ? style & ~bits : style | bits;
    } while (TakeSign('|'));
    return true;
}

// The value is one number or stands in parentheses: a compiler puts it into other sums as it is written. A name may
// also be defined as nothing; it can then not be used.
bool ResourceParser::ReadDefine() {
    const int line = m_token.line;
    Advance();
    if (m_token.kind != Kind::kWord || m_token.line != line)
        return Fail(L"#define 后面应该是名称");
    const std::string_view name = m_token.word;
    Advance();
    if (IsAtEnd() || m_token.line != line)
        return true;
    DWORD value = 0;
    if (!ReadOperand(value))
        return false;
    if (m_lastLine != line || (!IsAtEnd() && m_token.line == line))
        return Fail(L"#define 的值应该是一个数，或放在括号里");
    if (!m_names.emplace(name, value).second && m_names[name] != value)
        return FailWithName(line, L"名称“%s”已经是另一个数", name);
    return true;
}
