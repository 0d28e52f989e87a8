#include "claimtable.h"
#include "measuring.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>

// The benchmarks with the options of Google Benchmark, and two of its own: --report prints the table of claims instead
// of the figures, --once runs each contender once.

namespace {

/// Takes the option out of the arguments when it is there.
bool takeOption(int* argc, char** argv, const char* option)
{
    for (int i = 1; i < *argc; ++i) {
        if (std::strcmp(argv[i], option) == 0) {
            std::copy(argv + i + 1, argv + *argc, argv + i);
            --*argc;
            return true;
        }
    }
    return false;
}

} // namespace

int main(int argc, char* argv[])
{
    // No window needs to be seen. The programs that this one starts take it over.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    thoroughness how;
    how.once = takeOption(&argc, argv, "--once");
    const bool reports = takeOption(&argc, argv, "--report");
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    for (const row& each : allRows()) {
        benchmark::RegisterBenchmark(each.name.c_str(),
                                     [&each, how](benchmark::State& state) { measure(state, each, how); })
            ->Iterations(how.once || each.rounds == 0 ? 1 : each.rounds)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    }
    claimtable table;
    const std::size_t run = reports ? benchmark::RunSpecifiedBenchmarks(&table) : benchmark::RunSpecifiedBenchmarks();
    return run > 0 ? 0 : 1;
}
