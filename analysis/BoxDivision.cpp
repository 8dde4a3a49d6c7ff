// Puts the middles of boxes into bins, and weighs the places between bins.
#include "analysis/BoxDivision.h"

#include <algorithm>
#include <limits>

#include "analysis/Boxes.h"

namespace {

using Axis = double Vector3::*;
constexpr std::size_t kBins = 16;

double TwiceMiddle(const Box& box, Axis axis) {
    return box.least.*axis + box.most.*axis;
}

struct Bin {
    std::size_t count = 0;
    Box box;

    void Add(const Bin& other) {
        if (other.count == 0)
            return;
        box = count == 0 ? other.box : BoxAround(box, other.box);
        count += other.count;
    }
    double Cost() const { return count == 0 ? 0.0 : HalfSurface(box) * static_cast<double>(count); }
};

// The middles of a part's boxes along the axis on which they are farthest apart.
struct Middles {
    Axis axis = &Vector3::x;
    double from = 0.0;
    double length = -1.0;

    Middles(const std::vector<Box>& boxes, const BoxPart& part) {
        for (const Axis each : {&Vector3::x, &Vector3::y, &Vector3::z}) {
            double least = TwiceMiddle(boxes[*part.first], each);
            double most = least;
            for (const std::uint32_t* index = part.first; index != part.last; ++index) {
                least = std::min(least, TwiceMiddle(boxes[*index], each));
                most = std::max(most, TwiceMiddle(boxes[*index], each));
            }
            if (most - least <= length)
                continue;
            axis = each;
            from = least;
            length = most - least;
        }
    }
    std::size_t BinOf(const Box& box) const {
        const double place = (TwiceMiddle(box, axis) - from) / length * static_cast<double>(kBins);
        return std::min(static_cast<std::size_t>(place), kBins - 1);
    }
};

// The first bin of the second part.
std::size_t CheapestDivision(const Bin (&bins)[kBins]) {
    double before[kBins] = {};  // what the bins up to each cost
    Bin left;
    for (std::size_t i = 0; i < kBins; ++i) {
        left.Add(bins[i]);
        before[i] = left.Cost();
    }
    Bin right;
    std::size_t best = 0;
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = kBins - 1; i > 0; --i) {
        right.Add(bins[i]);
        const double cost = before[i - 1] + right.Cost();
        if (cost < least && right.count != 0 && right.count != left.count) {
            least = cost;
            best = i;
        }
    }
    return best;
}

}  // namespace

double HalfSurface(const Box& box) {
    const Vector3 size = box.most - box.least;
    return size.x * size.y + size.y * size.z + size.z * size.x;
}

BoxPart PartOf(const std::vector<Box>& boxes, std::uint32_t* first, std::uint32_t* last) {
    BoxPart part{first, last, boxes[*first]};
    for (const std::uint32_t* each = first; each != last; ++each)
        part.box = BoxAround(part.box, boxes[*each]);
    return part;
}

std::uint32_t* DivideBoxes(const std::vector<Box>& boxes, const BoxPart& part) {
    const Middles middles(boxes, part);
    // All in one place, or so far apart that bins cannot be told.
    if (!(middles.length > 0.0) || middles.length > std::numeric_limits<double>::max())
        return part.first + part.Count() / 2;
    Bin bins[kBins];
    for (const std::uint32_t* each = part.first; each != part.last; ++each)
        bins[middles.BinOf(boxes[*each])].Add({1, boxes[*each]});
    const std::size_t second = CheapestDivision(bins);
    return std::stable_partition(part.first, part.last,
                                 [&](std::uint32_t each) { return middles.BinOf(boxes[each]) < second; });
}
