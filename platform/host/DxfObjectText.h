// Reads the groups of one object from its text in a drawing file, and writes changed groups back so that those that
// stayed the same keep their bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host/DxfGroup.h"

// How a file is written.
struct DxfStyle {
    std::string_view lineEnd = "\n";
    std::size_t codeWidth = 0;  // codes are padded to it on the left
};

// The style of a text, by its first line (behind a byte-order mark).
DxfStyle DxfStyleOf(std::string_view text);

// The groups of an object whose text has been found sound. Comments are not among them.
std::vector<DxfGroup> ReadDxfGroups(std::string_view text);

// Who an object is: its type (the bytes of group 0) and its handle, which is the first group of the code `handleCode`.
struct DxfIdentity {
    std::string_view type;
    std::uint64_t handle = 0;

    bool operator==(const DxfIdentity&) const = default;
};
DxfIdentity IdentityOf(const std::vector<DxfGroup>& groups, int handleCode);

// Whether the groups can stand in a file as one object.
bool AreDxfGroupsSound(const std::vector<DxfGroup>& groups);

// The text of `groups` in the place of `before`. Groups that are the same keep their bytes with the comments behind
// them; one that has another value keeps its code's line, its line end and those comments; the rest is written in the
// style.
std::string RewriteDxfObject(std::string_view before, const std::vector<DxfGroup>& groups, const DxfStyle& style);
