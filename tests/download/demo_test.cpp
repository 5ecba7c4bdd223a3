#include <algorithm>
#include <cstring>

#include "support/job.h"

namespace zeapi::testing {
namespace {

constexpr char kClearDisplay[] = "@PJL RDYMSG DISPLAY = \"\"\n";

class DemoTest : public JobTest {
 protected:
  static constexpr char kInput[] = "a.pcl";

  void SetUp() override {
    JobTest::SetUp();
    WriteFile(kInput, "DEMO!");
    demo.method = ZE_DEMO_POSTSCRIPT;
    demo.device = ZE_DEVICE_FLASH1;
  }

  std::uint32_t Send() { return ZeDemDownload(kInput, kOutput, &destination, &demo); }

  void Name(const std::string& name) {
    std::fill(std::begin(demo.name), std::end(demo.name), '\0');
    std::copy_n(name.begin(), std::min(name.size(), sizeof(demo.name)), demo.name);
  }

  ZeDemoInfo demo = {};
};

// --- Arguments

TEST_F(DemoTest, NullArgumentsAreInvalid) {
  EXPECT_EQ(ZeDemDownload(nullptr, kOutput, &destination, &demo), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeDemDownload(kInput, nullptr, &destination, &demo), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeDemDownload(kInput, kOutput, nullptr, &demo), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeDemDownload(kInput, kOutput, &destination, nullptr), ZE_INVALID_ARGUMENT);
  EXPECT_TRUE(NothingSent());
}

TEST_F(DemoTest, FileAndPrinterOfOneNameAreInvalid) {
  EXPECT_EQ(ZeDemDownload(kInput, "A.pcL", &destination, &demo), ZE_INVALID_ARGUMENT);
  EXPECT_BYTES(ReadFile(kInput), "DEMO!");
  EXPECT_EQ(ZeDemDownload("missing", "MISSING", &destination, &demo), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeDemDownload("missing", "MISSING1", &destination, &demo), ZE_FILE_NOT_FOUND);
}

TEST_F(DemoTest, NamesOf261CharactersAreInvalid) {
  const std::string name(261, 'n');
  EXPECT_EQ(ZeDemDownload(name.c_str(), kOutput, &destination, &demo), ZE_INVALID_ARGUMENT);
  EXPECT_EQ(ZeDemDownload(kInput, name.c_str(), &destination, &demo), ZE_INVALID_ARGUMENT);
  const std::string longest(260, 'n');
  EXPECT_EQ(ZeDemDownload(longest.c_str(), kOutput, &destination, &demo), ZE_FILE_NOT_FOUND);
  Spooler().printer = longest;
  EXPECT_EQ(ZeDemDownload(kInput, longest.c_str(), &destination, &demo), ZE_OK);
}

TEST_F(DemoTest, DeviceAndMethodOutOfRangeAreInvalid) {
  for (const std::int32_t device : {-1, 0, 1, 6, 258}) {
    demo.device = device;
    EXPECT_EQ(Send(), ZE_INVALID_ARGUMENT) << device;
  }
  demo.device = ZE_DEVICE_DISK2;
  for (const std::int32_t method : {-1, 0, 6, 257}) {
    demo.method = method;
    EXPECT_EQ(Send(), ZE_INVALID_ARGUMENT) << method;
  }
  EXPECT_TRUE(NothingSent());
}

TEST_F(DemoTest, ArgumentsAreCheckedBeforeTheFile) {
  demo.device = ZE_DEVICE_RAM;
  EXPECT_EQ(ZeDemDownload("missing", kOutput, &destination, &demo), ZE_INVALID_ARGUMENT);
}

// --- The file and the queue

TEST_F(DemoTest, MissingFileComesBeforeItsExtension) {
  EXPECT_EQ(ZeDemDownload("missing.exe", kOutput, &destination, &demo), ZE_FILE_NOT_FOUND);
}

TEST_F(DemoTest, SystemFileIsRefusedBeforeItIsOpened) {
  WriteFile("demo.Exe", "x");
  EXPECT_EQ(ZeDemDownload("demo.Exe", kOutput, &destination, &demo), ZE_BAD_FORMAT);
  std::filesystem::create_directory("folder.sys");
  EXPECT_EQ(ZeDemDownload("folder.sys", kOutput, &destination, &demo), ZE_BAD_FORMAT);
  EXPECT_TRUE(NothingSent());
}

TEST_F(DemoTest, FolderCannotBeOpened) {
  std::filesystem::create_directory("folder");
  EXPECT_EQ(ZeDemDownload("folder", kOutput, &destination, &demo), ZE_OPEN_FAILED);
  EXPECT_TRUE(NothingSent());
}

TEST_F(DemoTest, QueueThatDoesNotOpenGivesItsResultAndLeavesTheLanguage) {
  destination.language = ZE_LANGUAGE_PPDS;
  EXPECT_EQ(ZeDemDownload(kInput, "missing\\job.prn", &destination, &demo), ZE_OPEN_FAILED);
  EXPECT_EQ(destination.language, ZE_LANGUAGE_PPDS);
  destination.bidiHandle = 1;
  EXPECT_EQ(Send(), ZE_UNUSABLE);
  EXPECT_EQ(destination.language, ZE_LANGUAGE_PPDS);
}

TEST_F(DemoTest, MethodSetsTheLanguageOfTheDestination) {
  const std::int32_t languages[] = {ZE_LANGUAGE_POSTSCRIPT, ZE_LANGUAGE_PCL, ZE_LANGUAGE_PCL,
                                    ZE_LANGUAGE_PCL, ZE_LANGUAGE_GL};
  for (std::int32_t method = 1; method <= 5; ++method) {
    destination.language = ZE_LANGUAGE_GL;
    demo.method = method;
    EXPECT_EQ(Send(), ZE_OK);
    EXPECT_EQ(destination.language, languages[method - 1]) << method;
  }
}

// --- Method 1: PostScript file

TEST_F(DemoTest, PostScriptFileIsWrittenThroughTheInterpreter) {
  WriteFile(kInput, Bytes("\x00\xABz"));
  Name("demo1");
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Job(),
               "statusdict begin currentfilenameextend false setfilenameextend end\n"
               "/wf (%flash1%demo1.demo) (w) file def\n"
               "/rf currentfile (ASCIIHexDecode) filter def\n"
               "{ rf read\nnot { exit } if\nwf exch write } loop\n"
               "00AB7A"
               ">\nstatusdict begin setfilenameextend end\n");
}

TEST_F(DemoTest, PjlFrameNamesTheLanguageOfTheMethod) {
  destination.flags = ZE_FLAG_PJL;
  destination.jobName = "Demo job";
  destination.language = ZE_LANGUAGE_PPDS;
  destination.copies = 3;
  demo.method = ZE_DEMO_NOTHING;
  const std::string start =
      std::string(kUniversalExit) + "@PJL RDYMSG DISPLAY = \"Demo job\"\n@PJL ENTER LANGUAGE = ";
  const std::string end = std::string(kUniversalExit) + kClearDisplay + kUniversalExit;
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Job(), start + "PPDS\n" + end);
  demo.method = ZE_DEMO_POSTSCRIPT;
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Job().substr(0, start.size() + 11), start + "POSTSCRIPT\n");
  EXPECT_BYTES(Job().substr(Job().size() - end.size()), end);
  demo.method = ZE_DEMO_BRACKET_D;
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Job().substr(0, start.size() + 4), start + "PCL\n");
}

