// How the layers of a drawing look: whether they are seen, and their colours.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

class AcDbDatabase;
class EntityGroups;

struct EntityColor {
    int index = 7;       // 1 to 255
    int trueColor = -1;  // 0xRRGGBB, -1 for none
};

struct LayerLook {
    bool isVisible = true;  // neither off nor frozen
    EntityColor color;
};

class LayerTable {
public:
    explicit LayerTable(const AcDbDatabase& drawing);

    // The layer with a name as it stands in the file. Names are compared as texts and without case (of ASCII letters,
    // as everywhere); of several layers the first counts. One that the drawing does not have is visible, in colour 7.
    const LayerLook& Find(std::string_view name);

private:
    std::wstring KeyOf(std::string_view name) const;

    const AcDbDatabase& m_drawing;
    std::unordered_map<std::wstring, LayerLook> m_layers;
    std::unordered_map<std::string, LayerLook> m_known;  // by the bytes of the names that were asked for
};

// An entity's colour: its own (by-block, 0, is 7), or the layer's.
EntityColor ColorOf(const EntityGroups& entity, const LayerLook& layer);
