// Comparing the library with a peer on a machine that others use too: both run in turn within one
// benchmark, and what counts is the middle of the ratios.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdint>
#include <functional>

namespace zeapi::bench {

// Runs `peer` and `subject` once an iteration, each first in every other one, and reports
//   ratio            median of subject time / peer time
//   peer, subject    median bytes of source a second
// Both handle `bytes` bytes of source. The benchmark needs UseManualTime().
void RunPaired(benchmark::State& state, std::int64_t bytes, const std::function<void()>& peer,
               const std::function<void()>& subject);

}  // namespace zeapi::bench
