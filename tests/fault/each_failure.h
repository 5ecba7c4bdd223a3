// The frame of all tests here: each call of the system or of memory in a piece of work fails in turn.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "fault/injector.h"

namespace zeapi::testing {

// How many failures of each function were tried.
using FailurePoints = std::map<std::string, int>;

// Runs `work` once for each call of the system or of memory in it, with that call failing, and once
// more with none. `prepare` goes before each run, `check` after it with the name of the function
// that failed, or an empty one. Work names the exports with TRIED, and keeps what it has to show in
// plain variables: a test's own expectations take memory. Behind `check` as many files are open as
// before `prepare`.
FailurePoints EachFailure(const std::function<void()>& prepare, const std::function<void()>& work,
                          const std::function<void(const std::string& failed)>& check);

}  // namespace zeapi::testing
