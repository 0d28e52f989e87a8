#pragma once

#include "row.h"

namespace benchmark {
class State;
}

/// How thoroughly rows are measured.
struct thoroughness {
    bool once = false; ///< each contender runs once: a look whether it runs at all
};

/// Measures all that a row claims, in rounds in which the contenders take turns, so that what disturbs the machine
/// meets all of them. The figures become counters of the state, as medians.
void measure(benchmark::State& state, const row& measured, const thoroughness& how);
