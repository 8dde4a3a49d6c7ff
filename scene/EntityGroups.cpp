// Finds groups of an entity and reads their numbers.
#include "scene/EntityGroups.h"

#include <charconv>
#include <cmath>
#include <new>
#include <system_error>
#include <utility>

#include "platform/base/TextNumber.h"
#include "platform/host/AcDbDatabase.h"
#include "platform/host/DxfScanner.h"
#include "scene/GroupCodes.h"

namespace {

constexpr int kInvisible = 60;
constexpr int kInPaperSpace = 67;

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

std::string_view EntityGroups::Layer() const {
    const DxfGroup* const layer = Find(kLayer);
    return layer ? std::string_view(layer->value) : std::string_view("0");
}

bool EntityGroups::IsInModel() const {
    return IntegerOr(kInvisible, 0) != 1 && IntegerOr(kInPaperSpace, 0) != 1;
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

EntityGroups GroupsOf(const AcDbDatabase& drawing, AcDbObjectId id) {
    std::vector<DxfGroup> groups;
    // An id out of the drawing's own list has groups, unless there is no memory for them.
    if (!drawing.GetGroups(id, groups))
        throw std::bad_alloc();
    return EntityGroups(std::move(groups));
}
