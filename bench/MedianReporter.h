// Prints Google Benchmark's usual table and remembers the medians, so that a program can compare them.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

class MedianReporter : public benchmark::ConsoleReporter {
public:
    MedianReporter() : ConsoleReporter(OO_Tabular) {}
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.aggregate_name != "median")
                continue;
            const double unit = benchmark::GetTimeUnitMultiplier(run.time_unit);
            cpuSeconds[run.run_name.function_name] = run.GetAdjustedCPUTime() / unit;
            realSeconds[run.run_name.function_name] = run.GetAdjustedRealTime() / unit;
        }
        ConsoleReporter::ReportRuns(runs);
    }

    // Of one iteration, by the benchmark's name; there is none for a benchmark that a filter left out.
    std::map<std::string, double> cpuSeconds;
    std::map<std::string, double> realSeconds;
};
