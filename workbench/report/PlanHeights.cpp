// Finds a place for a number on each building.
#include "workbench/report/PlanHeights.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <unordered_map>

#include "workbench/report/PlanSheet.h"

namespace {

constexpr int kSize = 200;  // hundredths of a millimetre
constexpr int kCell = 400;

// Which roofs meet a box, by a grid over the paper.
class RoofGrid {
public:
    explicit RoofGrid(const std::vector<PlanRoof>& roofs) : m_roofs(roofs) {
        for (std::size_t i = 0; i < roofs.size(); ++i)
            Walk(roofs[i].box, [&](std::uint64_t cell) { m_cells[cell].push_back(i); });
    }
    bool IsCoveredFrom(const PaperBox& box, std::size_t first) const {
        bool isCovered = false;
        Walk(box, [&](std::uint64_t cell) {
            const auto found = m_cells.find(cell);
            if (found != m_cells.end())
                isCovered = isCovered || std::any_of(found->second.begin(), found->second.end(), [&](std::size_t i) {
                                return i >= first && m_roofs[i].box.Meets(box);
                            });
        });
        return isCovered;
    }

private:
    template <class Visit>
    static void Walk(const PaperBox& box, const Visit& visit) {
        const auto cell = [](int place) { return std::clamp(place, 0, 1'000'000) / kCell; };
        for (int y = cell(box.top); y <= cell(box.bottom); ++y)
            for (int x = cell(box.left); x <= cell(box.right); ++x)
                visit(static_cast<std::uint64_t>(x) << 32 | static_cast<std::uint64_t>(y));
    }

    const std::vector<PlanRoof>& m_roofs;
    std::unordered_map<std::uint64_t, std::vector<std::size_t>> m_cells;
};

// Places on a roof, from its middle outwards.
std::vector<PaperPoint> PlacesOn(const PaperBox& box) {
    constexpr int kTries = 7;
    std::vector<PaperPoint> places;
    for (int row = 0; row < kTries; ++row)
        for (int column = 0; column < kTries; ++column)
            places.push_back({box.left + box.Width() * (2 * column + 1) / (2 * kTries),
                              box.top + box.Height() * (2 * row + 1) / (2 * kTries)});
    const auto away = [&](PaperPoint place) {
        return std::hypot(place.x - (box.left + box.right) / 2, place.y - (box.top + box.bottom) / 2);
    };
    std::stable_sort(places.begin(), places.end(), [&](PaperPoint a, PaperPoint b) { return away(a) < away(b); });
    return places;
}

}  // namespace

double GroundOf(const std::vector<PlanRoof>& roofs) {
    const auto lowest = std::min_element(roofs.begin(), roofs.end(),
                                         [](const PlanRoof& a, const PlanRoof& b) { return a.low < b.low; });
    return lowest == roofs.end() ? 0.0 : lowest->foot;
}

std::string DrawHeights(const std::vector<PlanRoof>& roofs, PaperLabels& labels) {
    constexpr std::size_t kMostCorners = 1000;
    const double ground = GroundOf(roofs);
    const RoofGrid grid(roofs);
    std::unordered_map<int, std::size_t> tops;
    for (std::size_t i = 0; i < roofs.size(); ++i) {
        const auto [top, isNew] = tops.try_emplace(roofs[i].building, i);
        if (!isNew && roofs[i].high >= roofs[top->second].high)
            top->second = i;
    }
    std::string texts;
    // From the highest one down, in an order that does not hang on the table's.
    for (std::size_t i = roofs.size(); i-- > 0;) {
        const PlanRoof& roof = roofs[i];
        const CString text = MetresText(std::round(roof.high * 10.0) / 10.0);
        const PaperBox own = BoxForText(text, kSize, {});
        if (tops[roof.building] != i || roof.high - ground <= kGroundHeight || roof.loops.size() > kMostCorners ||
            roof.box.Width() < own.Width() || roof.box.Height() < own.Height())
            continue;
        for (const PaperPoint place : PlacesOn(roof.box)) {
            const PaperBox box = BoxForText(text, kSize, place);
            if (Cover(roof.loops, box) && !grid.IsCoveredFrom(box, i + 1) && labels.TryTake(box)) {
                texts += TextInBox(text, box, kSize);
                break;
            }
        }
    }
    if (texts.empty())
        return {};
    return "<g class=\"heights\" font-size=\"" + std::to_string(kSize) + "\">\n" + texts + "</g>\n";
}
