// Looks for a square on each line, and goes from square to square along it.
#include "analysis/CrossedLattice.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <unordered_set>

#include "analysis/AreaBorder.h"
#include "analysis/SharedWork.h"
#include "analysis/Tolerances.h"

namespace {

constexpr std::int32_t kSeedStep = kNodesPerSpacing / 2;

// A part of the whole search, by the time that it took in a drawing with shadows of seven houses.
struct Stage {
    double from;
    double to;

    double At(double share) const { return from + (to - from) * share; }
};
constexpr Stage kSeeds = {0.0, 0.46};
constexpr Stage kMakeProbes = {0.46, 0.62};
constexpr Stage kProbes = {0.62, 0.65};
constexpr Stage kLines = {0.65, 0.83};
constexpr Stage kPlaces = {0.83, 1.0};

template <class Value>
void SortOnce(std::vector<Value>& values) {
    std::sort(values.begin(), values.end());
    values.erase(std::unique(values.begin(), values.end()), values.end());
}

class CrossingSearch {
public:
    CrossingSearch(const IsolineSearch& search, const AreaBorder& border, std::size_t& cellsLeft, CrossedLattice& found)
        : m_search(search), m_border(border), m_cellsLeft(cellsLeft), m_found(found), m_lattice(found.lattice) {
        m_inset = std::min(0.25 * m_lattice.pitch, std::max(kLeastInset, m_lattice.pitch / 32.0));
    }
    IsolineOutcome Run();

private:
    static constexpr double kLeastInset = 2.0;  // walls that rounding put over the border count for nothing

    // A way from one place at half the spacing towards the next.
    struct Probe {
        LatticeNode node;
        std::int32_t x = 0;  // one of both is 1 or -1
        std::int32_t y = 0;
        std::int32_t steps = kSeedStep;
        std::uint8_t fromHours = 0;
        int toHours = -1;  // -1: not known yet
    };

    std::uint8_t HoursAt(const FlatPoint& place) const;
    FlatPoint PlaceOf(LatticeNode node) const { return m_lattice.At(node.x, node.y); }
    bool Share(const Stage& stage, std::size_t count, const std::function<void(std::size_t)>& work) const;
    void AddBorderCells();
    bool AddSeedCells();
    void AddProbes(const std::vector<LatticeNode>& seeds, const std::vector<std::uint8_t>& hours, std::size_t seed,
                   std::vector<Probe>& probes) const;
    std::int32_t StepsInside(LatticeNode node, std::int32_t x, std::int32_t y) const;
    void Divide(const Probe& probe, std::int32_t from, std::uint8_t fromHours, std::int32_t to, std::uint8_t toHours,
                std::vector<std::uint64_t>& cells) const;
    IsolineOutcome FollowLines();
    bool AskNodes(const Stage& stage, const std::vector<std::uint64_t>& cells);
    void LookAtCell(std::uint64_t key, std::vector<std::uint64_t>& next);
    bool IsInArea(LatticeNode cell) const;
    void FindEdges();
    bool FindPlaces();
    void FindPlacesOf(const CrossedEdge& edge);
    FlatPoint PlaceOn(const CrossedEdge& edge, int hours) const;