TEST_F(DemoTest, BracketKPrinterGetsItsLanguageSelectionBeforeThePjlHeader) {
  destination.flags = ZE_FLAG_PJL | ZE_FLAG_BRACKET_K;
  destination.copies = 2;
  demo.method = ZE_DEMO_BRACKET_D;
  WriteFile(kInput, "");
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Job(), Bytes("\x1B[K\x03\0\x06\x31\x02\x1B&l2X"
                            "\x1B%-12345X@PJL ENTER LANGUAGE = PCL\n"
                            "\x1B[D\0\0\0\0A.PCL\0\0\0\0\0\0\0\0\0\0\0"
                            "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n\x1B%-12345X"));
}

// --- Methods 2 and 4: PJL files

TEST_F(DemoTest, PjlFileOfAPjlPrinter) {
  destination.flags = ZE_FLAG_PJL;
  demo.method = ZE_DEMO_PJL_FILE;
  demo.device = ZE_DEVICE_DISK1;
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Job(),
               "\x1B%-12345X@PJL ENTER LANGUAGE = PCL\n"
               "\x1B%-12345X@PJL SET LDOWNLOADTARGET = disk1\n"
               "\x1B%-12345X"
               "@PJL LOPENFILE DEVICE=disk1 FILENAME=\"A.PCL.demo\" ACCESS=WO\n"
               "@PJL LWRITEFILE DEVICE=disk1 FILENAME=\"A.PCL.demo\" START=0 \n"
               "DEMO!"
               "@PJL END DATA\n"
               "@PJL LCLOSEFILE DEVICE=disk1 FILENAME=\"A.PCL.demo\"\n"
               "\x1B%-12345X@PJL SET LDOWNLOADTARGET = ram\n"
               "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n\x1B%-12345X");
}

