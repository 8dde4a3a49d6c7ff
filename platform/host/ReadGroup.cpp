// Reads the value of a group from the drawing's text.
#include <algorithm>
#include <charconv>
#include <limits>

#include "platform/base/Characters.h"
#include "platform/base/TextNumber.h"
#include "platform/host/AcDbDatabase.h"
#include "platform/host/GroupValue.h"

namespace {

bool IsBlank(char character) {
    return character == ' ' || character == '\t';
}

std::string_view SkipBlanks(std::string_view text) {
    const auto first = std::find_if_not(text.begin(), text.end(), IsBlank);
    return text.substr(static_cast<std::size_t>(first - text.begin()));
}

double ReadReal(const std::string& text) {
    return _wtof(FromUtf8(text));
}

std::int64_t ReadInteger(const std::string& text) {
    std::string_view digits = SkipBlanks(text);
    if (digits.starts_with('+'))
        digits.remove_prefix(1);
    std::int64_t value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec != std::errc::result_out_of_range)
        return value;
    using Limits = std::numeric_limits<std::int64_t>;
    return digits.front() == '-' ? Limits::min() : Limits::max();
}

std::uint64_t ReadHandle(const std::string& text) {
    const std::string_view digits = SkipBlanks(text);
    std::uint64_t value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    return value;
}

// As far as there are pairs of digits, and a buffer can count the bytes.
std::string ReadBytes(const std::string& text) {
    constexpr std::size_t kMost = std::numeric_limits<std::int16_t>::max();
    std::string bytes;
    for (std::size_t i = 0; i + 1 < text.size() && bytes.size() < kMost; i += 2) {
        const int high = HexDigit(text[i]);
        const int low = HexDigit(text[i + 1]);
        if (high < 0 || low < 0)
            break;
        bytes.push_back(static_cast<char>(high * 16 + low));
    }
    return bytes;
}

std::array<std::uint64_t, 2> ReadName(const AcDbDatabase& drawing, const std::string& text) {
    const std::uint64_t handle = ReadHandle(text);
    const AcDbObjectId id = drawing.FindHandle(handle);
    if (id.isNull())
        return {0, handle};
    return {id.asOldId(), 0};
}

}  // namespace

GroupValue ReadGroup(const AcDbDatabase& drawing, const std::vector<DxfGroup>& groups, const GroupItem& item) {
    const std::string& text = groups[item.first].value;
    GroupValue value;
    value.code = item.code;
    value.storage = StorageOf(item.code);
    switch (value.storage) {
        case GroupStorage::Text:
            value.text = drawing.Decode(text).GetString();  // as far as a buffer's text can go: to its first zero
            break;
        case GroupStorage::Real:
        case GroupStorage::Point:
            for (std::size_t i = 0; i < item.count; ++i)
                value.point[i] = ReadReal(groups[item.first + i].value);
            break;
        case GroupStorage::Short:
            value.integer = static_cast<std::int16_t>(ReadInteger(text));
            break;
        case GroupStorage::Long:
            value.integer = static_cast<std::int32_t>(ReadInteger(text));
            break;
        case GroupStorage::Int64:
            value.integer = ReadInteger(text);
            break;
        case GroupStorage::Name:
            value.name = ReadName(drawing, text);
            break;
        case GroupStorage::Binary:
            value.bytes = ReadBytes(text);
            break;
    }
    return value;
}
