// What lies where in one RIFF part of an AVI file, and the two forms of index that say so.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/media/LittleEndian.h"

// A sample behind the empty chunks of the positions that were skipped. Chunks lie one after the other.
struct AviRun {
    std::uint64_t offset = 0;   // of the first chunk's header, from the start of the file
    std::uint64_t empties = 0;  // chunks of no bytes
    bool hasSample = false;     // then comes a chunk with `size` bytes
    std::uint32_t size = 0;     // bytes of the sample
    bool isKey = false;         // whether the sample needs none before it
};

// One RIFF part: its chunks in the order of their positions.
class AviPart {
public:
    // Bytes of a chunk's header: its tag and its size.
    static constexpr std::uint64_t kChunkHeader = 8;

    // An empty part that begins there, in bytes from the start of the file.
    explicit AviPart(std::uint64_t riff) : m_riff(riff) {}

    // Adds a run behind the others.
    void Add(const AviRun& run);
    // Forgets all runs behind the first `count`.
    void Shrink(std::size_t count);

    // Where the part begins, in bytes from the start of the file.
    std::uint64_t GetStart() const { return m_riff; }
    // How many runs there are.
    std::size_t GetRunCount() const { return m_runs.size(); }
    // Positions: one chunk each.
    std::uint64_t GetCount() const { return m_count; }

    // Calls `use(offset of the header, size, isKey)` for every chunk.
    template <class Use>
    void ForEachChunk(Use use) const {
        for (const AviRun& run : m_runs) {
            std::uint64_t offset = run.offset;
            for (std::uint64_t i = 0; i < run.empties; ++i, offset += kChunkHeader)
                use(offset, 0U, false);
            if (run.hasSample)
                use(offset, run.size, run.isKey);
        }
    }

    // Bytes of the indexes with their headers, if there were `more` chunks more.
    std::uint64_t OldIndexBytes(std::uint64_t more = 0) const { return kChunkHeader + 16 * (m_count + more); }
    std::uint64_t StandardIndexBytes(std::uint64_t more = 0) const { return kChunkHeader + 24 + 8 * (m_count + more); }

private:
    std::uint64_t m_riff;  // where the part begins
    std::vector<AviRun> m_runs;
    std::uint64_t m_count = 0;
};
