// Reads the prose, line by line.
#include "ProseFile.h"

#include <fstream>

namespace {

// A term stands before the first " = ".
ProsePiece PieceOf(const CString& paragraph) {
    const std::size_t equals = paragraph.View().find(L" = ");
    if (equals == std::wstring_view::npos)
        return {CString(), paragraph};
    const auto at = static_cast<int>(equals);
    return {paragraph.Left(at), paragraph.Mid(at + 3)};
}

// Lines of Chinese go on without a blank.
CString Joined(const CString& paragraph, const CString& line) {
    constexpr wchar_t kFirstWide = 0x2E80;
    const bool isGlued = !paragraph.IsEmpty() && (paragraph.GetAt(paragraph.GetLength() - 1) >= kFirstWide);
    return paragraph.IsEmpty() || isGlued ? paragraph + line : paragraph + L" " + line;
}

}  // namespace

bool ProseFile::Read(const std::string& path) {
    std::ifstream file(path);
    std::vector<ProsePiece>* part = nullptr;
    CString paragraph;
    const auto endParagraph = [&] {
        if (part && !paragraph.IsEmpty())
            part->push_back(PieceOf(paragraph));
        paragraph.Empty();
    };
    for (std::string bytes; std::getline(file, bytes);) {
        CString line = FromUtf8(bytes);
        line.Trim();
        if (line.Left(1) == L"#")
            continue;
        if (line.IsEmpty() || line.Left(1) == L"[")
            endParagraph();
        if (line.Left(1) == L"[")
            part = &m_parts[std::wstring(line.Mid(1, line.GetLength() - 2).View())];
        else if (!line.IsEmpty())
            paragraph = Joined(paragraph, line);
    }
    endParagraph();
    return file.eof() && !m_parts.empty();
}

const std::vector<ProsePiece>& ProseFile::GetPart(const CString& name) {
    const auto part = m_parts.find(std::wstring(name.View()));
    if (part != m_parts.end())
        return part->second;
    m_lacking.push_back(name);
    return m_none;
}

CString ProseFile::GetHeading(const wchar_t* name) {
    for (const ProsePiece& piece : GetPart(L"headings"))
        if (piece.term == name)
            return piece.text;
    m_lacking.push_back(name);
    return name;
}