    const IsolineSearch& m_search;
    const AreaBorder& m_border;
    std::size_t& m_cellsLeft;
    CrossedLattice& m_found;
    const Lattice m_lattice;
    double m_inset = 0.0;
    std::vector<std::uint64_t> m_pending;  // cells
    std::unordered_set<std::uint64_t> m_seen;
    std::unordered_map<std::uint64_t, std::uint8_t> m_hours;  // of nodes
};

IsolineOutcome CrossingSearch::Run() {
    AddBorderCells();
    if (!AddSeedCells())
        return IsolineOutcome::Cancelled;
    const IsolineOutcome outcome = FollowLines();
    if (outcome != IsolineOutcome::Done)
        return outcome;
    std::sort(m_found.cells.begin(), m_found.cells.end(),
              [](const CrossedCell& a, const CrossedCell& b) { return a.node < b.node; });
    FindEdges();
    return FindPlaces() ? IsolineOutcome::Done : IsolineOutcome::Cancelled;
}

std::uint8_t CrossingSearch::HoursAt(const FlatPoint& place) const {
    const double minutes = m_search.minutesAt(m_border.MovedWithin(place, m_inset));
    const double hours = std::floor((minutes + kMinuteTolerance) / 60.0);
    return static_cast<std::uint8_t>(std::clamp(hours, 0.0, static_cast<double>(m_search.mostHours)));
}

// Starting threads takes longer than a few places do.
bool CrossingSearch::Share(const Stage& stage, std::size_t count, const std::function<void(std::size_t)>& work) const {
    constexpr std::size_t kWorthThreads = 64;
    const double piece = count == 0 ? 0.0 : 1.0 / static_cast<double>(count);
    return ShareWork(count, count < kWorthThreads ? 1 : m_search.threads, work,
                     [&](std::size_t done) { return m_search.goOn(stage.At(piece * static_cast<double>(done))); });
}

// All that the border passes, row by row.
void CrossingSearch::AddBorderCells() {
    const std::vector<FlatPoint>& corners = m_search.area.corners;
    const auto cellOf = [](double value, double first, double pitch) {
        return static_cast<std::int32_t>(std::floor((value - first) / pitch));
    };
    for (std::size_t i = 0; i < corners.size(); ++i) {
        FlatPoint low = corners[i];
        FlatPoint high = corners[(i + 1) % corners.size()];
        if (low.y > high.y)
            std::swap(low, high);
        const std::int32_t last = cellOf(high.y, m_lattice.first.y, m_lattice.pitch);
        for (std::int32_t row = cellOf(low.y, m_lattice.first.y, m_lattice.pitch); row <= last; ++row) {
            const double bottom = std::max(low.y, m_lattice.first.y + row * m_lattice.pitch);
            const double top = std::min(high.y, m_lattice.first.y + (row + 1) * m_lattice.pitch);
            double left = low.x;
            double right = high.x;
            if (high.y > low.y) {
                left = low.x + (high.x - low.x) * std::clamp((bottom - low.y) / (high.y - low.y), 0.0, 1.0);
                right = low.x + (high.x - low.x) * std::clamp((top - low.y) / (high.y - low.y), 0.0, 1.0);
            }
            if (left > right)
                std::swap(left, right);
            const std::int32_t end = cellOf(right, m_lattice.first.x, m_lattice.pitch);
            for (std::int32_t column = cellOf(left, m_lattice.first.x, m_lattice.pitch); column <= end; ++column)
                m_pending.push_back(NodeKey(column, row));
        }
    }
}

bool CrossingSearch::AddSeedCells() {
    const Lattice coarse{m_lattice.first, m_lattice.pitch * kSeedStep};
    std::vector<LatticeNode> seeds = NodesWithin(m_search.area, coarse);
    for (LatticeNode& seed : seeds)
        seed = {seed.x * kSeedStep, seed.y * kSeedStep};
    std::vector<std::uint8_t> hours(seeds.size());
    if (!Share(kSeeds, seeds.size(), [&](std::size_t i) { hours[i] = HoursAt(PlaceOf(seeds[i])); }))
        return false;
    std::vector<Probe> probes;
    constexpr std::size_t kBetweenQuestions = 4096;
    for (std::size_t i = 0; i < seeds.size(); ++i) {
        if (i % kBetweenQuestions == 0 &&
            !m_search.goOn(kMakeProbes.At(static_cast<double>(i) / static_cast<double>(seeds.size()))))
            return false;
        AddProbes(seeds, hours, i, probes);
    }
    std::vector<std::vector<std::uint64_t>> cells(probes.size());
    const bool isDone = Share(kProbes, probes.size(), [&](std::size_t i) {
        const Probe& probe = probes[i];
        const LatticeNode end{probe.node.x + probe.x * probe.steps, probe.node.y + probe.y * probe.steps};
        const std::uint8_t toHours =
            probe.toHours >= 0 ? static_cast<std::uint8_t>(probe.toHours) : HoursAt(PlaceOf(end));
        Divide(probe, 0, probe.fromHours, probe.steps, toHours, cells[i]);
    });
    for (const std::vector<std::uint64_t>& each : cells)
        m_pending.insert(m_pending.end(), each.begin(), each.end());
    return isDone;
}

// To the right and upwards the whole way where the next place is in the area too; else in each direction to the border.
void CrossingSearch::AddProbes(const std::vector<LatticeNode>& seeds, const std::vector<std::uint8_t>& hours,
                               std::size_t seed, std::vector<Probe>& probes) const {
    constexpr LatticeNode kWays[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
    const LatticeNode node = seeds[seed];
    for (const LatticeNode& way : kWays) {
        const std::int32_t steps = StepsInside(node, way.x, way.y);
        Probe probe{node, way.x, way.y, steps, hours[seed], -1};
        if (steps == kSeedStep) {
            const std::uint64_t next = NodeKey(node.x + way.x * kSeedStep, node.y + way.y * kSeedStep);
            const auto found = std::lower_bound(
                seeds.begin(), seeds.end(), next,
                [](const LatticeNode& each, std::uint64_t key) { return NodeKey(each.x, each.y) < key; });
            if (found != seeds.end() && NodeKey(found->x, found->y) == next) {
                probe.toHours = hours[static_cast<std::size_t>(found - seeds.begin())];
                if (way.x + way.y < 0 || probe.toHours == probe.fromHours)
                    continue;
            }
        }
        probes.push_back(probe);
    }
}

// To the first node that is not in the area, or to the next place.
std::int32_t CrossingSearch::StepsInside(LatticeNode node, std::int32_t x, std::int32_t y) const {
    const FlatPoint end = m_lattice.At(node.x + x * kSeedStep, node.y + y * kSeedStep);
    const FlatPoint middle = m_lattice.At(node.x + x * kSeedStep / 2, node.y + y * kSeedStep / 2);
    if (!m_border.IsNear(PlaceOf(node)) && !m_border.IsNear(middle) && !m_border.IsNear(end))
        return kSeedStep;
    std::int32_t steps = 1;
    while (steps < kSeedStep && m_border.IsInside(m_lattice.At(node.x + x * steps, node.y + y * steps)))
        ++steps;
    return steps;
}

void CrossingSearch::Divide(const Probe& probe, std::int32_t from, std::uint8_t fromHours, std::int32_t to,
                            std::uint8_t toHours, std::vector<std::uint64_t>& cells) const {
    if (fromHours == toHours)
        return;
    const auto nodeAt = [&](std::int32_t step) {
        return LatticeNode{probe.node.x + probe.x * step, probe.node.y + probe.y * step};
    };
    if (to - from > 1) {
        const std::int32_t middle = (from + to) / 2;
        const std::uint8_t hours = HoursAt(PlaceOf(nodeAt(middle)));
        Divide(probe, from, fromHours, middle, hours, cells);
        Divide(probe, middle, hours, to, toHours, cells);
        return;
    }
    const LatticeNode a = nodeAt(from);
    const LatticeNode b = nodeAt(to);
    const LatticeNode low{std::min(a.x, b.x), std::min(a.y, b.y)};
    cells.push_back(NodeKey(low.x, low.y));
    cells.push_back(probe.y != 0 ? NodeKey(low.x - 1, low.y) : NodeKey(low.x, low.y - 1));
}

// In waves, because each line is come by from many places at once: from places half a spacing apart most of a line is
// followed in some eight waves, and nobody knows how many there will be.
IsolineOutcome CrossingSearch::FollowLines() {
    constexpr double kUsualWaves = 8.0;
    Stage wave = {kLines.from, kLines.from};
    for (double number = 1.0; !m_pending.empty(); ++number) {
        wave = {wave.to, kLines.At(number / (number + kUsualWaves))};
        SortOnce(m_pending);
        std::erase_if(m_pending, [&](std::uint64_t cell) { return !m_seen.insert(cell).second; });
        std::erase_if(m_pending, [&](std::uint64_t cell) { return !IsInArea(NodeOf(cell)); });
        if (m_pending.size() > m_cellsLeft)
            return IsolineOutcome::TooMany;
        m_cellsLeft -= m_pending.size();
        if (!AskNodes(wave, m_pending))
            return IsolineOutcome::Cancelled;
        std::vector<std::uint64_t> next;
        for (const std::uint64_t cell : m_pending)
            LookAtCell(cell, next);
        m_pending = std::move(next);
    }
    return IsolineOutcome::Done;
}

bool CrossingSearch::IsInArea(LatticeNode cell) const {
    const double half = 0.5 * m_lattice.pitch;
    FlatPoint middle = PlaceOf(cell);
    middle.x += half;
    middle.y += half;
    return m_border.DistanceTo(middle) <= 1.5 * half || m_border.IsInside(middle);
}

bool CrossingSearch::AskNodes(const Stage& stage, const std::vector<std::uint64_t>& cells) {
    std::vector<std::uint64_t> nodes;
    for (const std::uint64_t cell : cells) {
        const auto [x, y] = NodeOf(cell);
        for (const std::uint64_t node : {cell, NodeKey(x + 1, y), NodeKey(x + 1, y + 1), NodeKey(x, y + 1)})
            if (!m_hours.contains(node))
                nodes.push_back(node);
    }
    SortOnce(nodes);
    std::vector<std::uint8_t> hours(nodes.size());
    if (!Share(stage, nodes.size(), [&](std::size_t i) { hours[i] = HoursAt(PlaceOf(NodeOf(nodes[i]))); }))
        return false;
    for (std::size_t i = 0; i < nodes.size(); ++i)
        m_hours.emplace(nodes[i], hours[i]);
    return true;
}

// A line that passes a side goes on in the next square.
void CrossingSearch::LookAtCell(std::uint64_t key, std::vector<std::uint64_t>& next) {
    const auto [x, y] = NodeOf(key);
    CrossedCell cell{key,
                     {m_hours.at(key), m_hours.at(NodeKey(x + 1, y)), m_hours.at(NodeKey(x + 1, y + 1)),
                      m_hours.at(NodeKey(x, y + 1))}};
    const std::uint64_t neighbours[] = {NodeKey(x, y - 1), NodeKey(x + 1, y), NodeKey(x, y + 1), NodeKey(x - 1, y)};
    bool isCrossed = false;
    for (std::size_t i = 0; i < 4; ++i)
        if (cell.hours[i] != cell.hours[(i + 1) % 4]) {
            isCrossed = true;
            next.push_back(neighbours[i]);
        }
    if (isCrossed)
        m_found.cells.push_back(cell);
}

void CrossingSearch::FindEdges() {
    for (const CrossedCell& cell : m_found.cells) {
        const auto [x, y] = NodeOf(cell.node);
        const auto& hours = cell.hours;
        for (const CrossedEdge& edge : {CrossedEdge{{cell.node, false}, hours[0], hours[1], 0},
                                        CrossedEdge{{NodeKey(x + 1, y), true}, hours[1], hours[2], 0},
                                        CrossedEdge{{NodeKey(x, y + 1), false}, hours[3], hours[2], 0},
                                        CrossedEdge{{cell.node, true}, hours[0], hours[3], 0}})
            if (edge.fromHours != edge.toHours)
                m_found.edges.push_back(edge);
    }
    std::vector<CrossedEdge>& edges = m_found.edges;
    std::sort(edges.begin(), edges.end(), [](const CrossedEdge& a, const CrossedEdge& b) { return a.edge < b.edge; });
    const auto isSame = [](const CrossedEdge& a, const CrossedEdge& b) { return a.edge == b.edge; };
    edges.erase(std::unique(edges.begin(), edges.end(), isSame), edges.end());
    std::size_t count = 0;
    for (CrossedEdge& edge : edges) {
        edge.firstPlace = count;
        count += static_cast<std::size_t>(std::abs(edge.fromHours - edge.toHours));
    }
    m_found.places.resize(count);
}

bool CrossingSearch::FindPlaces() {
    return Share(kPlaces, m_found.edges.size(), [&](std::size_t i) { FindPlacesOf(m_found.edges[i]); });
}

void CrossingSearch::FindPlacesOf(const CrossedEdge& edge) {
    const auto [low, high] = std::minmax(edge.fromHours, edge.toHours);
    for (int hours = low + 1; hours <= high; ++hours)
        m_found.places[edge.firstPlace + static_cast<std::size_t>(hours - low - 1)] = PlaceOn(edge, hours);
}

// Halves the edge where its ends differ: to a 256th of the spacing.
FlatPoint CrossingSearch::PlaceOn(const CrossedEdge& edge, int hours) const {
    constexpr int kHalvings = 3;
    const LatticeNode node = NodeOf(edge.edge.node);
    const FlatPoint from = PlaceOf(node);
    const FlatPoint way{edge.edge.isUpward ? 0.0 : m_lattice.pitch, edge.edge.isUpward ? m_lattice.pitch : 0.0};
    double less = edge.fromHours < edge.toHours ? 0.0 : 1.0;
    double more = 1.0 - less;
    for (int i = 0; i < kHalvings; ++i) {
        const double middle = 0.5 * (less + more);
        (HoursAt({from.x + way.x * middle, from.y + way.y * middle}) < hours ? less : more) = middle;
    }
    const double middle = 0.5 * (less + more);
    return {from.x + way.x * middle, from.y + way.y * middle};
}

}  // namespace

IsolineOutcome FindCrossings(const IsolineSearch& search, const AreaBorder& border, std::size_t& cellsLeft,
                             CrossedLattice& found) {
    const Lattice grid = GridLattice(search.area, search.spacing);
    found.lattice = {grid.first, grid.pitch / kNodesPerSpacing};
    return CrossingSearch(search, border, cellsLeft, found).Run();
}
