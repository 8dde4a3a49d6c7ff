// All rules of counting at once, against a second way: whole minutes, every mark looked at, periods sorted by length.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "CountedSun.h"

namespace {

struct Minutes {
    int start;
    int end;

    int Length() const { return end - start; }
};

std::vector<Minutes> LookAtEveryMark(const std::vector<Minutes>& lit, int span, int step) {
    std::vector<Minutes> periods;
    int since = -1;
    for (int mark = 0;; mark += step) {
        const bool isLit = mark <= span && std::any_of(lit.begin(), lit.end(), [=](const Minutes& each) {
                               return each.Length() > 0 && each.start <= mark && mark <= each.end;
                           });
        if (isLit && since < 0)
            since = mark;
        if (!isLit && since >= 0) {
            if (since < mark - step)
                periods.push_back({since, mark - step});
            since = -1;
        }
        if (mark > span)
            return periods;
    }
}

// Indexes of the periods, the longest first and of equal ones the earlier.
std::vector<std::size_t> ByLength(const std::vector<Minutes>& periods) {
    std::vector<std::size_t> order(periods.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return periods[a].Length() > periods[b].Length(); });
    return order;
}

// The reasons against periods, by index.
std::map<std::size_t, DropReason> Reasons(const std::vector<Minutes>& periods, const Standard& rules) {
    std::map<std::size_t, DropReason> reasons;
    const bool isTotal = rules.maxContinue == 0;
    const bool isOver = !isTotal && rules.allMaxContinueTime != 0;
    int place = 0;
    for (const std::size_t i : ByLength(periods)) {
        const int length = periods[i].Length();
        const int longest = periods[ByLength(periods)[0]].Length();
        if (isTotal && length < rules.minValidTime)
            reasons[i] = DropReason::Short;
        else if (isTotal && longest < rules.minMaxValidTime)
            reasons[i] = DropReason::Threshold;
        else if (isTotal && (rules.totalTimeType == 1 || rules.totalTimeType == 2) && place > rules.totalTimeType)
            reasons[i] = DropReason::NotAmongLongest;
        else if (isOver && place > 0 && length <= rules.minContinueTime)
            reasons[i] = DropReason::Threshold;
        else if (!isTotal && !isOver && place > 0)
            reasons[i] = DropReason::NotAmongLongest;
        ++place;
    }
    return reasons;
}

}  // namespace

TEST(CountedSun, IsTheSameInWholeMinutesAndBySorting) {
    std::mt19937 random(2);
    const auto upTo = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); };
    std::set<DropReason> seen;
    for (int round = 0; round < 20000; ++round) {
        const int span = 60 + upTo(600);
        const SunPeriod hours{upTo(700) / 60.0, 0.0};
        const SunPeriod whole{hours.start, hours.start + span / 60.0};
        std::vector<Minutes> lit;
        MinutePeriods litMinutes;
        for (int i = upTo(9), start = upTo(40); i > 0 && start < span; --i) {
            const int end = std::min(start + upTo(5) * 10 + upTo(3), span);
            lit.push_back({start, end});
            litMinutes.emplace_back(start, end);
            start = end + 1 + upTo(20);
        }
        Standard rules;
        rules.step = 1 + upTo(random() % 2 ? 1 : 20);
        rules.maxContinue = upTo(1);
        rules.minValidTime = upTo(3) * 7;
        rules.minMaxValidTime = upTo(2) * 20;
        rules.totalTimeType = upTo(3);
        rules.allMaxContinueTime = upTo(1);
        rules.minContinueTime = upTo(5) * 10;

        const std::vector<Minutes> periods = LookAtEveryMark(lit, span, static_cast<int>(rules.step));
        const std::map<std::size_t, DropReason> reasons = Reasons(periods, rules);
        std::vector<std::string> counted;
        std::vector<std::pair<std::string, DropReason>> dropped;
        int total = 0;
        int longest = 0;
        for (std::size_t i = 0; i < periods.size(); ++i) {
            const std::string text = std::to_string(periods[i].start) + "-" + std::to_string(periods[i].end);
            const auto reason = reasons.find(i);
            if (reason != reasons.end()) {
                dropped.emplace_back(text, reason->second);
                seen.insert(reason->second);
                continue;
            }
            counted.push_back(text);
            total += periods[i].Length();
            longest = std::max(longest, periods[i].Length());
        }

        const SunCount count = CountSun(SunlitAt(litMinutes, whole), whole, rules);
        std::vector<std::string> countedFound;
        for (const SunPeriod& each : count.counted)
            countedFound.push_back(MinuteText(each, whole));
        std::vector<std::pair<std::string, DropReason>> droppedFound;
        for (const DroppedPeriod& each : count.dropped)
            droppedFound.emplace_back(MinuteText(each.period, whole), each.reason);
        ASSERT_EQ(countedFound, counted) << round;
        ASSERT_EQ(droppedFound, dropped) << round;
        ASSERT_NEAR(count.total, total, 1e-9) << round;
        ASSERT_NEAR(count.longest, longest, 1e-9) << round;
        ASSERT_NEAR(count.judged, total, 1e-9) << round;
    }
    EXPECT_EQ(seen.size(), 3U) << "every reason must have come up";
}
