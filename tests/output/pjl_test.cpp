#include "output/pjl.h"

#include "output/pjl_commands.h"
#include "support/job.h"

namespace zeapi::testing {
namespace {

class PjlTest : public JobTest {
 protected:
  // The bytes that a builder writes.
  template <typename Builder>
  std::string Built(Builder builder) {
    GenQueContext ctx;
    ctx.destination = &destination;
    ctx.device = device;
    EXPECT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
    builder(&ctx);
    EXPECT_EQ(ctx.error, ZE_OK);
    GenQueClose(&ctx);
    return Job();
  }
  std::string Header(bool withCopies) {
    destination.flags = ZE_FLAG_PJL;
    return Built([&](GenQueContext* ctx) { PjlJobHeader(ctx, withCopies); });
  }
  std::string Trailer(bool withReset) {
    destination.flags = ZE_FLAG_PJL;
    return Built([&](GenQueContext* ctx) { PjlJobTrailer(ctx, withReset); });
  }
  std::string Resource(int kind) {
    return Built([&](GenQueContext* ctx) { PjlResourceCommand(kind, ctx); });
  }
  std::string Language() {
    return Built([](GenQueContext* ctx) { LanguageSelect(ctx); });
  }

  // How many writes a builder makes when the nth of them is refused by the printer, and whether it
  // closed the queue.
  template <typename Builder>
  std::pair<int, bool> WithRefusedWrite(int failingWrite, Builder builder) {
    ResetSpooler();
    UsePrinter();
    Spooler().failingWrite = failingWrite;
    GenQueContext ctx;
    ctx.destination = &destination;
    ctx.device = device;
    EXPECT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
    builder(&ctx);
    const bool closed = ctx.backEnd == QueueBackEnd::kClosed;
    GenQueClose(&ctx);
    return {Spooler().writes, closed};
  }

