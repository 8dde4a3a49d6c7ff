// Strict parsing of numbers and coordinates.
#include "workbench/commands/CoordinateText.h"

#include <cmath>
#include <string_view>

#include "platform/base/TextNumber.h"

namespace {

constexpr wchar_t kWideComma = 0xFF0C;
constexpr wchar_t kWideSemicolon = 0xFF1B;
constexpr std::size_t kCoordinates = 3;

// Passes over the digits at the beginning; says whether there were any.
bool SkipDigits(std::wstring_view& text) {
    const std::size_t before = text.size();
    while (!text.empty() && text.front() >= L'0' && text.front() <= L'9')
        text.remove_prefix(1);
    return text.size() < before;
}

// Passes over one of two characters; says whether it was there.
bool SkipOneOf(std::wstring_view& text, wchar_t first, wchar_t second) {
    if (text.empty() || (text.front() != first && text.front() != second))
        return false;
    text.remove_prefix(1);
    return true;
}

bool IsDecimal(std::wstring_view text) {
    SkipOneOf(text, L'+', L'-');
    bool hasDigits = SkipDigits(text);
    if (SkipOneOf(text, L'.', L'.'))
        hasDigits = SkipDigits(text) || hasDigits;
    if (!hasDigits)
        return false;
    if (SkipOneOf(text, L'e', L'E')) {
        SkipOneOf(text, L'+', L'-');
        if (!SkipDigits(text))
            return false;
    }
    return text.empty();
}

std::vector<CString> SplitAt(const CString& text, wchar_t separator, wchar_t wideSeparator) {
    std::vector<CString> parts(1);
    for (const wchar_t character : text.View()) {
        if (character == separator || character == wideSeparator)
            parts.emplace_back();
        else
            parts.back() += character;
    }
    return parts;
}

}  // namespace

std::optional<double> ParseDecimal(const CString& text) {
    CString number(text);
    number.Trim();
    if (!IsDecimal(number.View()))
        return std::nullopt;
    const double value = _wtof(number.GetString());
    return std::isfinite(value) ? std::optional<double>(value) : std::nullopt;
}

std::optional<QcGePoint> ParseCoordinates(const CString& text) {
    const std::vector<CString> parts = SplitAt(text, L',', kWideComma);
    if (parts.size() != kCoordinates)
        return std::nullopt;
    const std::optional<double> x = ParseDecimal(parts[0]);
    const std::optional<double> y = ParseDecimal(parts[1]);
    const std::optional<double> z = ParseDecimal(parts[2]);
    return x && y && z ? std::optional<QcGePoint>(QcGePoint(*x, *y, *z)) : std::nullopt;
}

std::vector<CString> SplitAtSemicolons(const CString& text) {
    return SplitAt(text, L';', kWideSemicolon);
}
