// The text class's members that are too long for the header, and text in UTF-8 and back.
#include "platform/base/CString.h"

#include <algorithm>
#include <cwchar>

#include "platform/base/TextSpace.h"

namespace {

wchar_t ToAsciiUpper(wchar_t c) {
    return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
}
wchar_t ToAsciiLower(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

int PositionOrNone(std::size_t position) {
    return position == std::wstring::npos ? -1 : static_cast<int>(position);
}

}  // namespace

CString& CString::operator=(const wchar_t* text) {
    m_text.assign(ViewOf(text));  // copes with a pointer into this very text
    return *this;
}

std::size_t CString::ClampIndex(int index) const {
    return index <= 0 ? 0 : std::min(static_cast<std::size_t>(index), m_text.size());
}

wchar_t CString::GetAt(int index) const {
    return index < 0 || index >= GetLength() ? L'\0' : m_text[static_cast<std::size_t>(index)];
}

void CString::SetAt(int index, wchar_t character) {
    if (index >= 0 && index < GetLength())
        m_text[static_cast<std::size_t>(index)] = character;
}

CString CString::Left(int count) const {
    return CString(View().substr(0, ClampLength(count)));
}

CString CString::Right(int count) const {
    const std::size_t kept = std::min(ClampLength(count), m_text.size());
    return CString(View().substr(m_text.size() - kept));
}

CString CString::Mid(int first) const {
    return CString(View().substr(ClampIndex(first)));
}

CString CString::Mid(int first, int count) const {
    return CString(View().substr(ClampIndex(first), ClampLength(count)));
}

int CString::Find(wchar_t character, int start) const {
    return PositionOrNone(m_text.find(character, ClampIndex(start)));
}

int CString::Find(const wchar_t* pattern, int start) const {
    return PositionOrNone(m_text.find(ViewOf(pattern), ClampIndex(start)));
}

int CString::ReverseFind(wchar_t character) const {
    return PositionOrNone(m_text.rfind(character));
}

int CString::Delete(int index, int count) {
    m_text.erase(ClampIndex(index), ClampLength(count));
    return GetLength();
}

int CString::Insert(int index, const wchar_t* text) {
    m_text.insert(ClampIndex(index), std::wstring(ViewOf(text)));
    return GetLength();
}

int CString::Replace(const wchar_t* pattern, const wchar_t* replacement) {
    const std::wstring from(ViewOf(pattern));
    const std::wstring to(ViewOf(replacement));
    if (from.empty())
        return 0;
    std::wstring result;
    int count = 0;
    std::size_t at = 0;
    for (std::size_t hit = m_text.find(from); hit != std::wstring::npos; hit = m_text.find(from, at)) {
        result.append(m_text, at, hit - at).append(to);
        at = hit + from.size();
        ++count;
    }
    m_text = result.append(m_text, at);
    return count;
}

CString& CString::MakeUpper() {
    std::transform(m_text.begin(), m_text.end(), m_text.begin(), ToAsciiUpper);
    return *this;
}

CString& CString::MakeLower() {
    std::transform(m_text.begin(), m_text.end(), m_text.begin(), ToAsciiLower);
    return *this;
}

CString& CString::Trim() {
    const auto first = std::find_if_not(m_text.begin(), m_text.end(), IsTextSpace);
    const auto last = std::find_if_not(m_text.rbegin(), m_text.rend(), IsTextSpace).base();
    m_text = first < last ? std::wstring(first, last) : std::wstring();
    return *this;
}

int CString::Compare(const wchar_t* other) const {
    return View().compare(ViewOf(other));
}

int CString::CompareNoCase(const wchar_t* other) const {
    return CString(*this).MakeLower().Compare(CString(other).MakeLower());
}

CString& CString::operator+=(const wchar_t* text) {
    m_text.append(std::wstring(ViewOf(text)));
    return *this;
}

CString& CString::operator+=(wchar_t character) {
    m_text.push_back(character);
    return *this;
}

CString& CString::operator+=(const CString& text) {
    m_text.append(text.m_text);
    return *this;
}

CString operator+(const CString& left, const CString& right) {
    return CString(left) += right;
}
CString operator+(const CString& left, const wchar_t* right) {
    return CString(left) += right;
}
CString operator+(const wchar_t* left, const CString& right) {
    return CString(left) += right;
}
CString operator+(const CString& left, wchar_t right) {
    return CString(left) += right;
}
CString operator+(wchar_t left, const CString& right) {
    return CString(left) += right;
}

const CString& CStringArray::GetAt(int index) const {
    static const CString noText;
    return index < 0 || index >= GetSize() ? noText : m_texts[static_cast<std::size_t>(index)];
}

int CStringArray::Add(const CString& text) {
    m_texts.push_back(text);
    return GetSize() - 1;
}

void CutStrToArr(const wchar_t* text, const wchar_t* separator, CStringArray& pieces) {
    const std::wstring whole(ViewOf(text));
    const std::wstring cut(ViewOf(separator));
    pieces.RemoveAll();
    if (whole.empty())
        return;
    std::size_t at = 0;
    if (!cut.empty()) {
        for (std::size_t hit = whole.find(cut); hit != std::wstring::npos; hit = whole.find(cut, at)) {
            pieces.Add(CString(std::wstring_view(whole).substr(at, hit - at)));
            at = hit + cut.size();
        }
    }
    pieces.Add(CString(std::wstring_view(whole).substr(at)));
}
