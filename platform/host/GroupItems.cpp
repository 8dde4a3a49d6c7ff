// Gathers groups into values: finds the x, y and z that make one point.
#include "platform/host/GroupItems.h"

#include "platform/host/GroupStorage.h"

namespace {

// How many of the groups from `first` on make one value.
std::size_t CountCoordinates(const std::vector<DxfGroup>& groups, std::size_t first) {
    const int code = groups[first].code;
    if (StorageOf(code) != GroupStorage::Point)
        return 1;
    std::size_t count = 1;
    while (count < 3 && first + count < groups.size()) {
        if (groups[first + count].code != code + 10 * static_cast<int>(count))
            break;
        ++count;
    }
    return count;
}

}  // namespace

std::vector<GroupItem> GatherGroups(const std::vector<DxfGroup>& groups) {
    std::vector<GroupItem> items;
    for (std::size_t i = 0; i < groups.size(); i += items.back().count)
        items.push_back({groups[i].code, i, CountCoordinates(groups, i)});
    return items;
}