TEST_F(DemoTest, KeepsPjlFileCommandsForPrintersWithoutPjl) {
  demo.method = ZE_DEMO_PJL_FILE;
  destination.flags = ZE_FLAG_BRACKET_K;
  destination.deviceClass = 2;
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Job(), Bytes("\x1B[K\x03\0\x06\x31\x02"
                            "\x1B[K\x01\0\x01\x1B[K\x03\0\x06\xC0\x31"
                            "\x1B%-12345X"
                            "@PJL LOPENFILE DEVICE=flash1 FILENAME=\"A.PCL.demo\" ACCESS=WO\n"
                            "@PJL LWRITEFILE DEVICE=flash1 FILENAME=\"A.PCL.demo\" START=0 \n"
                            "DEMO!"
                            "@PJL END DATA\n"
                            "@PJL LCLOSEFILE DEVICE=flash1 FILENAME=\"A.PCL.demo\"\n"
                            "\x1B[K\x03\0\x06\xC0\x32"));
}

TEST_F(DemoTest, PjlDemoFileHasItsOwnCommandsAndNoExtension) {
  demo.method = ZE_DEMO_PJL_DEMO_FILE;
  demo.device = ZE_DEVICE_FLASH2;
  Name("show");
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Job(),
               "\x1B%-12345X@PJL LOPENDEMOFILE NAME=\"show\"\n"
               "DEMO!"
               "\x1BM@PJL LCLOSEDEMOFILE\n");
  destination.flags = ZE_FLAG_PJL;
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Job(),
               "\x1B%-12345X@PJL ENTER LANGUAGE = PCL\n"
               "\x1B%-12345X@PJL SET LDOWNLOADTARGET = flash2\n"
               "\x1B%-12345X@PJL LOPENDEMOFILE NAME=\"show\"\n"
               "DEMO!"
               "\x1BM@PJL LCLOSEDEMOFILE\n"
               "\x1B%-12345X@PJL SET LDOWNLOADTARGET = ram\n"
               "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n\x1B%-12345X");
}

// --- Method 3: bracket-D block

TEST_F(DemoTest, BracketDBlockHasAHeaderOf23Bytes) {
  demo.method = ZE_DEMO_BRACKET_D;
  demo.slot = 0xFE;
  demo.options = 0xFF;
  destination.resourceId = 0x1234;
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Job(), Bytes("\x1B[D\x00\x34\x01\xFE"
                            "A.PCL\0\0\0\0\0\0\0"
                            "\x00\x00\x00\x05"
                            "DEMO!"));
}

TEST_F(DemoTest, BracketDHeaderHasTwelveCharactersAndALargeSizeHighByteFirst) {
  demo.method = ZE_DEMO_BRACKET_D;
  demo.options = 0xFE;
  Name("abcdefghijklmno");
  const std::string page(0x12345, 'p');
  WriteFile(kInput, page);
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Job(), Bytes("\x1B[D\0\0\0\0abcdefghijkl\x00\x01\x23\x45") + page);
}

