// What a day's equation of time and declination cost, beside the least that they could: a look-up in a plain array of
// 24 rows whose dates are numbers already.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <map>
#include <numbers>
#include <string>
#include <vector>

#include "calendar/BuiltInTerms.h"
#include "calendar/OrvoDate.h"
#include "calendar/YearDays.h"

namespace {

struct PlainTerm {
    int month;
    int day;
    double time;
    double latitude;
};

struct Sun {
    double time;
    double latitude;
};

int PlainDayIndex(int month, int day) {
    return kDaysBeforeMonth[static_cast<std::size_t>(month - 1)] + day;
}

Sun PlainLookUp(const PlainTerm (&terms)[kTermCount], int month, int day) {
    const auto number = [](int aMonth, int aDay) { return aMonth * 100 + aDay; };
    const int date = number(month, day);
    int index = 0;
    if (date <= number(terms[0].month, terms[0].day))
        while (index < 23 && number(terms[index + 1].month, terms[index + 1].day) <= date)
            ++index;
    if (date == number(terms[0].month, terms[0].day))
        index = 0;
    const PlainTerm& term = terms[index];
    if (date == number(term.month, term.day))
        return {term.time, term.latitude};
    const PlainTerm& next = terms[(index + 1) % kTermCount];
    const double gap = index == 0 ? 15 : PlainDayIndex(next.month, next.day) - PlainDayIndex(term.month, term.day);
    const double since = index != 0 ? PlainDayIndex(month, day) - PlainDayIndex(term.month, term.day)
                         : day < 23 ? day + 9
                                    : day - 22;
    const double count = PlainDayIndex(month, day);
    return {term.time + since * (next.time - term.time) / gap,
            23.75 * std::sin((count - 80.25) * (1.0 - count / 9500.0) * std::numbers::pi / 180.0)};
}

std::vector<MonthDay> AllDays() {
    std::vector<MonthDay> days;
    for (int month = 1; month <= 12; ++month)
        for (int day = 1; day <= kDaysOfMonth[static_cast<std::size_t>(month - 1)]; ++day)
            days.push_back({month, day});
    return days;
}

void FillPlainTerms(OrvoDate& date, PlainTerm (&terms)[kTermCount]) {
    for (int index = 0; index < kTermCount; ++index) {
        const OrvoSTerm* term = date.GetTerm(index);
        const MonthDay start = term->GetMonthDay();
        terms[index] = {start.month, start.day, term->m_dgTime.getDegree(), term->m_dgLat.getDegree()};
    }
}

void SunByDate(benchmark::State& state) {
    const std::vector<MonthDay> days = AllDays();
    OrvoDate date(2011, 1, 1);
    date.GetDgTime();
    for (auto unused : state)
        for (const MonthDay& day : days) {
            date.SetMonth(day.month);
            date.SetDay(day.day);
            benchmark::DoNotOptimize(date.GetDgTime());
            benchmark::DoNotOptimize(date.GetDgLat());
        }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(days.size()));
}

void SunByPlainArray(benchmark::State& state) {
    const std::vector<MonthDay> days = AllDays();
    OrvoDate date(2011, 1, 1);
    PlainTerm terms[kTermCount];
    FillPlainTerms(date, terms);
    for (auto unused : state)
        for (const MonthDay& day : days)
            benchmark::DoNotOptimize(PlainLookUp(terms, day.month, day.day));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(days.size()));
}

// The peer is only a peer if it gives the same.
bool AgreeOnAllDays() {
    OrvoDate date(2011, 1, 1);
    PlainTerm terms[kTermCount];
    FillPlainTerms(date, terms);
    for (const MonthDay& day : AllDays()) {
        date.SetMonth(day.month);
        date.SetDay(day.day);
        const Sun sun = PlainLookUp(terms, day.month, day.day);
        if (std::abs(sun.time - date.GetDgTime()) > 1e-12 || std::abs(sun.latitude - date.GetDgLat()) > 1e-12)
            return false;
    }
    return true;
}

// Prints the usual table and remembers the times, to compare them.
class Recorder : public benchmark::ConsoleReporter {
public:
    Recorder() : ConsoleReporter(OO_Tabular) {}
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs)
            nanoseconds[run.benchmark_name()] = run.cpu_accumulated_time / static_cast<double>(run.iterations) * 1e9;
        ConsoleReporter::ReportRuns(runs);
    }
    std::map<std::string, double> nanoseconds;
};

}  // namespace

BENCHMARK(SunByDate);
BENCHMARK(SunByPlainArray);

int main(int argc, char** argv) {
    if (!AgreeOnAllDays()) {
        std::fputs("the two ways give different results\n", stderr);
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    Recorder recorder;
    benchmark::RunSpecifiedBenchmarks(&recorder);
    const double days = static_cast<double>(AllDays().size());
    const double ours = recorder.nanoseconds["SunByDate"] / days;
    const double peer = recorder.nanoseconds["SunByPlainArray"] / days;
    if (ours > 0 && peer > 0)
        std::printf("GetDgTime + GetDgLat of one day: %.1f ns, plain array: %.1f ns, ratio %.1f\n", ours, peer,
                    ours / peer);
    return 0;
}
