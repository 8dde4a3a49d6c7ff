// Reads the lines of each block once, and puts them where its copies stand.
#include "scene/LineGatherer.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/host/AcDbDatabase.h"
#include "scene/BlockTable.h"
#include "scene/EntityGroups.h"
#include "scene/Placement.h"

namespace {

constexpr std::size_t kStepsForEachSegment = 4;

bool IsNear(const QcGePoint& point) {
    return std::fabs(point.x) <= kFarthest && std::fabs(point.y) <= kFarthest && std::fabs(point.z) <= kFarthest;
}

// A closed outline on a layer with a height is a body.
bool IsBody(const EntityLines& lines, const LayerLook& layer) {
    return lines.isOutline && layer.Height() != nullptr;
}

}  // namespace

LineGatherer::LineGatherer(const AcDbDatabase& drawing, std::size_t mostSegments)
    : m_drawing(drawing), m_mostSegments(mostSegments), m_walk(*this, kStepsForEachSegment * mostSegments) {}

void LineGatherer::Take(AcDbObjectId id, const EntityGroups& entity, const LayerLook& layer, const EntityColor& color) {
    const EntityLines lines = ReadEntityLines(m_drawing, id, entity);
    if (lines.segments.empty() || IsBody(lines, layer))
        return;
    if (m_lines.segments.size() + lines.segments.size() > m_mostSegments) {
        ++m_lines.leftOutCount;
        return;
    }
    m_id = id;
    const std::size_t first = m_lines.segments.size();
    m_lines.segments.insert(m_lines.segments.end(), lines.segments.begin(), lines.segments.end());
    AddRun(layer, color, first);
}

void LineGatherer::TakeInsert(AcDbObjectId id, const Block& block, const BlockInsert& insert,
                              const Surroundings& surroundings) {
    m_id = id;
    m_insertedColor = surroundings.color;
    if (!m_walk.Walk(block, insert, surroundings.layer, m_mostSegments - m_lines.segments.size()))
        ++m_lines.leftOutCount;
}

WantedInBlock LineGatherer::CountIn(const Block& block) {
    Content& content = m_contents[&block];
    WantedInBlock wanted;
    for (const BlockEntity& entity : block.entities) {
        const bool isOnLayer0 = !entity.look.layer;
        if (!isOnLayer0 && !entity.look.layer->isVisible)
            continue;
        EntityLines lines = ReadEntityLines(m_drawing, entity.id, GroupsOf(m_drawing, entity.id));
        if (lines.segments.empty())
            continue;
        WantedCount& sum = isOnLayer0 ? wanted.onLayer0 : wanted.onOwnLayers;
        sum.wanted += lines.segments.size();
        sum.steps += 1 + lines.segments.size();
        content[isOnLayer0 ? 1 : 0].push_back({entity.look, std::move(lines)});
    }
    return wanted;
}

void LineGatherer::Visit(const Block& block, const Placement& placement, const LayerLook& layer) {
    const Content& content = m_contents[&block];
    for (const Part& part : content[0])
        Place(part, placement, layer);
    if (!layer.isVisible)
        return;
    for (const Part& part : content[1])
        Place(part, placement, layer);
}

void LineGatherer::Place(const Part& part, const Placement& placement, const LayerLook& layer) {
    const Surroundings surroundings{layer, m_insertedColor};
    const LayerLook& own = surroundings.LayerOf(part.look);
    if (IsBody(part.lines, own))
        return;
    const std::size_t first = m_lines.segments.size();
    for (const SceneSegment& segment : part.lines.segments) {
        const SceneSegment placed{placement.PointAt(segment.from), placement.PointAt(segment.to)};
        if (IsNear(placed.from) && IsNear(placed.to))
            m_lines.segments.push_back(placed);
    }
    AddRun(own, surroundings.ColorOf(part.look), first);
}

void LineGatherer::AddRun(const LayerLook& layer, const EntityColor& color, std::size_t first) {
    const std::size_t count = m_lines.segments.size() - first;
    if (count == 0)
        return;
    SceneLineRun* const last = m_lines.runs.empty() ? nullptr : &m_lines.runs.back();
    if (last && last->id == m_id && last->layer == layer.number &&
        EntityColor{last->colorIndex, last->trueColor} == color)
        last->count += count;
    else
        m_lines.runs.push_back({m_id, layer.number, color.index, color.trueColor, first, count});
}

SceneLines LineGatherer::MoveOut() {
    if (m_lines.segments.empty())
        return std::move(m_lines);
    m_lines.least = m_lines.most = m_lines.segments.front().from;
    const auto take = [&](const QcGePoint& point) {
        for (double QcGePoint::*const axis : {&QcGePoint::x, &QcGePoint::y, &QcGePoint::z}) {
            m_lines.least.*axis = std::min(m_lines.least.*axis, point.*axis);
            m_lines.most.*axis = std::max(m_lines.most.*axis, point.*axis);
        }
    };
    for (const SceneSegment& segment : m_lines.segments) {
        take(segment.from);
        take(segment.to);
    }
    return std::move(m_lines);
}
