// What the manual says beside the table of subcommands, in one language: headings, and paragraphs for each page.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/base/CString.h"

// A paragraph, or what explains a term: "TERM = words".
struct ProsePiece {
    CString term;
    CString text;
};

class ProseFile {
public:
    // A file of parts, [NAME] and below it pieces with empty lines between them; a line that begins with # is nobody's.
    // False when it cannot be read.
    bool Read(const std::string& path);

    // Empty for a part that is not there; Lacks tells which ones were asked for and are not.
    const std::vector<ProsePiece>& GetPart(const CString& name);
    // A heading of the part "headings"; its own name where there is none.
    CString GetHeading(const wchar_t* name);
    const std::vector<CString>& GetLacking() const { return m_lacking; }

private:
    std::map<std::wstring, std::vector<ProsePiece>> m_parts;
    std::vector<CString> m_lacking;
    std::vector<ProsePiece> m_none;
};
