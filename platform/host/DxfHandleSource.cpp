// Looks for the greatest handle of a drawing, and writes $HANDSEED.
#include "platform/host/DxfHandleSource.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/base/CString.h"
#include "platform/host/DxfDrawing.h"
#include "platform/host/DxfScanner.h"
#include "platform/host/HandleText.h"

namespace {

constexpr int kVariable = 9;
constexpr int kHandle = 5;
constexpr std::string_view kSeed = "$HANDSEED";
constexpr std::uint64_t kMost = std::numeric_limits<std::uint64_t>::max();
// No program has come to such a handle by counting: what points there has been meant to point nowhere.
constexpr std::uint64_t kLeastOfNothing = std::uint64_t{1} << 63;

// Groups that hold handles, of the object itself or of others.
bool HoldsHandleValue(int code) {
    return code == kHandle || code == 105 || (code >= 320 && code <= 369) || (code >= 390 && code <= 399) ||
           code == 480 || code == 481 || code == 1005;
}

// The greatest handle that stands anywhere in an entry.
std::uint64_t GreatestIn(std::string_view text) {
    DxfScanner scanner(text);
    DxfRawGroup group;
    std::uint64_t greatest = 0;
    while (scanner.Next(group)) {
        if (!HoldsHandleValue(group.code))
            continue;
        const std::uint64_t handle = ParseDxfHandle(group.ValueIn(text));
        if (handle < kLeastOfNothing)
            greatest = std::max(greatest, handle);
    }
    return greatest;
}

// The greatest handle in the header. $HANDSEED is the next handle to be given: all below it are taken. Of several the
// greatest counts.
std::uint64_t GreatestInHeader(const std::vector<DxfGroup>& header) {
    std::uint64_t greatest = 0;
    bool isSeed = false;
    for (const DxfGroup& group : header) {
        if (group.code == kVariable)
            isSeed = TrimDxfValue(group.value) == kSeed;
        if (!HoldsHandleValue(group.code))
            continue;
        const std::uint64_t handle = ParseDxfHandle(group.value);
        if (isSeed)
            greatest = std::max(greatest, std::max<std::uint64_t>(handle, 1) - 1);
        else if (handle < kLeastOfNothing)
            greatest = std::max(greatest, handle);
    }
    return greatest;
}

std::vector<DxfGroup> GroupsOf(const DxfDrawing& drawing, std::size_t header) {
    return header == DxfIndex::kNone ? std::vector<DxfGroup>() : ReadDxfGroups(drawing.TextOf(header));
}

bool IsSeedName(const DxfGroup& group) {
    return group.code == kVariable && TrimDxfValue(group.value) == kSeed;
}

}  // namespace

std::string DxfHandleText(std::uint64_t handle) {
    return ToUtf8(HandleText(handle).View());
}

DxfHandleSource::DxfHandleSource(const DxfDrawing& drawing) {
    const DxfIndex& index = drawing.GetIndex();
    std::uint64_t greatest =
        std::max(index.GetGreatestHandle(), GreatestInHeader(GroupsOf(drawing, index.GetHeader())));
    greatest = std::max(greatest, GreatestInHeader(GroupsOf(drawing, index.GetLooseHeader())));
    for (std::size_t entry = 0; entry + 1 < index.GetCount(); ++entry)
        if (entry != index.GetHeader() && entry != index.GetLooseHeader())
            greatest = std::max(greatest, GreatestIn(drawing.TextOf(entry)));
    // The last number is left for $HANDSEED, which is above all handles.
    m_first = greatest == kMost ? kMost : greatest + 1;
    m_next = m_first;
}

std::uint64_t DxfHandleSource::Take() {
    if (m_next == kMost) {
        m_isExhausted = true;
        return 0;
    }
    return m_next++;
}

std::size_t DxfHandleSource::GetSeedEntry(const DxfDrawing& drawing) {
    const std::size_t loose = drawing.GetIndex().GetLooseHeader();
    const std::vector<DxfGroup> groups = GroupsOf(drawing, loose);
    return std::any_of(groups.begin(), groups.end(), IsSeedName) ? loose : drawing.GetIndex().GetHeader();
}

std::string DxfHandleSource::HeaderText(const DxfDrawing& drawing) const {
    const std::size_t entry = GetSeedEntry(drawing);
    const std::vector<DxfGroup> before = GroupsOf(drawing, entry);
    const DxfGroup value = {kHandle, DxfHandleText(m_next)};
    std::vector<DxfGroup> groups;
    bool isSeed = false;
    bool isThere = false;
    for (const DxfGroup& group : before) {
        if (group.code != kVariable && isSeed)
            continue;  // the old value
        groups.push_back(group);
        isSeed = IsSeedName(group);
        if (isSeed)
            groups.push_back(value);
        isThere = isThere || isSeed;
    }
    if (!isThere) {
        groups.push_back({kVariable, std::string(kSeed)});
        groups.push_back(value);
    }
    return RewriteDxfObject(drawing.TextOf(entry), groups, drawing.GetStyle());
}
