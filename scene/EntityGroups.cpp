// Finds groups of an entity and reads their numbers.
#include "scene/EntityGroups.h"

#include <charconv>
#include <cmath>
#include <system_error>

#include "platform/base/TextNumber.h"
#include "platform/host/DxfScanner.h"

namespace {

// from_chars knows no plus sign.
std::string_view NumberIn(std::string_view text) {
    const std::string_view number = TrimDxfValue(text);
    const bool hasPlus = number.size() > 1 && number[0] == '+' && number[1] != '-';
    return hasPlus ? number.substr(1) : number;
}

}  // namespace

bool ReadInteger(std::string_view text, int& value) {
    const std::string_view number = NumberIn(text);
    int read = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), read);
    if (error != std::errc() || end != number.data() + number.size())
        return false;
    value = read;
    return true;
}

bool ReadReal(std::string_view text, double& value) {
    const std::string_view number = NumberIn(text);
    double read = 0.0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), read);
    if (end != number.data() + number.size() || error == std::errc::invalid_argument)
        return false;
    // Too large or too small: the platform's reader tells which.
    if (error == std::errc::result_out_of_range)
        read = _wtof(std::wstring(number.begin(), number.end()).c_str());
    if (!(std::fabs(read) <= kFarthest))
        return false;
    value = read;
    return true;
}

std::string_view EntityGroups::Type() const {
    return m_groups.empty() ? std::string_view() : TrimDxfValue(m_groups[0].value);
}

const DxfGroup* EntityGroups::Find(int code) const {
    for (const DxfGroup& group : m_groups)
        if (group.code == code)
            return &group;
    return nullptr;
}

bool EntityGroups::Integer(int code, int& value) const {
    const DxfGroup* const group = Find(code);
    return !group || ReadInteger(group->value, value);
}

bool EntityGroups::Real(int code, double& value) const {
    const DxfGroup* const group = Find(code);
    return !group || ReadReal(group->value, value);
}

int EntityGroups::IntegerOr(int code, int otherwise) const {
    int value = otherwise;
    return Integer(code, value) ? value : otherwise;
}

bool EntityGroups::Point(int code, QcGePoint& point) const {
    QcGePoint read;
    if (!Find(code) || !Find(code + 10) || !Real(code, read.x) || !Real(code + 10, read.y) || !Real(code + 20, read.z))
        return false;
    point = read;
    return true;
}
