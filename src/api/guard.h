// The boundary between callers and the library.
#pragma once

#include <new>
#include <type_traits>

#include "base/result.h"

namespace zeapi {

// Runs the body of an exported call. Whatever it throws ends here: a caller may not be built with
// exceptions at all. The library itself throws for lack of memory alone; `failure` is the call's word for
// it.
template <typename Body, typename Failure>
auto Guarded(Failure failure, Body body) noexcept -> std::invoke_result_t<Body> {
  try {
    return body();
  } catch (...) {
    return static_cast<std::invoke_result_t<Body>>(failure);
  }
}

template <typename Body>
Result Guarded(Body body) noexcept {
  return Guarded(ZE_OUT_OF_MEMORY, body);
}

}  // namespace zeapi