// --- The stored name

TEST_F(DemoTest, NameOf24CharactersIsCutTo23) {
  demo.method = ZE_DEMO_PJL_DEMO_FILE;
  Name("abcdefghijklmnopqrstuvwxyz0123");
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Job(),
               "\x1B%-12345X@PJL LOPENDEMOFILE NAME=\"abcdefghijklmnopqrstuvw\"\n"
               "DEMO!\x1BM@PJL LCLOSEDEMOFILE\n");
}

TEST_F(DemoTest, EmptyNameIsTheFileNameInUpperCase) {
  demo.method = ZE_DEMO_PJL_DEMO_FILE;
  std::filesystem::create_directory("folder");
  WriteFile("folder/averylongdemonstrationname.pcl", "x");
  EXPECT_EQ(ZeDemDownload("folder\\averylongdemonstrationname.pcl", kOutput, &destination, &demo),
            ZE_OK);
  EXPECT_BYTES(Job(),
               "\x1B%-12345X@PJL LOPENDEMOFILE NAME=\"AVERYLONGDEMONSTRATIONN\"\n"
               "x\x1BM@PJL LCLOSEDEMOFILE\n");
}

TEST_F(DemoTest, LongestNameFitsThePostScriptPrologue) {
  Name(std::string(23, 'n'));
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_NE(Job().find("(%flash1%" + std::string(23, 'n') + ".demo) (w)"), std::string::npos);
}

TEST_F(DemoTest, RecordIsNotChanged) {
  const ZeDemoInfo before = demo;
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_EQ(std::memcmp(&before, &demo, sizeof(demo)), 0);
}

// --- Writes

TEST_F(DemoTest, PostScriptFileGoesWithPrologueAndEpilogueInAWriteEach) {
  WriteFile(kInput, std::string(1024, 'A') + "BC");
  Name("demo1");
  std::string block;
  for (int i = 0; i < 1024; ++i) block += "41";
  UsePrinter();
  EXPECT_EQ(Send(), ZE_OK);
  ExpectWrites(
      {"statusdict begin currentfilenameextend false setfilenameextend end\n"
       "/wf (%flash1%demo1.demo) (w) file def\n"
       "/rf currentfile (ASCIIHexDecode) filter def\n"
       "{ rf read\nnot { exit } if\nwf exch write } loop\n",
       block, "4243", ">\nstatusdict begin setfilenameextend end\n"});
}

TEST_F(DemoTest, PjlFileGoesWithEachCommandInAWriteOfItsOwn) {
  destination.flags = ZE_FLAG_PJL | ZE_FLAG_BRACKET_K;
  destination.deviceClass = 2;
  destination.jobName = "Demo";
  destination.copies = 2;
  demo.method = ZE_DEMO_PJL_FILE;
  WriteFile(kInput, std::string(2049, 'd'));
  Name("show");
  UsePrinter();
  EXPECT_EQ(Send(), ZE_OK);
  ExpectWrites({Bytes("\x1B[K\x03\0\x06\x31\x02"),
                "\x1B&l2X",
                kUniversalExit,
                "@PJL RDYMSG DISPLAY = \"Demo\"\n",
                "@PJL ENTER LANGUAGE = PCL\n",
                Bytes("\x1B[K\x01\0\x01"),
                kUniversalExit,
                "@PJL SET LDOWNLOADTARGET = flash1\n",
                Bytes("\x1B[K\x03\0\x06\xC0\x31"),
                kUniversalExit,
                "@PJL LOPENFILE DEVICE=flash1 FILENAME=\"show.demo\" ACCESS=WO\n",
                "@PJL LWRITEFILE DEVICE=flash1 FILENAME=\"show.demo\" START=0 \n",
                std::string(2048, 'd'),
                "d",
                "@PJL END DATA\n",
                "@PJL LCLOSEFILE DEVICE=flash1 FILENAME=\"show.demo\"\n",
                kUniversalExit,
                "@PJL SET LDOWNLOADTARGET = ram\n",
                Bytes("\x1B[K\x03\0\x06\xC0\x32"),
                kUniversalExit,
                kClearDisplay,
                kUniversalExit});
}

