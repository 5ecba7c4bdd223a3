#include "paired.h"

#include <algorithm>
#include <chrono>
#include <vector>

namespace zeapi::bench {
namespace {

double Seconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace

void RunPaired(benchmark::State& state, std::int64_t bytes, const std::function<void()>& peer,
               const std::function<void()>& subject) {
  std::vector<double> peerTimes;
  std::vector<double> subjectTimes;
  std::vector<double> ratios;
  // Not counted: caches and files are warm afterwards.
  peer();
  subject();
  for (auto _ : state) {
    const bool peerFirst = ratios.size() % 2 == 0;
    const double first = Seconds(peerFirst ? peer : subject);
    const double second = Seconds(peerFirst ? subject : peer);
    peerTimes.push_back(peerFirst ? first : second);
    subjectTimes.push_back(peerFirst ? second : first);
    ratios.push_back(subjectTimes.back() / peerTimes.back());
    state.SetIterationTime(subjectTimes.back());
  }
  if (ratios.empty()) return;
  const auto size = static_cast<double>(bytes);
  state.counters["ratio"] = Median(ratios);
  state.counters["peer"] = size / Median(peerTimes);
  state.counters["subject"] = size / Median(subjectTimes);
}

}  // namespace zeapi::bench
