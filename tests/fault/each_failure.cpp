#include "fault/each_failure.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <set>

#include "fault/injector.h"

namespace zeapi::testing {
void EachFailure(const std::function<void()>& prepare, const std::function<void()>& work,
                 const std::function<void(const std::string& failed)>& check) {
  std::set<std::string> functions;
  int failing = 0;
  for (bool failed = true; failed && !::testing::Test::HasFailure();) {
    prepare();
    const std::size_t before = OpenDescriptors();
    ArmFault(++failing);
    work();
    DisarmFault();
    const std::string function = FailedFunction();
    SCOPED_TRACE("failure " + std::to_string(failing) + ", of " + function);
    check(function);
    EXPECT_EQ(OpenDescriptors(), before);
    functions.insert(function);
    failed = !function.empty();
  }
  std::printf("  %d points of failure in %zu functions\n", failing - 1, functions.size() - 1);
  EXPECT_GT(failing, 1);
}

}  // namespace zeapi::testing
