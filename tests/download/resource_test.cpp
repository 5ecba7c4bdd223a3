#include "support/job.h"

namespace zeapi::testing {
namespace {

class ResourceTest : public JobTest {
 protected:
  std::uint32_t Send(std::int32_t request, std::int32_t device = ZE_DEVICE_FLASH1) {
    return ZeGenResource(request, kOutput, &destination, device);
  }
};

TEST_F(ResourceTest, NullArgumentsAreInvalid) {
  EXPECT_EQ(ZeGenResource(1, nullptr, &destination, 1), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeGenResource(1, kOutput, nullptr, 1), ZE_INVALID_ARGUMENT);
}

TEST_F(ResourceTest, RequestAndDeviceOutsideTheirRangesAreInvalid) {
  for (const std::int32_t request : {0, 5, -1}) EXPECT_EQ(Send(request), ZE_INVALID_ARGUMENT);
  for (std::int32_t request = 1; request <= 4; ++request) {
    for (const std::int32_t device : {0, 6, -1}) {
      EXPECT_EQ(Send(request, device), ZE_INVALID_ARGUMENT);
    }
  }
  EXPECT_TRUE(NothingSent());
  EXPECT_TRUE(LogLines().empty());
}

TEST_F(ResourceTest, KeepsRefusingANameOfExactly260Characters) {
  const std::string name(260, 'n');
  Spooler().printer = name;
  EXPECT_EQ(ZeGenResource(4, name.c_str(), &destination, 1), ZE_INVALID_ARGUMENT);
  Spooler().printer.pop_back();
  EXPECT_EQ(ZeGenResource(4, Spooler().printer.c_str(), &destination, 1), ZE_OK);
}

TEST_F(ResourceTest, FormattingADeviceOfAPjlPrinter) {
  destination.flags = ZE_FLAG_PJL;
  destination.language = ZE_LANGUAGE_PCL;
  EXPECT_EQ(Send(ZE_RESOURCE_FORMAT_DEVICE, ZE_DEVICE_DISK1), ZE_OK);
  EXPECT_BYTES(Job(),
               "\x1B%-12345X"
               "@PJL ENTER LANGUAGE = PCL\n"
               "\x1B%-12345X"
               "@PJL LFORMAT DEVICE = disk1\n"
               "\x1B%-12345X"
               "@PJL RDYMSG DISPLAY = \"\"\n"
               "\x1B%-12345X");
}

TEST_F(ResourceTest, CopiesAndResetAreNotSent) {
  destination.flags = ZE_FLAG_PJL;
  destination.copies = 4;
  EXPECT_EQ(Send(ZE_RESOURCE_TARGET_RAM), ZE_OK);
  EXPECT_BYTES(Job(),
               "\x1B%-12345X\x1B%-12345X@PJL SET LDOWNLOADTARGET = ram\n"
               "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n\x1B%-12345X");
}

TEST_F(ResourceTest, PrinterOfNeitherSetGetsTwoOfTheFourRequests) {
  EXPECT_EQ(Send(1), ZE_OK);
  EXPECT_BYTES(Job(), "");
  EXPECT_EQ(Send(2), ZE_OK);
  EXPECT_BYTES(Job(), "");
  EXPECT_EQ(Send(3), ZE_OK);
  EXPECT_BYTES(Job(), Bytes("\x1B[K\x03\0\x06\xC0\x46"));
  EXPECT_EQ(Send(4), ZE_OK);
  EXPECT_BYTES(Job(), Bytes("\x1B[K\x03\0\x06\xC0\x50"));
}

TEST_F(ResourceTest, BracketKPrinterGetsTheBareSequence) {
  destination.flags = ZE_FLAG_BRACKET_K;
  destination.jobName = "ignored";
  destination.language = ZE_LANGUAGE_PCL;
  const char last[] = {'\x32', '\x31', '\x46', '\x50'};
  for (std::int32_t request = 1; request <= 4; ++request) {
    EXPECT_EQ(Send(request), ZE_OK);
    EXPECT_BYTES(Job(), Bytes("\x1B[K\x03\0\x06\xC0") + last[request - 1]);
  }
}

TEST_F(ResourceTest, ClassTwoGetsInitialConditionsBeforeTheCommandsUniversalExit) {
  destination.flags = ZE_FLAG_PJL;
  destination.deviceClass = 2;
  EXPECT_EQ(Send(2, ZE_DEVICE_DISK2), ZE_OK);
  EXPECT_BYTES(Job(), Bytes("\x1B%-12345X"
                            "\x1B[K\x01\0\x01"
                            "\x1B%-12345X@PJL SET LDOWNLOADTARGET = disk2\n"
                            "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n\x1B%-12345X"));
}

TEST_F(ResourceTest, LanguageIsNotChecked) {
  destination.flags = ZE_FLAG_PJL;
  destination.language = 99;
  EXPECT_EQ(Send(4), ZE_OK);
}

TEST_F(ResourceTest, FileIsReplaced) {
  WriteFile(kOutput, "old");
  EXPECT_EQ(Send(1), ZE_OK);
  EXPECT_BYTES(Job(), "");
}

TEST_F(ResourceTest, QueueThatDoesNotOpenGivesItsResult) {
  EXPECT_EQ(ZeGenResource(1, "missing\\job.prn", &destination, 1), ZE_OPEN_FAILED);
  destination.bidiHandle = 1;
  EXPECT_EQ(Send(1), ZE_UNUSABLE);
}

TEST_F(ResourceTest, RefusedWriteStopsTheJob) {
  destination.flags = ZE_FLAG_PJL;
  destination.language = ZE_LANGUAGE_PCL;
  for (int failing = 1; failing <= 7; ++failing) {
    ResetSpooler();
    UsePrinter();
    Spooler().failingWrite = failing;
    EXPECT_EQ(Send(3), ZE_PRINTER_WRITE_FAILED) << failing;
    EXPECT_EQ(Spooler().writes, failing);
  }
}

TEST_F(ResourceTest, RefusedBracketKCommandGivesPrinterWriteFailed) {
  UsePrinter();
  Spooler().failingWrite = 1;
  EXPECT_EQ(Send(4), ZE_PRINTER_WRITE_FAILED);
}

}  // namespace
}  // namespace zeapi::testing
