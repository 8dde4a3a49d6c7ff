// Pieces of work on several threads: each is done once, the caller is asked, and nothing is left behind.
#include "analysis/SharedWork.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <new>
#include <numeric>
#include <stdexcept>
#include <thread>
#include <vector>

namespace {

// So that a question that should not come has the time to.
constexpr std::chrono::milliseconds kLongerThanBetweenQuestions(120);

bool GoOn(std::size_t) {
    return true;
}

// So long that the test hangs, and its runner says so, when the pieces it waits for do not come.
void WaitUntil(const std::atomic<bool>& flag) {
    while (!flag)
        std::this_thread::yield();
}

}  // namespace

TEST(SharedWork, DoesEveryPieceOnce) {
    for (const unsigned threads : {0U, 1U, 2U, 3U, 7U, 100U, 4'000'000'000U})
        for (const std::size_t count : {0U, 1U, 2U, 63U, 1000U}) {
            std::vector<int> done(count, 0);
            EXPECT_TRUE(ShareWork(
                count, threads, [&](std::size_t i) { ++done[i]; }, GoOn));
            EXPECT_EQ(std::count(done.begin(), done.end(), 1), static_cast<std::ptrdiff_t>(count)) << threads;
        }
}

TEST(SharedWork, IsDoneBySeveralThreadsAtOnce) {
    // The first two pieces each wait for the other one.
    std::atomic<bool> hasBegun[2] = {false, false};
    EXPECT_TRUE(ShareWork(
        2, 2,
        [&](std::size_t i) {
            hasBegun[i] = true;
            WaitUntil(hasBegun[1 - i]);
        },
        GoOn));
}

TEST(SharedWork, StaysOnTheCallersThreadWhenItIsTheOnlyOne) {
    const std::thread::id own = std::this_thread::get_id();
    std::vector<std::size_t> order;
    EXPECT_TRUE(ShareWork(
        40, 1,
        [&](std::size_t i) {
            EXPECT_EQ(std::this_thread::get_id(), own);
            order.push_back(i);
        },
        [&](std::size_t done) {
            EXPECT_EQ(done, order.size());
            return true;
        }));
    std::vector<std::size_t> expected(40);
    std::iota(expected.begin(), expected.end(), 0U);
    EXPECT_EQ(order, expected);
}

TEST(SharedWork, AsksTheCallerForwardsAndOnItsThread) {
    const std::thread::id own = std::this_thread::get_id();
    std::size_t last = 0;
    EXPECT_TRUE(ShareWork(
        300, 4, [](std::size_t) {},
        [&](std::size_t done) {
            EXPECT_EQ(std::this_thread::get_id(), own);
            EXPECT_GE(done, last);
            EXPECT_LE(done, 300U);
            last = done;
            return true;
        }));
}

// The caller has nothing left to do and is asked while the other one is busy: only its answer lets that one end.
TEST(SharedWork, AsksWhileOthersAreBusy) {
    const std::thread::id own = std::this_thread::get_id();
    std::atomic<bool> mayEnd = false;
    std::atomic<bool> hasOther = false;
    EXPECT_TRUE(ShareWork(
        2, 2,
        [&](std::size_t) {
            if (std::this_thread::get_id() == own) {
                WaitUntil(hasOther);
                return;
            }
            hasOther = true;
            WaitUntil(mayEnd);
        },
        [&](std::size_t done) {
            if (done == 1 && hasOther)
                mayEnd = true;
            return true;
        }));
}

TEST(SharedWork, IsNotBegunBeforeTheCallerWasAsked) {
    std::atomic<bool> isAnswered = false;
    EXPECT_TRUE(ShareWork(
        100, 3, [&](std::size_t) { EXPECT_TRUE(isAnswered); },
        [&](std::size_t) {
            if (!isAnswered)
                std::this_thread::sleep_for(kLongerThanBetweenQuestions);
            isAnswered = true;
            return true;
        }));
}

TEST(SharedWork, EndsWhenItIsNotWantedAnyMore) {
    const std::thread::id own = std::this_thread::get_id();
    for (const unsigned threads : {1U, 2U, 7U}) {
        std::atomic<int> begun = 0;
        std::atomic<bool> isUnwanted = false;
        int asked = 0;
        EXPECT_FALSE(ShareWork(
            100'000, threads,
            [&](std::size_t) {
                ++begun;
                if (std::this_thread::get_id() == own)
                    return;
                WaitUntil(isUnwanted);
                std::this_thread::sleep_for(kLongerThanBetweenQuestions);
            },
            [&](std::size_t) { return !(isUnwanted = ++asked == 2); }));
        EXPECT_EQ(asked, 2) << "not asked again";
        EXPECT_TRUE(threads != 1 || begun == 1) << begun;
    }
    for (const unsigned threads : {1U, 2U, 7U})
        EXPECT_FALSE(ShareWork(
            2, threads, [](std::size_t) { ADD_FAILURE() << "not wanted at all"; }, [](std::size_t) { return false; }));
}

TEST(SharedWork, PassesOnWhatAPieceThrows) {
    for (const unsigned threads : {1U, 2U, 7U}) {
        std::atomic<int> begun = 0;
        const auto fail = [&](std::size_t i) {
            ++begun;
            if (i == 5)
                throw std::bad_alloc();
        };
        EXPECT_THROW(ShareWork(100'000, threads, fail, GoOn), std::bad_alloc);
        EXPECT_TRUE(threads != 1 || begun == 6) << begun;
    }
}

// The piece that fails is not the caller's.
TEST(SharedWork, PassesOnWhatAnotherThreadThrows) {
    const std::thread::id own = std::this_thread::get_id();
    std::atomic<bool> hasFailed = false;
    const auto fail = [&](std::size_t) {
        if (std::this_thread::get_id() == own) {
            WaitUntil(hasFailed);
            return;
        }
        hasFailed = true;
        throw std::bad_alloc();
    };
    EXPECT_THROW(ShareWork(2, 2, fail, GoOn), std::bad_alloc);
}

TEST(SharedWork, PassesOnWhatTheCallerThrows) {
    const auto fail = [](std::size_t) -> bool { throw std::runtime_error("no"); };
    for (const unsigned threads : {1U, 3U})
        EXPECT_THROW(ShareWork(
                         1000, threads, [](std::size_t) {}, fail),
                     std::runtime_error);
}
