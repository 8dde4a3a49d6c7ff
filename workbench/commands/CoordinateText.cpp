// Strict parsing of coordinates: three numbers with commas between them.
#include "workbench/commands/CoordinateText.h"

#include "facts/NumberText.h"

namespace {

constexpr wchar_t kWideComma = 0xFF0C;
constexpr wchar_t kWideSemicolon = 0xFF1B;
constexpr std::size_t kCoordinates = 3;

std::vector<CString> SplitAt(const CString& text, wchar_t separator, wchar_t wideSeparator) {
    std::vector<CString> parts(1);
    for (const wchar_t character : text.View())
        if (character == separator || character == wideSeparator)
            parts.emplace_back();
        else
            parts.back() += character;
    return parts;
}

}  // namespace

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
