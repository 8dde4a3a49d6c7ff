// Counts the chunks of one RIFF part of an AVI file.
#include "platform/media/AviIndex.h"

namespace {

std::uint64_t ChunksOf(const AviRun& run) {
    return run.empties + (run.hasSample ? 1 : 0);
}

}  // namespace

void AviPart::Add(const AviRun& run) {
    m_runs.push_back(run);
    m_count += ChunksOf(run);
}

void AviPart::Shrink(std::size_t count) {
    while (m_runs.size() > count) {
        m_count -= ChunksOf(m_runs.back());
        m_runs.pop_back();
    }
}
