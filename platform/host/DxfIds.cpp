// Runs of ids, which a revision splits where entries come or go.
#include "platform/host/DxfIds.h"

#include <algorithm>
#include <atomic>

#include "platform/host/DxfRevision.h"

namespace {

// The next id that has not been given yet.
std::atomic<std::uint64_t> g_nextId{1};

}  // namespace

DxfIds::DxfIds(std::size_t count) {
    Append(g_nextId.fetch_add(count), count);
    m_byId = m_runs;
}

DxfIds::DxfIds(const DxfIds& before, std::size_t count, const DxfRevision& revision) {
    std::size_t done = 0;
    for (const auto& [entry, change] : revision.GetChanges()) {
        AppendFrom(before, done, entry);
        Append(g_nextId.fetch_add(change.before.count), change.before.count);
        done = change.isRemoved ? entry + 1 : entry;
    }
    AppendFrom(before, done, count);
    m_byId = m_runs;
    std::sort(m_byId.begin(), m_byId.end(), [](const Run& a, const Run& b) { return a.firstId < b.firstId; });
}

void DxfIds::Append(std::uint64_t firstId, std::size_t count) {
    if (count == 0)
        return;
    if (!m_runs.empty() && m_runs.back().firstId + m_runs.back().count == firstId)
        m_runs.back().count += count;
    else
        m_runs.push_back({firstId, m_count, count});
    m_count += count;
}

void DxfIds::AppendFrom(const DxfIds& before, std::size_t begin, std::size_t end) {
    auto run = std::upper_bound(before.m_runs.begin(), before.m_runs.end(), begin,
                                [](std::size_t wanted, const Run& each) { return wanted < each.firstEntry; });
    if (run != before.m_runs.begin())
        --run;
    for (; begin < end; ++run) {
        const std::size_t skipped = begin - run->firstEntry;
        const std::size_t count = std::min(run->count - skipped, end - begin);
        Append(run->firstId + skipped, count);
        begin += count;
    }
}

std::size_t DxfIds::EntryOf(std::uint64_t id) const {
    const auto behind = std::upper_bound(m_byId.begin(), m_byId.end(), id,
                                         [](std::uint64_t wanted, const Run& run) { return wanted < run.firstId; });
    if (behind == m_byId.begin())
        return kNone;
    const Run& run = *(behind - 1);
    return id - run.firstId < run.count ? run.firstEntry + static_cast<std::size_t>(id - run.firstId) : kNone;
}

std::uint64_t DxfIds::IdOf(std::size_t entry) const {
    const auto behind = std::upper_bound(m_runs.begin(), m_runs.end(), entry,
                                         [](std::size_t wanted, const Run& run) { return wanted < run.firstEntry; });
    const Run& run = *(behind - 1);
    return run.firstId + (entry - run.firstEntry);
}
