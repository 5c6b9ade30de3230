#include "RatioReporter.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace lumnis::bench {
namespace {

// Other work on the machine only ever adds time, so the least of all rounds is nearest to what the
// code itself takes.
double least(const std::vector<double>& theValues) {
    return *std::min_element(theValues.begin(), theValues.end());
}

class RatioReporter final : public benchmark::BenchmarkReporter {
  public:
    explicit RatioReporter(const std::vector<std::string>& theNames) {
        for (const std::string& name : theNames) {
            rowsM.push_back({name, {}, 0});
        }
    }

    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& theRuns) override {
        for (const Run& run : theRuns) {
            const auto row = std::find_if(rowsM.begin(), rowsM.end(), [&](const Row& theRow) {
                return theRow.name == run.run_name.function_name;
            });
            if (run.run_type != Run::RT_Iteration || row == rowsM.end()) {
                continue;
            }
            const double seconds = run.cpu_accumulated_time / static_cast<double>(run.iterations);
            row->seconds.push_back(seconds);
            const auto rate = run.counters.find("bytes_per_second");
            if (rate != run.counters.end()) {
                row->bytes = rate->second.value * seconds;
            }
        }
    }

    void Finalize() override {
        std::string group;
        double first = 0;
        for (const Row& row : rowsM) {
            if (row.seconds.empty()) {
                continue;  // filtered out
            }
            const std::size_t slash = row.name.find('/');
            const double seconds = least(row.seconds);
            if (row.name.substr(0, slash) != group) {
                group = row.name.substr(0, slash);
                first = seconds;
                std::printf("\n%-34s %12s %10s %8s\n", group.c_str(), "us", "ns/byte", "ratio");
            }
            std::printf("  %-32s %12.2f %10.2f %8.2f\n", row.name.substr(slash + 1).c_str(),
                        seconds * 1e6, row.bytes > 0 ? seconds * 1e9 / row.bytes : 0,
                        seconds / first);
        }
    }

  private:
    struct Row {
        std::string name;
        std::vector<double> seconds;
        double bytes;
    };

    std::vector<Row> rowsM;
};

}  // namespace

int runWithRatios(const std::vector<std::string>& theNames, int theCount, char** theArguments) {
    // Options given by the user come later and win.
    std::vector<std::string> defaults = {theArguments[0], "--benchmark_repetitions=9",
                                         "--benchmark_min_time=0.05",
                                         "--benchmark_enable_random_interleaving=true"};
    std::vector<char*> arguments;
    for (std::string& argument : defaults) {
        arguments.push_back(argument.data());
    }
    arguments.insert(arguments.end(), theArguments + 1, theArguments + theCount);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return 2;
    }
    RatioReporter reporter(theNames);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}

}  // namespace lumnis::bench
