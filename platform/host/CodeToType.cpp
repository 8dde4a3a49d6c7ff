// The table of group codes, which says both what a group is and where its value lies.
#include "platform/host/CodeToType.h"

#include <algorithm>
#include <iterator>

#include "platform/host/DxfScanner.h"
#include "platform/host/GroupStorage.h"

namespace {

struct CodeRange {
    int first;
    int last;
    int type;
    GroupStorage storage;
};

// In ascending order, so that a code is found by halving.
constexpr CodeRange kRanges[] = {
    {-5, -5, RTENAME, GroupStorage::Name},      {-4, -4, RTSTR, GroupStorage::Text},
    {-2, -1, RTENAME, GroupStorage::Name},      {0, 9, RTSTR, GroupStorage::Text},
    {10, 18, RT3DPOINT, GroupStorage::Point},   {20, 37, RTNONE, GroupStorage::Real},
    {38, 49, RTREAL, GroupStorage::Real},       {50, 58, RTANG, GroupStorage::Real},
    {59, 59, RTREAL, GroupStorage::Real},       {60, 79, RTSHORT, GroupStorage::Short},
    {90, 99, RTLONG, GroupStorage::Long},       {100, 100, RTSTR, GroupStorage::Text},
    {102, 102, RTSTR, GroupStorage::Text},      {105, 105, RTSTR, GroupStorage::Text},
    {110, 119, RT3DPOINT, GroupStorage::Point}, {120, 139, RTNONE, GroupStorage::Real},
    {140, 149, RTREAL, GroupStorage::Real},     {160, 169, RTNONE, GroupStorage::Int64},
    {170, 179, RTSHORT, GroupStorage::Short},   {210, 219, RT3DPOINT, GroupStorage::Point},
    {220, 239, RTNONE, GroupStorage::Real},     {270, 299, RTSHORT, GroupStorage::Short},
    {300, 309, RTSTR, GroupStorage::Text},      {310, 319, RTNONE, GroupStorage::Binary},
    {320, 329, RTSTR, GroupStorage::Text},      {330, 369, RTENAME, GroupStorage::Name},
    {370, 389, RTSHORT, GroupStorage::Short},   {390, 399, RTENAME, GroupStorage::Name},
    {400, 409, RTSHORT, GroupStorage::Short},   {410, 419, RTSTR, GroupStorage::Text},
    {420, 429, RTLONG, GroupStorage::Long},     {430, 439, RTSTR, GroupStorage::Text},
    {440, 459, RTLONG, GroupStorage::Long},     {460, 469, RTREAL, GroupStorage::Real},
    {470, 479, RTSTR, GroupStorage::Text},      {480, 481, RTENAME, GroupStorage::Name},
    {999, 1003, RTSTR, GroupStorage::Text},     {1004, 1004, RTNONE, GroupStorage::Binary},
    {1005, 1009, RTSTR, GroupStorage::Text},    {1010, 1019, RT3DPOINT, GroupStorage::Point},
    {1020, 1039, RTNONE, GroupStorage::Real},   {1040, 1059, RTREAL, GroupStorage::Real},
    {1060, 1070, RTSHORT, GroupStorage::Short}, {1071, 1071, RTLONG, GroupStorage::Long},
};

const CodeRange* FindRange(int code) {
    const CodeRange* range = std::partition_point(std::begin(kRanges), std::end(kRanges),
                                                  [code](const CodeRange& other) { return other.last < code; });
    return range != std::end(kRanges) && range->first <= code ? range : nullptr;
}

GroupStorage StorageOfResult(int type) {
    switch (type) {
        case RTREAL:
        case RTANG:
        case RTORINT:
            return GroupStorage::Real;
        case RTPOINT:
        case RT3DPOINT:
            return GroupStorage::Point;
        case RTSHORT:
            return GroupStorage::Short;
        case RTSTR:
            return GroupStorage::Text;
        case RTENAME:
        case RTPICKS:
            return GroupStorage::Name;
        default:
            return GroupStorage::Long;  // no value, and so nothing to free
    }
}

}  // namespace

int CodeToType(int code) {
    const CodeRange* range = FindRange(code);
    return range ? range->type : RTNONE;
}

bool HoldsHandle(int code) {
    return code == 5 || code == 105 || (code >= 320 && code <= 329) || code == 1005;
}

GroupStorage StorageOf(int type) {
    if (type > kMostDxfCode)
        return StorageOfResult(type);
    const CodeRange* range = FindRange(type);
    return range ? range->storage : GroupStorage::Text;
}
