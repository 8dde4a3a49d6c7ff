// What every statement of a resource script is made of: words, signs, texts, and numbers written as sums and bits.
#pragma once

#include <map>
#include <string_view>

#include "platform/base/CString.h"
#include "platform/base/FrameworkTypes.h"
#include "platform/window/resource/ResourceTokens.h"

// Walks through a script with one token in view. Each Read... takes what it names and gives true, or notes what is
// wrong and gives false, after which nothing of the script counts.
class ResourceParser {
public:
    // The script must outlive the parser.
    explicit ResourceParser(std::string_view utf8);

    // The first fault, with its line; empty when there was none.
    const CString& Message() const { return m_message; }

protected:
    using Kind = ResourceToken::Kind;

    const ResourceToken& Token() const { return m_token; }
    bool IsAtEnd() const { return m_token.kind == Kind::kEnd; }
    // Words of statements count in upper and lower case alike; the keyword is in upper case.
    bool IsWord(std::string_view keyword) const;
    bool IsSign(char sign) const { return m_token.kind == Kind::kSign && m_token.sign == sign; }

    // Take the token in view if it is what they ask for; otherwise nothing happens and they give false.
    bool TakeWord(std::string_view keyword);
    bool TakeSign(char sign);
    void Advance();

    bool Fail(const wchar_t* builtInText);
    bool FailAt(int line, const CString& text);
    bool ReadComma();
    bool ReadText(CString& text);
    // A sum or combination of bits, 32 bits wide.
    bool ReadNumber(DWORD& value);
    bool ReadShort(short& value);
    // The number of a dialog's item: 0 to 65535, where -1 is 65535.
    bool ReadID(UINT& id);
    // Numbers between bars, of which those after NOT are taken out of the style instead of added.
    bool ReadStyle(DWORD& style);
    // A name and its number, which must not mean two things.
    bool ReadDefine();

private:
    bool ReadSum(DWORD& value);
    bool ReadBits(DWORD& value);
    bool ReadOperand(DWORD& value);
    bool ReadName(DWORD& value);
    bool FailWithName(int line, const wchar_t* builtInFormat, std::string_view name);

    ResourceTokens m_tokens;
    ResourceToken m_token;
    int m_lastLine = 1;  // of the token taken last
    int m_depth = 0;     // of open parentheses
    std::map<std::string_view, DWORD> m_names;
    CString m_message;
};
