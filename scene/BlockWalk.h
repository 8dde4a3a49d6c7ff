// A walk over what INSERTs show, copy by copy, for whoever wants only some of it: the same blocks and layers that the
// faces of a scene come from.
// Why: docs/decisions/scene.md
#pragma once

#include <array>
#include <cstddef>
#include <unordered_map>
#include <vector>

struct Block;
struct BlockInsert;
struct InnerInsert;
struct LayerLook;
struct Placement;

// How much is wanted, in whatever the visitor counts, and how many steps it is to visit that once; both are at least 1
// where anything is wanted at all.
struct WantedCount {
    std::size_t wanted = 0;
    std::size_t steps = 0;
};

// Of the entities of a block itself, whatever it inserts.
struct WantedInBlock {
    WantedCount onOwnLayers;
    WantedCount onLayer0;  // where that stands for a layer that is wanted
};

class BlockVisitor {
public:
    virtual ~BlockVisitor() = default;

    // Always the same for one layer.
    virtual bool WantsLayer(const LayerLook& layer) = 0;
    // Whether an INSERT on a layer that is wanted counts by itself, also where its block holds nothing.
    virtual bool WantsInserts() const { return true; }
    // Asked once for each block, however often it is inserted.
    virtual WantedInBlock CountIn(const Block& block) = 0;
    // A copy of a block that holds some itself: where it is put, and the layer that layer 0 stands for in it.
    virtual void Visit(const Block& block, const Placement& placement, const LayerLook& layer) = 0;
    // Around all copies of each INSERT that holds some or lies on a layer that is wanted; `layer` is its own.
    virtual void Enter(const LayerLook& layer) = 0;
    virtual void Leave(const LayerLook& layer) = 0;
};

class BlockWalk {
public:
    // Makes so many steps in all: those of the visits, and one for each INSERT and copy of a block that is entered.
    BlockWalk(BlockVisitor& visitor, std::size_t mostSteps)
        : m_visitor(visitor), m_spareSteps(static_cast<double>(mostSteps)) {}

    // All copies of a sound block, by an INSERT on a layer that is not frozen. False, and nobody visited, when they
    // hold more than `most` of what is wanted, or are more steps than are left; that is known before one is made. In
    // a block an INSERT on a layer that is wanted counts as one, at least, where INSERTs are wanted.
    bool Walk(const Block& block, const BlockInsert& insert, const LayerLook& layer, std::size_t most);

private:
    struct Known;
    struct KnownInsert {
        const InnerInsert* insert = nullptr;
        Known* block = nullptr;
    };
    // A block where layer 0 stands for a layer of one kind.
    struct Content {
        bool isCounted = false;
        bool isVisited = false;            // holds some itself
        double wanted = 0.0;               // with all that it inserts
        double steps = 0.0;                // of a walk over it
        std::vector<KnownInsert> inserts;  // those to enter
    };
    struct Known {
        const Block* block = nullptr;
        WantedInBlock own;
        std::array<Content, 2> contents;  // for a layer that is not wanted, and for one that is
    };

    Known& KnownOf(const Block& block);
    const Content& Count(Known& known, bool isWanted);
    void Enter(Known& known, const BlockInsert& insert, const Placement& outer, const LayerLook& layer);
    void VisitCopy(const Known& known, const Content& content, const Placement& placement, const LayerLook& layer);

    BlockVisitor& m_visitor;
    double m_spareSteps;
    std::unordered_map<const Block*, Known> m_known;
};