TEST_F(DemoTest, BracketDHeaderIsOneWrite) {
  demo.method = ZE_DEMO_BRACKET_D;
  UsePrinter();
  EXPECT_EQ(Send(), ZE_OK);
  ExpectWrites({Bytes("\x1B[D\0\0\0\0"
                      "A.PCL\0\0\0\0\0\0\0"
                      "\x00\x00\x00\x05"),
                "DEMO!"});
}

TEST_F(DemoTest, PjlDemoFileGoesWithEachCommandInAWriteOfItsOwn) {
  demo.method = ZE_DEMO_PJL_DEMO_FILE;
  Name("show");
  UsePrinter();
  EXPECT_EQ(Send(), ZE_OK);
  ExpectWrites({kUniversalExit, "@PJL LOPENDEMOFILE NAME=\"show\"\n", "DEMO!",
                "\x1BM@PJL LCLOSEDEMOFILE\n"});
}

TEST_F(DemoTest, JobWithoutPayloadIsItsFrame) {
  demo.method = ZE_DEMO_NOTHING;
  destination.flags = ZE_FLAG_PJL;
  destination.language = ZE_LANGUAGE_PPDS;
  UsePrinter();
  EXPECT_EQ(Send(), ZE_OK);
  ExpectWrites({kUniversalExit, "@PJL ENTER LANGUAGE = PPDS\n", kUniversalExit, kClearDisplay,
                kUniversalExit});
}

// --- Failures

TEST_F(DemoTest, RefusedWriteOfEveryMethodStopsTheJobThere) {
  destination.jobName = "Demo";
  for (const std::uint32_t flags : {ZE_FLAG_PJL, ZE_FLAG_BRACKET_K}) {
    destination.flags = flags;
    for (std::int32_t method = 1; method <= 4; ++method) {
      demo.method = method;
      UseNewPrinter();
      ASSERT_EQ(Send(), ZE_OK);
      const int writes = Spooler().writes;
      EXPECT_GE(writes, 3);
      for (int failing = 1; failing <= writes; ++failing) {
        UseNewPrinter();
        Spooler().failingWrite = failing;
        EXPECT_EQ(Send(), ZE_PRINTER_WRITE_FAILED) << method << " " << failing;
        EXPECT_EQ(Spooler().writes, failing) << method;
        EXPECT_EQ(Spooler().calls.back(), "close");
      }
    }
  }
}

TEST_F(DemoTest, RefusedWriteOfAJobWithoutPayloadStopsItThere) {
  demo.method = ZE_DEMO_NOTHING;
  destination.flags = ZE_FLAG_PJL | ZE_FLAG_BRACKET_K;
  destination.language = ZE_LANGUAGE_PPDS;
  destination.jobName = "Demo";
  UsePrinter();
  ASSERT_EQ(Send(), ZE_OK);
  const int writes = Spooler().writes;
  EXPECT_EQ(writes, 7);  // language selection, header and trailer of three writes each
  for (int failing = 1; failing <= writes; ++failing) {
    UseNewPrinter();
    Spooler().failingWrite = failing;
    EXPECT_EQ(Send(), ZE_PRINTER_WRITE_FAILED) << failing;
    EXPECT_EQ(Spooler().writes, failing);
    EXPECT_EQ(Spooler().calls.back(), "close");
  }
}

TEST_F(DemoTest, DllGetsTheJobToo) {
  UseBidi();
  demo.method = ZE_DEMO_PJL_DEMO_FILE;
  Name("show");
  EXPECT_EQ(Send(), ZE_OK);
  EXPECT_BYTES(Bidi().data,
               "\x1B%-12345X@PJL LOPENDEMOFILE NAME=\"show\"\nDEMO!\x1BM@PJL LCLOSEDEMOFILE\n");
}

}  // namespace
}  // namespace zeapi::testing
