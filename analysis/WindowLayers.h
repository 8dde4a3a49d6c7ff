// The layers that windows are drawn on.
// Why: docs/decisions/analysis.md
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/base/CString.h"

class AcDbDatabase;

class WindowLayers {
public:
    // Layers by name; without any, WINDOW and 窗. Names are compared as texts, blanks at both ends aside, and without
    // case (of ASCII letters). Those of results (ResultLayers.h) are never among them.
    WindowLayers(const AcDbDatabase& drawing, const std::vector<CString>& names);

    // Which of them the layer with this name, as it stands in the file, is; none for another one.
    std::optional<std::uint32_t> Find(std::string_view name);

    // The names that the drawing does not know: it has no such layer, and Find was not asked for one of that name.
    std::vector<CString> Missing() const;
    // Whether they are those that were not asked for.
    bool AreUsual() const { return m_areUsual; }

private:
    struct Layer {
        CString name;
        std::wstring key;
        bool isThere = false;
    };

    std::optional<std::uint32_t> IndexOf(std::string_view name) const;

    const AcDbDatabase& m_drawing;
    bool m_areUsual;
    std::vector<Layer> m_layers;
    std::unordered_map<std::string, std::optional<std::uint32_t>>
        m_known;  // by the bytes of the names that were asked for
};
