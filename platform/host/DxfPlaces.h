// Where in a drawing's file new objects belong.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/host/DxfIndex.h"

class DxfDrawing;

// The value of the first group of a code in an object's text, without blanks around it; empty where there is none.
std::string_view FirstDxfValue(std::string_view text, int code);

// A table from its head to its end.
struct DxfTable {
    std::size_t head = DxfIndex::kNone;
    std::size_t tail = DxfIndex::kNone;

    bool IsThere() const { return head != DxfIndex::kNone; }
};

class DxfPlaces {
public:
    explicit DxfPlaces(const DxfDrawing& drawing);

    // The end (ENDSEC) of the last section of a name, kNone where there is none.
    std::size_t GetSectionEnd(std::string_view section) const;
    // The entry before which a missing section belongs: the first section that comes later in a drawing file, or the
    // file's end.
    std::size_t GetPlaceOfNew(std::string_view section) const;
    // The last table of a name.
    DxfTable GetTable(std::string_view table) const;

private:
    struct Section {
        std::string_view name;  // in the drawing's text
        std::size_t head;
        std::size_t tail;
    };
    struct Table {
        std::string_view name;
        DxfTable place;
    };

    std::vector<Section> m_sections;
    std::vector<Table> m_tables;
    std::size_t m_fileEnd = 0;
};
