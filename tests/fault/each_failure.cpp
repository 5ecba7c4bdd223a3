#include "fault/each_failure.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <iterator>
#include <sstream>

namespace zeapi::testing {
namespace {

// All failures by the export that they struck, those of what lies below the interface by "".
std::map<std::string, int> struck;

int Sum(const std::map<std::string, int>& counts) {
  int sum = 0;
  for (const auto& [name, count] : counts) sum += count;
  return sum;
}

void Print(const FailurePoints& points) {
  std::printf("  %d points of failure:", Sum(points));
  for (const auto& [function, times] : points) std::printf(" %s %d", function.c_str(), times);
  std::printf("\n");
}

// Behind the last test: how many failures there were, and that no export was forgotten.
class AllExports : public ::testing::Environment {
 public:
  void TearDown() override {
    std::printf("%d failures tried in %zu exports; no call to fail in:", Sum(struck),
                TriedExports().size());
    for (const std::string& name : TriedExports())
      if (struck.count(name) == 0) std::printf(" %s", name.c_str());
    std::printf("\n");
    if (::testing::UnitTest::GetInstance()->test_to_run_count() !=
        ::testing::UnitTest::GetInstance()->total_test_count())
      return;
    std::istringstream exports(ZEAPI_EXPORTS);
    for (std::string name; exports >> name;)
      EXPECT_EQ(TriedExports().count(name), 1U) << name << " has no test under failures";
  }
};
[[maybe_unused]] const ::testing::Environment* const allExports =
    ::testing::AddGlobalTestEnvironment(new AllExports);

}  // namespace

FailurePoints EachFailure(const std::function<void()>& prepare, const std::function<void()>& work,
                          const std::function<void(const std::string& failed)>& check) {
  FailurePoints points;
  int failing = 0;
  for (bool failed = true; failed && !::testing::Test::HasFailure();) {
    const std::size_t before = OpenDescriptors();
    prepare();
    ArmFault(++failing);
    work();
    DisarmFault();
    const std::string function = FailedFunction();
    failed = !function.empty();
    if (failed) {
      ++points[function];
      ++struck[FailedExport()];
    }
    SCOPED_TRACE("failure " + std::to_string(failing) + ", of " + function);
    check(function);
    EXPECT_EQ(OpenDescriptors(), before);
  }
  Print(points);
  EXPECT_FALSE(points.empty());
  return points;
}

}  // namespace zeapi::testing
