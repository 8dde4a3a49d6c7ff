// Strict parsing of whole and decimal numbers.
#include "facts/NumberText.h"

#include <cmath>
#include <string_view>

#include "platform/base/TextNumber.h"

namespace {

constexpr int kMostDigits = 6;

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

}  // namespace

std::optional<int> ParseWhole(const CString& text, int least, int most) {
    if (text.IsEmpty() || text.GetLength() > kMostDigits)
        return std::nullopt;
    int value = 0;
    for (const wchar_t digit : text.View()) {
        if (digit < L'0' || digit > L'9')
            return std::nullopt;
        value = value * 10 + static_cast<int>(digit - L'0');
    }
    return value < least || value > most ? std::nullopt : std::optional<int>(value);
}

std::optional<double> ParseDecimal(const CString& text) {
    CString number(text);
    number.Trim();
    if (!IsDecimal(number.View()))
        return std::nullopt;
    const double value = _wtof(number.GetString());
    return std::isfinite(value) ? std::optional<double>(value) : std::nullopt;
}
