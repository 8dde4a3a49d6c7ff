// Counts what a walk would meet, and then walks. Sound blocks are at most kDeepestBlock deep, so that this calls
// itself.
#include "scene/BlockWalk.h"

#include <algorithm>

#include "scene/BlockTable.h"
#include "scene/Placement.h"

namespace {

const LayerLook& LayerOf(const EntityLook& look, const LayerLook& outer) {
    return look.layer ? *look.layer : outer;
}

}  // namespace

bool BlockWalk::Walk(const Block& block, const BlockInsert& insert, const LayerLook& layer, std::size_t most) {
    const bool isWanted = m_visitor.WantsLayer(layer);
    Known& known = KnownOf(block);
    const Content& content = Count(known, isWanted);
    if (content.wanted > 0.0) {
        const double steps = insert.CountCopies() * content.steps;
        if (insert.CountCopies() * content.wanted > static_cast<double>(most) || steps > m_spareSteps)
            return false;
        m_spareSteps -= steps;
    }
    if (content.wanted > 0.0 || isWanted)
        Enter(known, insert, Placement(), layer);
    return true;
}

BlockWalk::Known& BlockWalk::KnownOf(const Block& block) {
    const auto [entry, isNew] = m_known.try_emplace(&block);
    if (isNew) {
        entry->second.block = &block;
        entry->second.own = m_visitor.CountIn(block);
    }
    return entry->second;
}

const BlockWalk::Content& BlockWalk::Count(Known& known, bool isWanted) {
    Content& content = known.contents[isWanted ? 1 : 0];
    if (content.isCounted)
        return content;
    content.isCounted = true;
    const auto& [onOwn, onLayer0] = known.own;
    content.wanted = static_cast<double>(onOwn.wanted + (isWanted ? onLayer0.wanted : 0));
    content.isVisited = content.wanted > 0.0;
    content.steps = 1.0 + static_cast<double>(onOwn.steps + (isWanted ? onLayer0.steps : 0));
    for (const InnerInsert& inner : known.block->inserts) {
        Known& inserted = KnownOf(*inner.block);
        const bool isInnerWanted = inner.look.layer ? m_visitor.WantsLayer(*inner.look.layer) : isWanted;
        const Content& within = Count(inserted, isInnerWanted);
        const bool isInsertWanted = isInnerWanted && m_visitor.WantsInserts();
        if (within.wanted == 0.0 && !isInsertWanted)
            continue;
        content.inserts.push_back({&inner, &inserted});
        const double copies = within.wanted > 0.0 ? inner.insert.CountCopies() : 0.0;
        content.wanted += std::max(copies * within.wanted, isInsertWanted ? 1.0 : 0.0);
        content.steps += 1.0 + copies * within.steps;
    }
    return content;
}

void BlockWalk::Enter(Known& known, const BlockInsert& insert, const Placement& outer, const LayerLook& layer) {
    const Content& content = Count(known, m_visitor.WantsLayer(layer));
    m_visitor.Enter(layer);
    // Without anything there may be any number of copies.
    for (int row = 0; row < insert.rows && content.wanted > 0.0; ++row)
        for (int column = 0; column < insert.columns; ++column)
            VisitCopy(known, content, insert.At(known.block->base, column, row).Within(outer), layer);
    m_visitor.Leave(layer);
}

void BlockWalk::VisitCopy(const Known& known, const Content& content, const Placement& placement,
                          const LayerLook& layer) {
    if (content.isVisited)
        m_visitor.Visit(*known.block, placement, layer);
    for (const KnownInsert& inner : content.inserts)
        Enter(*inner.block, inner.insert->insert, placement, LayerOf(inner.insert->look, layer));
}
