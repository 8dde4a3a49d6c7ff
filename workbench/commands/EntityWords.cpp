// Type and layer of an entity.
#include "workbench/commands/EntityWords.h"

#include <algorithm>
#include <vector>

#include "platform/host/AcDbDatabase.h"

namespace {

CString FirstText(const AcDbDatabase& drawing, const std::vector<DxfGroup>& groups, int code) {
    const auto group =
        std::find_if(groups.begin(), groups.end(), [code](const DxfGroup& each) { return each.code == code; });
    return group == groups.end() ? CString() : drawing.Decode(group->value);
}

}  // namespace

EntityWords WordsOfEntity(const AcDbDatabase& drawing, AcDbObjectId id) {
    constexpr int kType = 0;
    constexpr int kLayer = 8;
    std::vector<DxfGroup> groups;
    drawing.GetGroups(id, groups);
    return {FirstText(drawing, groups, kType), FirstText(drawing, groups, kLayer)};
}
