// The value of a group, between the two forms that it has: text in a drawing, and a result buffer.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/base/CString.h"
#include "platform/host/DxfGroup.h"
#include "platform/host/GroupItems.h"
#include "platform/host/GroupStorage.h"
#include "platform/host/ResBuf.h"

class AcDbDatabase;

// Only the member that the storage names counts; the others stay as they are made, so that values compare whole.
struct GroupValue {
    int code = 0;
    GroupStorage storage = GroupStorage::Text;
    CString text;
    std::array<double, 3> point{};  // a single number is the first
    std::int64_t integer = 0;
    std::array<std::uint64_t, 2> name{};
    std::string bytes;

    bool operator==(const GroupValue&) const = default;
};

// Reads a value of the drawing. Lenient: what is no number gives 0, a whole number that is too wide its low bits.
// Coordinates that have no group are 0. An object's name is its id and 0; of a handle that no object of the drawing
// bears, 0 and the handle.
GroupValue ReadGroup(const AcDbDatabase& drawing, const std::vector<DxfGroup>& groups, const GroupItem& item);

// Writes a value over the one that a drawing has: `groups` are the item's groups (1 to 3), of which those that change
// get the shortest text that reads back. False, with some groups possibly changed, for a value that the groups cannot
// hold: a line break in a text, characters that cannot be encoded, a handle that is none, numbers that are not finite,
// a coordinate that has no group, a switch that is neither 0 nor 1, the name of an object without a handle.
bool WriteGroup(const AcDbDatabase& drawing, const GroupValue& old, const GroupValue& value,
                std::vector<DxfGroup>& groups);

// Writes a value that the drawing does not have yet, a point with all three coordinates.
bool WriteNewGroup(const AcDbDatabase& drawing, const GroupValue& value, std::vector<DxfGroup>& groups);

// Makes a buffer, which the caller owns; null without memory.
resbuf* MakeBuffer(const GroupValue& value);

// The value of a buffer. A text or bytes that are missing are empty.
GroupValue ValueOf(const resbuf& buffer);
