// What tests of jobs to a printer share: doubles around the library, a destination, the job's
// bytes.
#pragma once

#include <string>
#include <vector>

#include "output/ZeQue.h"
#include "output/pjl.h"
#include "support/bidi_double.h"
#include "support/bytes.h"
#include "support/host_double.h"
#include "support/scratch.h"
#include "support/spooler_double.h"
#include "zeapi.h"

namespace zeapi::testing {

inline constexpr char kUniversalExit[] = "\x1B%-12345X";

class JobTest : public ScratchTest {
 protected:
  // There is no printer and no DLL, so a job lands in the file that it names.
  void SetUp() override {
    ScratchTest::SetUp();
    ResetSpooler();
    ResetBidi();
    ResetHost();
    ResetLanguageSelectForTesting();
  }

  static constexpr char kOutput[] = "job.prn";
  static std::string Job() { return ReadFile(kOutput); }
  static bool NothingSent() {
    return !std::filesystem::exists(kOutput) && Spooler().calls.empty() && Bidi().calls.empty();
  }

  // Sends the job to the printer of the spooler double, or to the DLL double.
  void UsePrinter() { Spooler().printer = kOutput; }
  void UseBidi() {
    Bidi().present = true;
    destination.bidiPort = 7;
    destination.bidiHandle = 9;
  }
  // Drops what the spooler double has recorded, and sends to its printer.
  void UseNewPrinter() {
    ResetSpooler();
    UsePrinter();
  }

  using Writes = std::vector<std::string>;
  // The printer got one whole job, whose single writes were these.
  void ExpectWrites(const Writes& writes) const {
    const std::string name = destination.jobName == nullptr ? "Vantrel Job" : destination.jobName;
    std::vector<std::string> calls = {std::string("open ") + kOutput, "start " + name};
    std::string data;
    for (const std::string& write : writes) {
      calls.push_back("write " + std::to_string(write.size()));
      data += write;
    }
    calls.insert(calls.end(), {"end", "close"});
    EXPECT_BYTES(Spooler().data, data);
    EXPECT_EQ(Spooler().calls, calls);
  }

  ZeDestination destination = {};
};

// The lines that the log gets when a queue is opened on a file, when one write goes well, and when
// the file is closed.
std::vector<std::string> FileOpenLines();
std::vector<std::string> FileWriteLines();
std::vector<std::string> FileCloseLines();
std::vector<std::string> operator+(std::vector<std::string> lines,
                                   const std::vector<std::string>& more);

}  // namespace zeapi::testing
