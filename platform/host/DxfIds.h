// Which entry of a drawing's index an id names: ids outlive changes of the index, and none is given twice.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

class DxfRevision;

class DxfIds {
public:
    static constexpr std::size_t kNone = SIZE_MAX;

    // No entries, no ids.
    DxfIds() = default;
    // New ids for all entries of a drawing.
    explicit DxfIds(std::size_t count);
    // The ids of a drawing with `count` entries after its revision: those that stay keep theirs.
    DxfIds(const DxfIds& before, std::size_t count, const DxfRevision& revision);

    // The entry of an id, kNone for one that is not of this drawing.
    std::size_t EntryOf(std::uint64_t id) const;
    // The id of an entry that there is.
    std::uint64_t IdOf(std::size_t entry) const;

private:
    // Entries that follow each other and have ids that do.
    struct Run {
        std::uint64_t firstId;
        std::size_t firstEntry;
        std::size_t count;
    };

    void Append(std::uint64_t firstId, std::size_t count);
    void AppendFrom(const DxfIds& before, std::size_t begin, std::size_t end);

    std::vector<Run> m_runs;  // in the order of their entries
    std::vector<Run> m_byId;  // in that of their ids
    std::size_t m_count = 0;
};
