// Writes the value of a group as the drawing's text.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

#include "platform/base/Characters.h"
#include "platform/base/TextNumber.h"
#include "platform/host/AcDbDatabase.h"
#include "platform/host/GroupValue.h"

namespace {

using Text = std::optional<std::string>;

std::string HexText(std::uint64_t value) {
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof(digits), value, 16).ptr;
    std::string text(digits, end);
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char digit) { return digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit; });
    return text;
}

std::string BytesText(const std::string& bytes) {
    std::string text;
    for (const char byte : bytes) {
        text.push_back(kHexDigits[static_cast<unsigned char>(byte) >> 4U]);
        text.push_back(kHexDigits[static_cast<unsigned char>(byte) & 15U]);
    }
    return text;
}

// A handle in a text: 1 to 16 hexadecimal digits.
bool IsHandle(const CString& text) {
    const auto isDigit = [](wchar_t character) { return HexDigit(character) >= 0; };
    const std::wstring_view view = text.View();
    return !view.empty() && view.size() <= 16 && std::all_of(view.begin(), view.end(), isDigit);
}

bool IsSwitch(int code) {
    return code >= 290 && code <= 299;
}

Text RealText(double value) {
    if (!std::isfinite(value))
        return std::nullopt;
    return ToUtf8(DoubleToText(value).View());
}

Text TextText(const AcDbDatabase& drawing, const GroupValue& value) {
    std::string bytes;
    if (HoldsHandle(value.code) && !IsHandle(value.text))
        return std::nullopt;
    if (!drawing.Encode(value.text, bytes))
        return std::nullopt;
    return bytes;
}

Text NameText(const AcDbDatabase& drawing, const GroupValue& value) {
    if (value.name[0] == 0)
        return HexText(value.name[1]);
    const AcDbObjectId id = AcDbObjectId::FromOldId(value.name[0]);
    const std::uint64_t handle = drawing.GetHandle(id);
    if (handle == 0 || drawing.FindHandle(handle) != id)
        return std::nullopt;  // the handle would not lead back
    return HexText(handle);
}

Text IntegerText(const GroupValue& value) {
    if (IsSwitch(value.code) && value.integer != 0 && value.integer != 1)
        return std::nullopt;
    return std::to_string(value.integer);
}

// The text of the value, or of one coordinate of it.
Text TextOf(const AcDbDatabase& drawing, const GroupValue& value, std::size_t coordinate) {
    if (value.code < 0)
        return std::nullopt;  // codes below 0 are for programs; no file holds them
    switch (value.storage) {
        case GroupStorage::Text:
            return TextText(drawing, value);
        case GroupStorage::Real:
        case GroupStorage::Point:
            return RealText(value.point[coordinate]);
        case GroupStorage::Name:
            return NameText(drawing, value);
        case GroupStorage::Binary:
            return BytesText(value.bytes);
        case GroupStorage::Short:
        case GroupStorage::Long:
        case GroupStorage::Int64:
            break;
    }
    return IntegerText(value);
}

}  // namespace

bool WriteGroup(const AcDbDatabase& drawing, const GroupValue& old, const GroupValue& value,
                std::vector<DxfGroup>& groups) {
    if (value.storage != GroupStorage::Point) {
        const Text text = TextOf(drawing, value, 0);
        if (text)
            groups.front().value = *text;
        return text.has_value();
    }
    for (std::size_t i = 0; i < value.point.size(); ++i) {
        if (value.point[i] == old.point[i])
            continue;
        const Text text = TextOf(drawing, value, i);
        if (!text || i >= groups.size())
            return false;
        groups[i].value = *text;
    }
    return true;
}

bool WriteNewGroup(const AcDbDatabase& drawing, const GroupValue& value, std::vector<DxfGroup>& groups) {
    const std::size_t count = value.storage == GroupStorage::Point ? value.point.size() : 1;
    for (std::size_t i = 0; i < count; ++i) {
        const Text text = TextOf(drawing, value, i);
        if (!text)
            return false;
        groups.push_back({value.code + 10 * static_cast<int>(i), *text});
    }
    return true;
}
