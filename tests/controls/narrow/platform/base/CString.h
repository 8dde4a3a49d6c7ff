// A text of 16-bit units, with as much of the framework's text class as the masked edit asks for. Nothing in it reaches
// for a library that counts in units of another width.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <vector>

class CString {
public:
    CString() = default;
    CString(const wchar_t* text) {
        while (*text != 0)
            *this += *text++;
    }
    operator const wchar_t*() const { return m_units.data(); }
    int GetLength() const { return static_cast<int>(m_units.size()) - 1; }
    bool IsEmpty() const { return GetLength() == 0; }
    wchar_t GetAt(int index) const { return index < 0 || index >= GetLength() ? L'\0' : m_units[At(index)]; }
    void SetAt(int index, wchar_t unit) {
        if (index >= 0 && index < GetLength())
            m_units[At(index)] = unit;
    }
    CString Mid(int first, int count) const {
        CString part;
        for (int index = std::max(first, 0); count > 0 && index < GetLength(); ++index, --count)
            part += GetAt(index);
        return part;
    }
    CString Left(int count) const { return Mid(0, count); }
    int Find(wchar_t unit, int start = 0) const {
        const wchar_t text[2] = {unit, 0};
        return Find(text, start);
    }
    int Find(const wchar_t* pattern, int start = 0) const {
        const auto found =
            std::search(m_units.begin() + start, m_units.end() - 1, pattern, pattern + CString(pattern).GetLength());
        return found == m_units.end() - 1 ? -1 : static_cast<int>(found - m_units.begin());
    }
    int ReverseFind(wchar_t unit) const {
        int index = GetLength() - 1;
        while (index >= 0 && GetAt(index) != unit)
            --index;
        return index;
    }
    CString& operator+=(wchar_t unit) {
        m_units.back() = unit;
        m_units.push_back(0);
        return *this;
    }
    CString& operator+=(const CString& text) {
        for (int index = 0; index < text.GetLength(); ++index)
            *this += text.GetAt(index);
        return *this;
    }
    bool operator==(const CString& other) const { return m_units == other.m_units; }

private:
    static std::size_t At(int index) { return static_cast<std::size_t>(index); }

    std::vector<wchar_t> m_units{0};  // with the zero at its end
};

// As numbers.
inline void PrintTo(const CString& text, std::ostream* out) {
    for (int index = 0; index < text.GetLength(); ++index)
        *out << std::hex << static_cast<unsigned>(text.GetAt(index)) << std::dec << ' ';
}
