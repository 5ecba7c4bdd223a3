// Fails each call of a piece of work in turn, for families whose results are not one code.
#pragma once

#include <functional>
#include <string>

namespace zeapi::testing {

// Runs `work` once for each call of the system or of memory in it, with that call failing, and once
// more with none. `prepare` goes before each run, `check` after it with the name of the function
// that failed, or an empty one. Work keeps what it has to show in plain variables: a test's own
// expectations take memory. Every file must be closed again.
void EachFailure(const std::function<void()>& prepare, const std::function<void()>& work,
                 const std::function<void(const std::string& failed)>& check);

}  // namespace zeapi::testing
