// Wide text: the framework's string class, reduced to what the module and the programs on it call, and the array of
// texts with the splitter that fills it.
#pragma once

#include <compare>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/Api.h"
#include "platform/base/TextFormat.h"

// For standard algorithms; null stands for an empty text.
inline std::wstring_view ViewOf(const wchar_t* text) {
    return text ? std::wstring_view(text) : std::wstring_view();
}

// A wide text with value semantics. Indexes count wchar_t units from 0; an index that is out of range is clamped (Mid,
// Left, Right, Find) or gives a zero character (GetAt). A null pointer stands for an empty text wherever a text is
// taken. Comparisons are ordinal, unit by unit; "no case" folds the 26 ASCII letters and nothing else, so that no
// result ever depends on a locale.
class ORVO_API CString {
public:
    CString() = default;
    // Copies a text up to its zero.
    CString(const wchar_t* text) : m_text(text ? text : L"") {}
    // Copies that many units, zeros among them; none for a negative length. They must be there.
    CString(const wchar_t* text, int length) : m_text(text ? text : L"", text ? ClampLength(length) : 0) {}
    // That many units of one kind; none for a negative count.
    explicit CString(wchar_t character, int count = 1) : m_text(ClampLength(count), character) {}
    // Copies the units, zeros among them.
    explicit CString(std::wstring_view text) : m_text(text) {}

    // Copies a text, which may be a part of this one.
    CString& operator=(const wchar_t* text);

    // The text with a zero behind it; valid until the next change.
    operator const wchar_t*() const { return m_text.c_str(); }
    const wchar_t* GetString() const { return m_text.c_str(); }
    // The same text for standard algorithms; valid until the next change.
    std::wstring_view View() const { return m_text; }

    // In units.
    int GetLength() const { return static_cast<int>(m_text.size()); }
    // Whether there is no unit.
    bool IsEmpty() const { return m_text.empty(); }
    // Removes all units.
    void Empty() { m_text.clear(); }
    // The unit at an index, to read and to change; an index out of range changes nothing.
    wchar_t GetAt(int index) const;
    void SetAt(int index, wchar_t character);

    // A copy of the first units, of the last ones, or of those from an index on; fewer where there are fewer.
    CString Left(int count) const;
    CString Right(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;

    // Position of the first match at or after `start`; -1 when there is none. An empty pattern matches at `start`.
    int Find(wchar_t character, int start = 0) const;
    int Find(const wchar_t* pattern, int start = 0) const;
    // Position of the last one; -1 when there is none.
    int ReverseFind(wchar_t character) const;

    // Removes `count` units from `index` on; gives the new length.
    int Delete(int index, int count = 1);
    // Puts a text before `index` (clamped to the ends); gives the new length.
    int Insert(int index, const wchar_t* text);
    // Replaces every occurrence; gives how many there were. An empty pattern occurs nowhere.
    int Replace(const wchar_t* pattern, const wchar_t* replacement);

    // Changes the 26 ASCII letters, and nothing else.
    CString& MakeUpper();
    CString& MakeLower();
    // Removes leading and trailing white space.
    CString& Trim();

    // Below 0 when this text comes before the other, 0 when they are the same, above 0 otherwise.
    int Compare(const wchar_t* other) const;
    int CompareNoCase(const wchar_t* other) const;

    // Appends; a text may be a part of this one.
    CString& operator+=(const wchar_t* text);
    CString& operator+=(wchar_t character);
    CString& operator+=(const CString& text);

    // Fills a printf-style format; see TextFormat.h for what may stand in it. A format that does not fit its arguments
    // never crashes: the text becomes the format itself, unfilled.
    template <class... Args>
    void Format(const wchar_t* format, const Args&... args) {
        const TextArgument list[sizeof...(Args) + 1] = {TextArgument(args)..., TextArgument(0)};
        if (!FormatText(m_text, format, list, sizeof...(Args)))
            m_text = format ? format : L"";
    }

private:
    static std::size_t ClampLength(int length) { return length > 0 ? static_cast<std::size_t>(length) : 0; }
    std::size_t ClampIndex(int index) const;

    std::wstring m_text;
};

// The maker's own name for the same thing.
using QcStringW = CString;

// The one text with the other behind it.
ORVO_API CString operator+(const CString& left, const CString& right);
ORVO_API CString operator+(const CString& left, const wchar_t* right);
ORVO_API CString operator+(const wchar_t* left, const CString& right);
ORVO_API CString operator+(const CString& left, wchar_t right);
ORVO_API CString operator+(wchar_t left, const CString& right);

// Ordinal comparisons, unit by unit; < and > give an order of such texts.
inline bool operator==(const CString& left, const CString& right) {
    return left.View() == right.View();
}
inline bool operator==(const CString& left, const wchar_t* right) {
    return left.Compare(right) == 0;
}
inline bool operator==(const wchar_t* left, const CString& right) {
    return right.Compare(left) == 0;
}
inline bool operator!=(const CString& left, const CString& right) {
    return !(left == right);
}
inline bool operator!=(const CString& left, const wchar_t* right) {
    return !(left == right);
}
inline bool operator!=(const wchar_t* left, const CString& right) {
    return !(left == right);
}
inline bool operator<(const CString& left, const CString& right) {
    return left.View() < right.View();
}
inline bool operator>(const CString& left, const CString& right) {
    return left.View() > right.View();
}
// For <= and >=, and for pairs and records of texts, which would compare the addresses of the characters otherwise.
inline std::strong_ordering operator<=>(const CString& left, const CString& right) {
    return left.View() <=> right.View();
}

// A growing array of texts.
class ORVO_API CStringArray {
public:
    // How many texts there are.
    int GetSize() const { return static_cast<int>(m_texts.size()); }
    // The text at an index; an empty text when the index is out of range.
    const CString& GetAt(int index) const;
    // Appends a text; gives its index.
    int Add(const CString& text);
    // Empties the array.
    void RemoveAll() { m_texts.clear(); }

private:
    std::vector<CString> m_texts;
};

// Splits `text` at each `separator` into `pieces`, which are emptied first. Empty pieces between separators are kept;
// an empty text gives no piece at all; an empty or null separator gives the whole text as the one piece.
ORVO_API void CutStrToArr(const wchar_t* text, const wchar_t* separator, CStringArray& pieces);

// Text in UTF-8 and back, for files, terminals and the operating system. A unit that is no character (a lone
// surrogate, a byte that is no UTF-8) becomes U+FFFD. Both work on 16-bit and 32-bit wchar_t.
ORVO_API std::string ToUtf8(std::wstring_view text);
ORVO_API CString FromUtf8(std::string_view bytes);