  std::int32_t device = ZE_DEVICE_FLASH1;
};

// --- Job header

TEST_F(PjlTest, HeaderWakesNamesAndSwitches) {
  destination.jobName = "Fonts";
  destination.language = ZE_LANGUAGE_PCL;
  EXPECT_BYTES(Header(false),
               "\x1B%-12345X"
               "@PJL RDYMSG DISPLAY = \"Fonts\"\n"
               "@PJL ENTER LANGUAGE = PCL\n");
}

TEST_F(PjlTest, LanguagesHaveTheseNamesAndOthersDoNotSwitch) {
  const std::pair<std::int32_t, const char*> names[] = {
      {2, "PPDS"}, {3, "POSTSCRIPT"}, {4, "GL"}, {5, "PCL"}, {6, "PCL"}};
  for (const auto& [language, name] : names) {
    destination.language = language;
    EXPECT_BYTES(Header(false),
                 std::string(kUniversalExit) + "@PJL ENTER LANGUAGE = " + name + "\n");
  }
  for (const std::int32_t language : {0, 1, 7, 8, -1, 1000}) {
    destination.language = language;
    EXPECT_BYTES(Header(false), kUniversalExit);
  }
}

TEST_F(PjlTest, ReadyMessageIsCutToTwentyCharacters) {
  destination.jobName = "abcdefghijklmnopqrstuvwxy";
  EXPECT_BYTES(Header(false),
               std::string(kUniversalExit) + "@PJL RDYMSG DISPLAY = \"abcdefghijklmnopqrst\"\n");
}

TEST_F(PjlTest, EmptyJobNameStillSendsAReadyMessage) {
  destination.jobName = "";
  EXPECT_BYTES(Header(false), std::string(kUniversalExit) + "@PJL RDYMSG DISPLAY = \"\"\n");
}

TEST_F(PjlTest, KeepsCopiesAfterTheLanguageSwitch) {
  destination.language = ZE_LANGUAGE_POSTSCRIPT;
  destination.copies = 65535;
  EXPECT_BYTES(Header(true), std::string(kUniversalExit) +
                                 "@PJL ENTER LANGUAGE = POSTSCRIPT\n@PJL SET COPIES = 65535\n");
}

TEST_F(PjlTest, CopiesAreLeftOutWhenZeroOrNotAskedFor) {
  EXPECT_BYTES(Header(true), kUniversalExit);
  destination.copies = 3;
  EXPECT_BYTES(Header(false), kUniversalExit);
}

TEST_F(PjlTest, PrintersWithoutPjlGetNeitherHeaderNorTrailer) {
  destination.jobName = "Job";
  destination.language = ZE_LANGUAGE_PCL;
  destination.copies = 2;
  for (const std::uint32_t flags : {std::uint32_t{0}, std::uint32_t{ZE_FLAG_BRACKET_K}}) {
    destination.flags = flags;
    EXPECT_BYTES(Built([](GenQueContext* ctx) {
                   PjlJobHeader(ctx, true);
                   PjlJobTrailer(ctx, true);
                 }),
                 "");
  }
}

TEST_F(PjlTest, HeaderStopsAtItsChecks) {
  destination.flags = ZE_FLAG_PJL;
  destination.jobName = "Job";
  destination.language = ZE_LANGUAGE_PCL;
  destination.copies = 2;
  const auto header = [](GenQueContext* ctx) { PjlJobHeader(ctx, true); };
  EXPECT_EQ(WithRefusedWrite(0, header), std::pair(4, false));
  EXPECT_EQ(WithRefusedWrite(1, header), std::pair(1, true));
  EXPECT_EQ(WithRefusedWrite(2, header), std::pair(2, true));   // no language switch, no copies
  EXPECT_EQ(WithRefusedWrite(3, header), std::pair(3, true));   // no copies
  EXPECT_EQ(WithRefusedWrite(4, header), std::pair(4, false));  // the caller asks
}

TEST_F(PjlTest, HeaderWithoutLanguageStopsAfterARefusedReadyMessageToo) {
  destination.flags = ZE_FLAG_PJL;
  destination.jobName = "Job";
  destination.copies = 2;
  EXPECT_EQ(WithRefusedWrite(2, [](GenQueContext* ctx) { PjlJobHeader(ctx, true); }),
            std::pair(2, true));
}

// --- Job trailer

TEST_F(PjlTest, TrailerClearsTheDisplay) {
  EXPECT_BYTES(Trailer(false), "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n\x1B%-12345X");
}

TEST_F(PjlTest, TrailerWithReset) {
  EXPECT_BYTES(Trailer(true), "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n@PJL RESET\n\x1B%-12345X");
}

TEST_F(PjlTest, TrailerStopsAtItsChecks) {
  destination.flags = ZE_FLAG_PJL;
  const auto trailer = [](GenQueContext* ctx) { PjlJobTrailer(ctx, true); };
  EXPECT_EQ(WithRefusedWrite(1, trailer), std::pair(1, true));
  EXPECT_EQ(WithRefusedWrite(2, trailer), std::pair(2, true));
  EXPECT_EQ(WithRefusedWrite(3, trailer), std::pair(3, true));
  EXPECT_EQ(WithRefusedWrite(4, trailer), std::pair(4, false));
}

// --- Resource commands

TEST_F(PjlTest, ResourceCommandsForPjlPrinters) {
  destination.flags = ZE_FLAG_PJL;
  const std::string exit = kUniversalExit;
  EXPECT_BYTES(Resource(1), exit + "@PJL SET LDOWNLOADTARGET = ram\n");
  EXPECT_BYTES(Resource(2), exit + "@PJL SET LDOWNLOADTARGET = flash1\n");
  EXPECT_BYTES(Resource(3), exit + "@PJL LFORMAT DEVICE = flash1\n");
  EXPECT_BYTES(Resource(4), exit + "@PJL LPRINTDIRECTORY\n");
}

TEST_F(PjlTest, ResourceCommandsForBracketKPrinters) {
  destination.flags = ZE_FLAG_BRACKET_K;
  EXPECT_BYTES(Resource(1), Bytes("\x1B[K\x03\0\x06\xC0\x32"));
  EXPECT_BYTES(Resource(2), Bytes("\x1B[K\x03\0\x06\xC0\x31"));
  EXPECT_BYTES(Resource(3), Bytes("\x1B[K\x03\0\x06\xC0\x46"));
  EXPECT_BYTES(Resource(4), Bytes("\x1B[K\x03\0\x06\xC0\x50"));
}

TEST_F(PjlTest, KeepsTargetsSilentAndTheOthersInBracketKForPrintersOfNeitherSet) {
  EXPECT_BYTES(Resource(1), "");
  EXPECT_BYTES(Resource(2), "");
  EXPECT_BYTES(Resource(3), Bytes("\x1B[K\x03\0\x06\xC0\x46"));
  EXPECT_BYTES(Resource(4), Bytes("\x1B[K\x03\0\x06\xC0\x50"));
}

TEST_F(PjlTest, KeepsBothFormsOfTargetsAndOneFormOfTheOthersForPrintersOfBothSets) {
  destination.flags = ZE_FLAG_PJL | ZE_FLAG_BRACKET_K;
  const std::string exit = kUniversalExit;
  EXPECT_BYTES(Resource(1),
               exit + "@PJL SET LDOWNLOADTARGET = ram\n" + Bytes("\x1B[K\x03\0\x06\xC0\x32"));
  EXPECT_BYTES(Resource(2),
               exit + "@PJL SET LDOWNLOADTARGET = flash1\n" + Bytes("\x1B[K\x03\0\x06\xC0\x31"));
  EXPECT_BYTES(Resource(3), exit + "@PJL LFORMAT DEVICE = flash1\n");
  EXPECT_BYTES(Resource(4), exit + "@PJL LPRINTDIRECTORY\n");
}

TEST_F(PjlTest, DeviceNamesComeFromTheTable) {
  destination.flags = ZE_FLAG_PJL;
  const char* const names[] = {"", "ram", "flash1", "flash2", "disk1", "disk2", "", "", ""};
  for (device = -1; device < 8; ++device) {
    const char* name = device < 0 ? "" : names[device];
    EXPECT_BYTES(Resource(3), std::string(kUniversalExit) + "@PJL LFORMAT DEVICE = " + name + "\n");
  }
}

TEST_F(PjlTest, InitialConditionsGoBeforeTheDeviceTargetOfClassTwoWhateverTheFlags) {
  destination.deviceClass = 2;
  const std::string conditions = Bytes("\x1B[K\x01\0\x01");
  EXPECT_BYTES(Resource(2), conditions);
  destination.flags = ZE_FLAG_BRACKET_K;
  EXPECT_BYTES(Resource(2), conditions + Bytes("\x1B[K\x03\0\x06\xC0\x31"));
  destination.flags = ZE_FLAG_PJL;
  EXPECT_BYTES(Resource(2), conditions + kUniversalExit + "@PJL SET LDOWNLOADTARGET = flash1\n");
  EXPECT_BYTES(Resource(1), std::string(kUniversalExit) + "@PJL SET LDOWNLOADTARGET = ram\n");
}

TEST_F(PjlTest, OtherDeviceClassesGetNoInitialConditions) {
  destination.flags = ZE_FLAG_BRACKET_K;
  for (const std::uint32_t deviceClass : {0U, 1U, 3U, 0xFFFFFFFFU}) {
    destination.deviceClass = deviceClass;
    EXPECT_BYTES(Resource(2), Bytes("\x1B[K\x03\0\x06\xC0\x31"));
  }
}

TEST_F(PjlTest, UnknownResourceCommandsSendNoCommand) {
  for (const int kind : {0, 5, -1}) EXPECT_BYTES(Resource(kind), "");
  destination.flags = ZE_FLAG_PJL;
  EXPECT_BYTES(Resource(5), kUniversalExit);
}

TEST_F(PjlTest, ResourceCommandStopsAtItsChecks) {
  destination.flags = ZE_FLAG_PJL | ZE_FLAG_BRACKET_K;
  destination.deviceClass = 2;
  const auto resource = [](GenQueContext* ctx) { PjlResourceCommand(2, ctx); };
  EXPECT_EQ(WithRefusedWrite(0, resource), std::pair(4, false));
  EXPECT_EQ(WithRefusedWrite(1, resource), std::pair(2, true));  // the exit goes out all the same
  EXPECT_EQ(WithRefusedWrite(2, resource), std::pair(2, true));
  EXPECT_EQ(WithRefusedWrite(3, resource), std::pair(4, false));  // both forms are written
  const auto memory = [](GenQueContext* ctx) { PjlResourceCommand(1, ctx); };
  EXPECT_EQ(WithRefusedWrite(0, memory), std::pair(3, false));
  EXPECT_EQ(WithRefusedWrite(1, memory), std::pair(1, true));
  EXPECT_EQ(WithRefusedWrite(2, memory), std::pair(3, false));  // both forms here too
  destination.flags = ZE_FLAG_BRACKET_K;
  EXPECT_EQ(WithRefusedWrite(1, resource), std::pair(1, false));  // no PJL: skips, does not close
}

// --- Language selection

TEST_F(PjlTest, LanguageSelectSequences) {
  const std::pair<std::int32_t, std::string> sequences[] = {
      {1, Bytes("\x1B[K\x03\0\x06\x31\x00")}, {2, Bytes("\x1B[K\x03\0\x06\x31\x01")},
      {3, Bytes("\x1B[K\x03\0\x06\x31\x08")}, {4, Bytes("\x1B[K\x03\0\x06\x31\x03")},
      {5, Bytes("\x1B[K\x03\0\x06\x31\x02")}, {6, Bytes("\x1B[K\x03\0\x06\x31\x02")}};
  for (const auto& [language, sequence] : sequences) {
    destination.language = language;
    EXPECT_BYTES(Language(), sequence);
  }
}

TEST_F(PjlTest, PclCopiesGoToLanguages0And5And6Only) {
  destination.copies = 12;
  for (std::int32_t language = 0; language <= 6; ++language) {
    destination.language = language;
    const std::string written = Language();
    const bool hasCopies = written.size() >= 6 && written.substr(written.size() - 6) == "\x1B&l12X";
    EXPECT_EQ(hasCopies, language == 0 || language == 5 || language == 6) << language;
  }
}

TEST_F(PjlTest, LanguageZeroWritesCopiesAlone) {
  destination.copies = 65535;
  EXPECT_BYTES(Language(), "\x1B&l65535X");
  destination.copies = 0;
  EXPECT_BYTES(Language(), "");
}

TEST_F(PjlTest, LanguagesOutsideTheTableWriteNothing) {
  destination.copies = 2;
  for (const std::int32_t language : {-1, 7, 1000}) {
    destination.language = language;
    EXPECT_BYTES(Language(), "");
  }
}

TEST_F(PjlTest, KeepsTheChannelForLaterJobsInTheSameLanguage) {
  destination.language = ZE_LANGUAGE_PCL;
  destination.channel = '2';
  EXPECT_BYTES(Language(), Bytes("\x1B[K\x03\0\x06\x32\x02"));
  destination.channel = 0;
  EXPECT_BYTES(Language(), Bytes("\x1B[K\x03\0\x06\x32\x02"));
  destination.language = ZE_LANGUAGE_PCLXL;  // has a copy of its own
  EXPECT_BYTES(Language(), Bytes("\x1B[K\x03\0\x06\x31\x02"));
  destination.language = ZE_LANGUAGE_PCL;
  destination.channel = '3';
  EXPECT_BYTES(Language(), Bytes("\x1B[K\x03\0\x06\x33\x02"));
}

TEST_F(PjlTest, KeepsTheChannelOfEachLanguageByItself) {
  destination.language = ZE_LANGUAGE_POSTSCRIPT;
  destination.channel = '2';
  EXPECT_BYTES(Language(), Bytes("\x1B[K\x03\0\x06\x32\x08"));
  destination.language = ZE_LANGUAGE_PPDS;
  destination.channel = 0;
  EXPECT_BYTES(Language(), Bytes("\x1B[K\x03\0\x06\x31\x01"));
  destination.language = ZE_LANGUAGE_POSTSCRIPT;
  EXPECT_BYTES(Language(), Bytes("\x1B[K\x03\0\x06\x32\x08"));
}

TEST_F(PjlTest, ChannelStaysAsItIsWhenNoSequenceIsWritten) {
  destination.language = ZE_LANGUAGE_PCL;
  destination.channel = '5';
  Built([](GenQueContext* ctx) {
    ctx->error = ZE_WRITE_FAILED;
    LanguageSelect(ctx);
    ctx->error = ZE_OK;
  });
  destination.language = ZE_LANGUAGE_NONE;
  Language();
  destination.language = ZE_LANGUAGE_PCL;
  destination.channel = 0;
  EXPECT_BYTES(Language(), Bytes("\x1B[K\x03\0\x06\x31\x02"));
}

TEST_F(PjlTest, ResourceJobOfBothSetsEndsWithARefusedLanguageSelection) {
  destination.flags = ZE_FLAG_PJL | ZE_FLAG_BRACKET_K;
  destination.language = ZE_LANGUAGE_PCL;
  bool started = true;
  Result error = ZE_OK;
  const auto start = [&](GenQueContext* ctx) {
    started = StartResourceJob(ctx);
    error = ctx->error;
  };
  EXPECT_EQ(WithRefusedWrite(1, start), std::pair(1, true));  // no PJL header
  EXPECT_FALSE(started);
  EXPECT_EQ(error, ZE_PRINTER_WRITE_FAILED);
  EXPECT_EQ(Spooler().calls.back(), "close");
  EXPECT_EQ(WithRefusedWrite(0, start), std::pair(3, false));
  EXPECT_TRUE(started);
}

TEST_F(PjlTest, FrameOfADownloadToADevice) {
  destination.flags = ZE_FLAG_PJL;
  destination.jobName = "Fonts";
  destination.language = ZE_LANGUAGE_PCL;
  EXPECT_BYTES(Built([](GenQueContext* ctx) {
                 PjlJobHeader(ctx, false);
                 PjlResourceCommand(ZE_RESOURCE_TARGET_DEVICE, ctx);
                 WriteCommand(ctx, "payload");
                 PjlResourceCommand(ZE_RESOURCE_TARGET_RAM, ctx);
                 PjlJobTrailer(ctx, false);
               }),
               "\x1B%-12345X@PJL RDYMSG DISPLAY = \"Fonts\"\n@PJL ENTER LANGUAGE = PCL\n"
               "\x1B%-12345X@PJL SET LDOWNLOADTARGET = flash1\n"
               "payload"
               "\x1B%-12345X@PJL SET LDOWNLOADTARGET = ram\n"
               "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n\x1B%-12345X");
}

TEST_F(PjlTest, LanguageSelectGoesOnToCopiesAfterARefusedSequence) {
  destination.language = ZE_LANGUAGE_PCL;
  destination.copies = 2;
  EXPECT_EQ(WithRefusedWrite(1, LanguageSelect), std::pair(2, false));
}

TEST_F(PjlTest, LanguageSelectWritesNothingAfterAnError) {
  destination.language = ZE_LANGUAGE_PCL;
  EXPECT_EQ(WithRefusedWrite(0,
                             [](GenQueContext* ctx) {
                               ctx->error = ZE_WRITE_FAILED;
                               LanguageSelect(ctx);
                             }),
            std::pair(0, false));
}

// --- Commands

TEST_F(PjlTest, EachCommandIsOneWriteWithoutTerminator) {
  destination.flags = ZE_FLAG_PJL;
  UsePrinter();
  destination.jobName = "Fonts";
  destination.language = ZE_LANGUAGE_PCL;
  destination.copies = 2;
  GenQueContext ctx;
  ctx.destination = &destination;
  ASSERT_EQ(GenQueOpen(kOutput, &ctx), ZE_OK);
  PjlJobHeader(&ctx, true);
  GenQueClose(&ctx);
  EXPECT_EQ(Spooler().calls,
            (std::vector<std::string>{"open job.prn", "start Fonts", "write 9", "write 30",
                                      "write 26", "write 20", "end", "close"}));
}

TEST_F(PjlTest, OverlongCommandIsCutToItsBuffer) {
  const std::string name(5000, 'n');
  const std::string written =
      Built([&](GenQueContext* ctx) { WriteCommand(ctx, pjl::kEnterLanguage, name.c_str()); });
  EXPECT_EQ(written.size(), 1023U);
}

}  // namespace
}  // namespace zeapi::testing
