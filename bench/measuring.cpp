#include "measuring.h"

#include "median.h"
#include "probing.h"
#include "threadtime.h"

#include <benchmark/benchmark.h>

#include <map>

namespace {

using samplelists = std::map<std::string, std::vector<double>>;

constexpr int samplesARound = 5;

double sampleOf(const contender& each, int calls)
{
    if (each.prepare)
        each.prepare();
    const double start = threadSeconds();
    for (int call = 0; call < calls; ++call)
        each.work();
    return (threadSeconds() - start) / calls;
}

void takeRound(const std::vector<contender>& all, samplelists& samples, const thoroughness& how)
{
    const int turns = how.once ? 1 : samplesARound;
    for (int turn = 0; turn < turns; ++turn) {
        for (const contender& each : all) {
            if (turn == 0 || !each.slow)
                samples[each.name].push_back(sampleOf(each, how.once ? 1 : each.calls));
        }
    }
}

} // namespace

void measure(benchmark::State& state, const row& measured, const thoroughness& how)
{
    const bool timed = measured.rounds > 0;
    const std::vector<contender> all = timed ? measured.make() : std::vector<contender>();
    samplelists samples;
    if (!how.once) {
        // Memory and caches as they are in the middle of a session.
        for (const contender& each : all)
            sampleOf(each, each.slow ? 0 : each.calls);
    }
    for (auto round : state) {
        (void)round;
        const double start = threadSeconds();
        takeRound(all, samples, how);
        state.SetIterationTime(threadSeconds() - start);
    }
    for (const auto& [name, values] : samples)
        state.counters[name] = medianOf(values);
    for (const claim& each : measured.claims) {
        if (each.of == quantity::seconds)
            continue;
        for (const std::string& name : {each.figure, each.reference}) {
            if (!name.empty())
                state.counters[figureName(name, each.of)] = probe(measured.name, name, each.of, how.once);
        }
    }
}
