// What the tests share that make every call of the system fail in turn.
#pragma once

#include <filesystem>
#include <functional>
#include <set>
#include <string>

#include "fault/injector.h"
#include "support/job.h"

namespace zeapi::testing {

namespace fs = std::filesystem;

// One call to put under fire.
struct Scenario {
  std::function<void()> prepare;  // before each try
  std::function<std::uint32_t()> call;
  std::set<std::uint32_t> codes;       // what it may report besides success
  std::function<void()> checkSuccess;  // what must hold after success
};

class FaultTest : public JobTest {
 protected:
  // Fails each of the scenario's calls in turn and prints how many there were.
  void FailEachInTurn(const Scenario& scenario) {
    int points = 0;
    std::set<std::string> functions;
    for (int failing = 1;; ++failing) {
      Reset(scenario);
      const std::size_t before = OpenDescriptors();
      ArmFault(failing);
      const std::uint32_t result = scenario.call();
      DisarmFault();
      const std::string failed = FailedFunction();
      if (failed.empty()) {
        EXPECT_EQ(result, ZE_OK);
        break;
      }
      ++points;
      functions.insert(failed);
      SCOPED_TRACE("failure " + std::to_string(failing) + ", of " + failed);
      EXPECT_TRUE(result == ZE_OK || scenario.codes.count(result) != 0) << "result " << result;
      if (result == ZE_OK) scenario.checkSuccess();
      EXPECT_EQ(OpenDescriptors(), before);
      EXPECT_EQ(Bidi().loaded, 0);

      Reset(scenario);
      EXPECT_EQ(scenario.call(), ZE_OK);
      scenario.checkSuccess();
      if (HasFailure()) break;
    }
    std::printf("  %d points of failure in %zu functions\n", points, functions.size());
    EXPECT_GT(points, 0);
  }

  // Runs the call once for each time that it uses the function, failing that use.
  static void FailEach(const std::string& function, const std::function<void()>& prepare,
                       const std::function<std::uint32_t()>& call,
                       const std::function<void(std::uint32_t result)>& check) {
    int uses = 0;
    for (int failing = 1;; ++failing) {
      prepare();
      ArmFault(failing);
      const std::uint32_t result = call();
      DisarmFault();
      if (FailedFunction().empty()) break;
      if (FailedFunction() != function) continue;
      ++uses;
      SCOPED_TRACE(function + ", use " + std::to_string(uses));
      check(result);
    }
    EXPECT_GT(uses, 0) << function;
  }

 private:
  void Reset(const Scenario& scenario) {
    fs::remove(kOutput);
    ResetSpooler();
    ResetBidi();
    scenario.prepare();
  }
};

inline const std::set<std::uint32_t> kFileJobCodes = {
    ZE_FILE_NOT_FOUND, ZE_OPEN_FAILED, ZE_READ_FAILED, ZE_WRITE_FAILED, ZE_OUT_OF_MEMORY};

}  // namespace zeapi::testing
