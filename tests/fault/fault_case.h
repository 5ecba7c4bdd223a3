// Calls whose result is one code, under every failure. Whatever fails: the result is one of the call's
// codes, a job that reports success is whole, nothing stays open, and the next call works.
#pragma once

#include <filesystem>
#include <functional>
#include <set>
#include <string>

#include "fault/each_failure.h"
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
  // Whatever fails: the result is one of the scenario's codes, success is success, and the next call
  // works.
  void FailEachInTurn(const Scenario& scenario) {
    std::uint32_t result = ZE_OK;
    EachFailure([&] { Reset(scenario); }, [&] { result = scenario.call(); },
                [&](const std::string& failed) {
                  const bool mayFail = !failed.empty() && scenario.codes.count(result) != 0;
                  EXPECT_TRUE(result == ZE_OK || mayFail) << "result " << result;
                  if (result == ZE_OK) scenario.checkSuccess();
                  EXPECT_EQ(Bidi().loaded, 0);
                  if (failed.empty()) return;
                  Reset(scenario);
                  EXPECT_EQ(scenario.call(), ZE_OK);
                  scenario.checkSuccess();
                });
  }

  // Checks the call's result for each time that it uses the function, when that use fails.
  static void FailEach(const std::string& function, const std::function<void()>& prepare,
                       const std::function<std::uint32_t()>& call,
                       const std::function<void(std::uint32_t result)>& check) {
    std::uint32_t result = ZE_OK;
    FailurePoints points = EachFailure(
        prepare, [&] { result = call(); },
        [&](const std::string& failed) {
          if (failed == function) check(result);
        });
    EXPECT_GT(points[function], 0) << function;
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
