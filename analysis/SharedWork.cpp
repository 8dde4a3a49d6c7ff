// Threads that take chunks of neighbouring pieces until there are none left.
#include "analysis/SharedWork.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace {

constexpr unsigned kMostThreads = 256;

class Sharing {
public:
    Sharing(std::size_t count, unsigned threads, const std::function<void(std::size_t)>& work,
            const std::function<bool(std::size_t)>& goOn);
    bool Run();

private:
    void Start();
    void Take(bool isCaller) noexcept;
    void TakeChunks(bool isCaller);
    bool IsStopped() const { return m_isStopped.load(std::memory_order_relaxed); }
    void AskWhetherToGoOn();
    void WaitForOthers();
    void Fail() noexcept;

    const std::size_t m_count;
    const unsigned m_threads;
    const std::size_t m_chunk;
    const std::function<void(std::size_t)>& m_work;
    const std::function<bool(std::size_t)>& m_goOn;

    std::atomic<std::size_t> m_next = 0;
    std::atomic<std::size_t> m_done = 0;
    std::atomic<bool> m_isStopped = false;

    std::mutex m_mutex;  // for what follows
    std::condition_variable m_isOneThrough;
    std::size_t m_busy = 0;
    std::exception_ptr m_failure;

    std::vector<std::jthread> m_others;  // the last member: they end before what they use
};

unsigned ThreadsFor(std::size_t count, unsigned threads) {
    if (threads == 0)
        threads = std::max(std::thread::hardware_concurrency(), 1U);
    return static_cast<unsigned>(std::min<std::size_t>({threads, kMostThreads, std::max<std::size_t>(count, 1)}));
}

// Neighbours cost the same and ask for the same memory; and nobody is to wait long for the last chunk.
std::size_t ChunkFor(std::size_t count, unsigned threads) {
    constexpr std::size_t kChunksForEach = 16;
    constexpr std::size_t kLargest = 64;
    return std::clamp<std::size_t>(count / (threads * kChunksForEach), 1, kLargest);
}

Sharing::Sharing(std::size_t count, unsigned threads, const std::function<void(std::size_t)>& work,
                 const std::function<bool(std::size_t)>& goOn)
    : m_count(count),
      m_threads(ThreadsFor(count, threads)),
      m_chunk(ChunkFor(count, m_threads)),
      m_work(work),
      m_goOn(goOn) {}

bool Sharing::Run() {
    try {
        // The others may be through before it is the caller's turn.
        if (m_threads > 1)
            AskWhetherToGoOn();
        Start();
    } catch (...) {
        Fail();
    }
    Take(true);
    try {
        WaitForOthers();
    } catch (...) {
        Fail();
    }
    m_others.clear();
    if (m_failure)
        std::rethrow_exception(m_failure);
    return m_done == m_count && !IsStopped();
}

void Sharing::Start() {
    m_others.reserve(m_threads - 1);
    while (m_others.size() + 1 < m_threads) {
        {
            const std::lock_guard lock(m_mutex);
            ++m_busy;
        }
        try {
            m_others.emplace_back([this] {
                Take(false);
                const std::lock_guard lock(m_mutex);
                --m_busy;
                m_isOneThrough.notify_one();
            });
        } catch (const std::system_error&) {  // as many as the system gives
            const std::lock_guard lock(m_mutex);
            --m_busy;
            return;
        } catch (...) {
            const std::lock_guard lock(m_mutex);
            --m_busy;
            throw;
        }
    }
}

void Sharing::Take(bool isCaller) noexcept {
    try {
        TakeChunks(isCaller);
    } catch (...) {
        Fail();
    }
}

void Sharing::TakeChunks(bool isCaller) {
    for (std::size_t first = m_next.fetch_add(m_chunk); first < m_count; first = m_next.fetch_add(m_chunk))
        for (std::size_t i = first; i < std::min(first + m_chunk, m_count); ++i) {
            if (isCaller)
                AskWhetherToGoOn();
            if (IsStopped())
                return;
            m_work(i);
            ++m_done;
        }
}

// Not again once it was no.
void Sharing::AskWhetherToGoOn() {
    if (!IsStopped() && !m_goOn(m_done))
        m_isStopped = true;
}

void Sharing::WaitForOthers() {
    constexpr std::chrono::milliseconds kBetweenQuestions(50);
    std::unique_lock lock(m_mutex);
    while (!m_isOneThrough.wait_for(lock, kBetweenQuestions, [this] { return m_busy == 0; })) {
        lock.unlock();
        AskWhetherToGoOn();
        lock.lock();
    }
}

void Sharing::Fail() noexcept {
    const std::lock_guard lock(m_mutex);
    if (!m_failure)
        m_failure = std::current_exception();
    m_isStopped = true;
}

}  // namespace

bool ShareWork(std::size_t count, unsigned threads, const std::function<void(std::size_t)>& work,
               const std::function<bool(std::size_t)>& goOn) {
    return Sharing(count, threads, work, goOn).Run();
}
