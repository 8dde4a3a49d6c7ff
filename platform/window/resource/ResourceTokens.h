// Cuts a resource script into words, numbers, texts and signs.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/base/CString.h"
#include "platform/base/FrameworkTypes.h"

// One piece of a script.
struct ResourceToken {
    enum class Kind {
        kEnd,     // behind the last one
        kWord,    // a name, or the kind of a statement: `word`
        kNumber,  // `number`
        kText,    // without its quotes: `text`
        kSign,    // one of , | & + - ~ ( ) { }: `sign`
        kDefine,  // #define; its pieces are the ones on the same line
        kFault,   // no piece of a script: `text` says why
    };

    Kind kind = Kind::kEnd;
    int line = 1;  // from 1
    std::string_view word;
    DWORD number = 0;
    CString text;
    char sign = 0;
};

// Gives one token after the other. White space, comments and the lines of #include and #pragma give none; #line counts.
// After a fault nothing but that fault comes.
class ResourceTokens {
public:
    // The script must outlive the tokens.
    explicit ResourceTokens(std::string_view utf8);

    ResourceToken Next();

private:
    using Kind = ResourceToken::Kind;

    char Peek(std::size_t ahead = 0) const;
    bool IsAtEnd() const { return m_at >= m_script.size(); }
    void Step();
    std::string_view TakeWord();
    bool SkipSpace();
    void SkipLine();
    bool SkipComment();

    ResourceToken TakeToken();
    ResourceToken TakePiece();
    bool SkipDirective(ResourceToken& token);
    bool TakeLineNumber();
    ResourceToken TakeNumber();
    ResourceToken TakeText();
    bool TakeEscape(std::string& bytes);
    ResourceToken Fault(const wchar_t* message) const;

    std::string_view m_script;
    std::size_t m_at = 0;
    int m_line = 1;
    bool m_lineBegins = true;  // nothing but white space so far on this line
    ResourceToken m_fault;     // what ended the reading; of another kind until then
};
