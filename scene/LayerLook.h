// How the layers of a drawing look: whether they are seen, and their colours.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/base/CString.h"
#include "scene/LayerHeight.h"

class AcDbDatabase;
class EntityGroups;

struct EntityColor {
    int index = 7;       // 1 to 255
    int trueColor = -1;  // 0xRRGGBB, -1 for none
    bool operator==(const EntityColor& other) const = default;
};

// The height that was asked for a layer.
struct AskedHeight {
    std::size_t number = 0;  // which of those that were asked for
    double height = 0.0;     // in the drawing's units
};

struct LayerLook {
    bool isVisible = true;  // neither off nor frozen
    bool isFrozen = false;
    EntityColor color;
    std::uint32_t number = 0;            // which of LayerTable::Names
    const AskedHeight* asked = nullptr;  // null for none

    // What is not seen is not raised.
    const AskedHeight* Height() const { return isVisible ? asked : nullptr; }
};

class LayerTable {
public:
    // With heights for some layers; of several for one layer the first counts. Layers whose names begin with `unseen`
    // are as good as frozen, unless it is empty.
    explicit LayerTable(const AcDbDatabase& drawing, const std::vector<LayerHeight>& heights = {}, CString unseen = {});

    // The layer with a name as it stands in the file. Names are compared as texts and without case (of ASCII letters,
    // as everywhere); of several layers the first counts. One that the drawing does not have is visible, in colour 7.
    // The answer stays where it is.
    const LayerLook& Find(std::string_view name);
    // The names that were asked for, each once, in whatever spelling.
    const std::vector<std::string>& Names() const { return m_names; }
    // The layer of one of these names.
    const LayerLook& At(std::size_t number) const { return m_known.at(m_names[number]); }
    bool HasHeights() const { return !m_heights.empty(); }
    // Whether the drawing has the layer of one of the heights: in its table of layers, or among those that were asked
    // for.
    bool IsThere(const LayerHeight& height) const;

private:
    std::wstring KeyOf(std::string_view name) const;

    const AcDbDatabase& m_drawing;
    std::wstring m_unseen;
    std::unordered_map<std::wstring, LayerLook> m_layers;
    std::unordered_map<std::wstring, AskedHeight> m_heights;
    std::unordered_map<std::string, LayerLook> m_known;  // by the bytes of the names that were asked for
    std::vector<std::string> m_names;
};

// What an entity says of its own look.
struct EntityLook {
    const LayerLook* layer = nullptr;  // null on layer 0, which in a block stands for the layer of the INSERT
    int color = 0;                     // as in the file: 0 by block, 1 to 255, else by layer
    int trueColor = -1;                // 0xRRGGBB, -1 for none
};
EntityLook ReadLook(const EntityGroups& entity, LayerTable& layers);

// What an entity of a block takes over from the INSERT, and one outside of blocks from nobody.
struct Surroundings {
    const LayerLook& layer;  // for those on layer 0
    EntityColor color;       // for those by block

    const LayerLook& LayerOf(const EntityLook& look) const { return look.layer ? *look.layer : layer; }
    // Its own colour, that of the surroundings, or its layer's.
    EntityColor ColorOf(const EntityLook& look) const;
};
