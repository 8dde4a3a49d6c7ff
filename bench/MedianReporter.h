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

// Starts Google Benchmark so that the repetitions of all benchmarks are run turn and turn about (a moment's load falls
// on each) and medians are reported. `more` holds further options; what the command line says beats all of them.
inline void InitializeForMedians(int argc, char** argv, const std::vector<std::string>& more = {}) {
    std::vector<std::string> options = {"--benchmark_enable_random_interleaving=true",
                                        "--benchmark_report_aggregates_only=true"};
    options.insert(options.end(), more.begin(), more.end());
    std::vector<char*> arguments = {argv[0]};
    for (std::string& option : options)
        arguments.push_back(option.data());
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
}
