// Lists what is of interest in each block, and puts it where the copies of the block stand.
#include "analysis/BlockWindows.h"

#include <algorithm>

#include "analysis/WindowGatherer.h"
#include "platform/host/AcDbDatabase.h"
#include "scene/EntityGroups.h"
#include "scene/Placement.h"

namespace {

constexpr std::size_t kStepsForEachWindow = 4;
// So much of an outline, and of a text, is one step, and so long a text costs as much as a window.
constexpr std::size_t kCornersOfAStep = 4;
constexpr std::size_t kTextOfAWindow = 64;
// Where a unit is so long that no arc is as good as straight, and each line has a length.
constexpr double kHugeUnit = 1e50;

// What one copy of an entity may come to, at most, and what it costs to place that.
WantedCount CountOf(const WindowEntity& entity) {
    if (!entity.mayBeWindow) {
        const std::size_t length = static_cast<std::size_t>(entity.text.GetLength());
        return length == 0 ? WantedCount() : WantedCount{1 + length / kTextOfAWindow, 1 + length / kTextOfAWindow};
    }
    const std::size_t corners = entity.outline ? entity.outline->corners.size() : 0;
    const bool hasArcs = entity.outline && !entity.outline->bows.empty();
    const std::size_t lines = hasArcs ? corners : entity.lines.size();
    return {std::max<std::size_t>(lines, 1), 1 + lines + corners / kCornersOfAStep};
}

}  // namespace

BlockWindows::BlockWindows(const AcDbDatabase& drawing, LayerTable& layers, WindowGatherer& gatherer,
                           std::size_t mostWindows)
    : m_drawing(drawing),
      m_layers(layers),
      m_gatherer(gatherer),
      m_mostWindows(mostWindows),
      m_blocks(drawing, layers),
      m_walk(*this, kStepsForEachWindow * mostWindows) {}

bool BlockWindows::Take(AcDbObjectId id, const EntityGroups& entity, const LayerLook& layer) {
    // A text of this one INSERT goes before those that all copies of its block have.
    for (const Part& text : AttributesOf(id, &layer))
        m_gatherer.Take(ReadWindowEntity(m_drawing, text.id, GroupsOf(m_drawing, text.id), m_gatherer.Millimetres()),
                        Placement(), *text.look.layer);
    BlockInsert insert;
    const Block* const block = ReadInsert(entity, insert) ? m_blocks.Find(insert.name) : nullptr;
    if (!block || block->isFaulty) {
        if (WantsLayer(layer))
            m_gatherer.Miss(layer);
        return true;
    }
    const std::size_t known = m_gatherer.windows.size() + m_gatherer.texts.size();
    return m_walk.Walk(*block, insert, layer, m_mostWindows - std::min(known, m_mostWindows));
}

std::vector<BlockWindows::Part> BlockWindows::AttributesOf(AcDbObjectId insert, const LayerLook* layer) {
    std::vector<Part> attributes;
    for (AcDbObjectId id = m_drawing.GetNextObject(insert); !id.isNull(); id = m_drawing.GetNextObject(id)) {
        const EntityGroups groups = GroupsOf(m_drawing, id);
        if (groups.Type() != "ATTRIB")
            break;
        if (!groups.IsInModel())
            continue;
        attributes.push_back({id, ReadLook(groups, m_layers)});
        if (!attributes.back().look.layer)
            attributes.back().look.layer = layer;
    }
    return attributes;
}

bool BlockWindows::WantsLayer(const LayerLook& layer) {
    return m_gatherer.IsForWindows(layer);
}

WantedInBlock BlockWindows::CountIn(const Block& block) {
    Content& content = m_contents[&block];
    WantedInBlock wanted;
    // As with the INSERTs of the drawing: what belongs to one of them goes before what its block has.
    for (const InnerInsert& inner : block.inserts)
        for (const Part& text : AttributesOf(inner.id, inner.look.layer))
            Consider(text, content, wanted);
    for (const BlockEntity& entity : block.entities)
        Consider({entity.id, entity.look}, content, wanted);
    return wanted;
}

void BlockWindows::Consider(const Part& part, Content& content, WantedInBlock& wanted) {
    const bool isOnLayer0 = !part.look.layer;
    if (!isOnLayer0 && !WantsLayer(*part.look.layer))
        return;
    const WantedCount count = CountOf(ReadWindowEntity(m_drawing, part.id, GroupsOf(m_drawing, part.id), kHugeUnit));
    if (count.wanted == 0)
        return;
    WantedCount& sum = isOnLayer0 ? wanted.onLayer0 : wanted.onOwnLayers;
    sum.wanted += count.wanted;
    sum.steps += count.steps;
    content[isOnLayer0 ? 1 : 0].parts.push_back(part);
}

void BlockWindows::Visit(const Block& block, const Placement& placement, const LayerLook& layer) {
    Content& content = m_contents[&block];
    TakeParts(content[0], placement, layer);
    if (WantsLayer(layer))
        TakeParts(content[1], placement, layer);
}

void BlockWindows::TakeParts(Parts& parts, const Placement& placement, const LayerLook& layer) {
    Read(parts, placement.stretch);
    for (std::size_t i = 0; i < parts.parts.size(); ++i) {
        const EntityLook& look = parts.parts[i].look;
        m_gatherer.Take(parts.read[i], placement, look.layer ? *look.layer : layer);
    }
}

// Once for all copies that are alike in size. Of others only lines are read anew: they depend on it.
void BlockWindows::Read(Parts& parts, double stretch) {
    if (!parts.read.empty() && parts.stretch == stretch)
        return;
    const double millimetres = m_gatherer.Millimetres() * stretch;
    const bool isFirst = parts.read.empty();
    parts.read.resize(parts.parts.size());
    parts.stretch = stretch;
    for (std::size_t i = 0; i < parts.parts.size(); ++i) {
        const AcDbObjectId id = parts.parts[i].id;
        WindowEntity& read = parts.read[i];
        if (isFirst)
            read = ReadWindowEntity(m_drawing, id, GroupsOf(m_drawing, id), millimetres);
        else if (read.mayBeWindow) {
            read.lines.clear();
            read.isAllLines = ReadPlanSegments(m_drawing, id, GroupsOf(m_drawing, id), millimetres, read.lines);
        }
    }
}

void BlockWindows::Enter(const LayerLook&) {
    m_metBefore.push_back(m_gatherer.Met());
}

// An INSERT on a layer of windows is meant for some.
void BlockWindows::Leave(const LayerLook& layer) {
    if (WantsLayer(layer) && m_gatherer.Met() == m_metBefore.back())
        m_gatherer.Miss(layer);
    m_metBefore.pop_back();
}
