// Demos and macros whose file cannot be read on in its middle: the job to the byte. What was read
// before has been sent, and the job is ended as if the file ended there; the result tells.
#include "fault/macro_and_demo_case.h"

namespace zeapi::testing {
namespace {

constexpr char kStart[] = "\x1B%-12345X@PJL ENTER LANGUAGE = ";
constexpr char kEnd[] = "\x1B%-12345X@PJL RDYMSG DISPLAY = \"\"\n\x1B%-12345X";
constexpr char kTargetDisk[] = "\x1B%-12345X@PJL SET LDOWNLOADTARGET = disk1\n";
constexpr char kTargetRam[] = "\x1B%-12345X@PJL SET LDOWNLOADTARGET = ram\n";

class ReadErrorTest : public MacroAndDemoTest {
 protected:
  void SetUp() override {
    MacroAndDemoTest::SetUp();
    for (int i = 0; i < 5000; ++i) text += static_cast<char>('a' + i % 26);
    WriteFile("file", text);
  }

  // Fails each read of the file in turn: `block` bytes of it have been sent for each read before.
  void FailEachRead(std::size_t block, const std::function<std::uint32_t()>& call,
                    const std::function<std::string(const std::string& sent)>& job) {
    std::size_t reads = 0;
    FailEach(
        "fread", [] { fs::remove(kOutput); }, call,
        [&](std::uint32_t result) {
          EXPECT_EQ(result, ZE_READ_FAILED);
          EXPECT_BYTES(Job(), job(text.substr(0, reads++ * block)));
        });
    EXPECT_EQ(reads, text.size() / block + 1) << "each read of the file failed once";
  }
  void FailEachReadOfDemo(std::int32_t method,
                          const std::function<std::string(const std::string& sent)>& job) {
    demo.method = method;
    const std::size_t block = method == ZE_DEMO_POSTSCRIPT ? 1024 : 2048;
    FailEachRead(
        block, [&] { return TRIED(ZeDemDownload)("file", kOutput, &destination, &demo); }, job);
  }
  void FailEachReadOfMacro(std::int32_t mode, std::uint32_t wrap,
                           const std::function<std::string(const std::string& sent)>& job) {
    FailEachRead(
        2048,
        [&] { return TRIED(ZeMacDownload)("file", kOutput, &destination, &macro, mode, wrap); },
        job);
  }

  std::string text;
};

// --- Demos

TEST_F(ReadErrorTest, DemoAsPostScriptFile) {
  FailEachReadOfDemo(ZE_DEMO_POSTSCRIPT, [](const std::string& sent) {
    std::string hex;
    for (const char c : sent) {
      hex += "0123456789ABCDEF"[static_cast<unsigned char>(c) >> 4];
      hex += "0123456789ABCDEF"[c & 15];
    }
    return std::string(kStart) +
           "POSTSCRIPT\n"
           "statusdict begin currentfilenameextend false setfilenameextend end\n"
           "/wf (%disk1%FILE.demo) (w) file def\n"
           "/rf currentfile (ASCIIHexDecode) filter def\n"
           "{ rf read\nnot { exit } if\nwf exch write } loop\n" +
           hex + ">\nstatusdict begin setfilenameextend end\n" + kEnd;
  });
}

TEST_F(ReadErrorTest, DemoAsPjlFile) {
  FailEachReadOfDemo(ZE_DEMO_PJL_FILE, [](const std::string& sent) {
    return std::string(kStart) + "PCL\n" + kTargetDisk + kUniversalExit +
           "@PJL LOPENFILE DEVICE=disk1 FILENAME=\"FILE.demo\" ACCESS=WO\n"
           "@PJL LWRITEFILE DEVICE=disk1 FILENAME=\"FILE.demo\" START=0 \n" +
           sent +
           "@PJL END DATA\n"
           "@PJL LCLOSEFILE DEVICE=disk1 FILENAME=\"FILE.demo\"\n" +
           kTargetRam + kEnd;
  });
}

// The header has announced the whole file.
TEST_F(ReadErrorTest, DemoAsBracketDBlock) {
  demo.slot = 3;
  FailEachReadOfDemo(ZE_DEMO_BRACKET_D, [](const std::string& sent) {
    return std::string(kStart) + "PCL\n" +
           Bytes(
               "\x1B[D\0\x0C\0\3"
               "FILE\0\0\0\0\0\0\0\0"
               "\0\0\x13\x88") +
           sent + kEnd;
  });
}

TEST_F(ReadErrorTest, DemoAsPjlDemoFile) {
  FailEachReadOfDemo(ZE_DEMO_PJL_DEMO_FILE, [](const std::string& sent) {
    return std::string(kStart) + "PCL\n" + kTargetDisk + kUniversalExit +
           "@PJL LOPENDEMOFILE NAME=\"FILE\"\n" + sent + "\x1BM@PJL LCLOSEDEMOFILE\n" + kTargetRam +
           kEnd;
  });
}

// --- Macros

TEST_F(ReadErrorTest, MacroPrintedOnce) {
  FailEachReadOfMacro(ZE_MACRO_PRINT_ONCE, ZE_MACRO_WRAPPED, [](const std::string& sent) {
    return std::string(kStart) + "PCL\n\x1B&f12y0X" + sent +
           "\x1B&f1X\x1B&f12y4X\xFF\x0C\x1B&f12y5X" + kEnd;
  });
}

TEST_F(ReadErrorTest, MacroStored) {
  FailEachReadOfMacro(ZE_MACRO_STORE, ZE_MACRO_WRAPPED, [](const std::string& sent) {
    return std::string(kStart) + "PCL\n" + kTargetDisk + "\x1B&f12y0X" + sent +
           "\x1B&f1X\x1B&f12y10X" + kTargetRam +
           "@PJL DEFAULT LRESOURCE:\"disk1:12.p5macro\" LDESCRIPTION = \"FILE\"\n" + kEnd;
  });
}

TEST_F(ReadErrorTest, MacroStoredAsPostScriptFile) {
  destination.language = ZE_LANGUAGE_POSTSCRIPT;
  FailEachReadOfMacro(ZE_MACRO_STORE, ZE_MACRO_WRAPPED, [](const std::string& sent) {
    return std::string(kStart) +
           "POSTSCRIPT\n"
           "/writefile (%disk1%FILE) (w) file def\n"
           "{ currentfile read\nnot { exit } if dup 1 eq { pop exit } if\n"
           "writefile exch write } loop\n" +
           sent + "\x01\n" + kEnd;
  });
}

TEST_F(ReadErrorTest, MacroSentRaw) {
  FailEachReadOfMacro(ZE_MACRO_RAW, ZE_MACRO_UNWRAPPED, [](const std::string& sent) {
    return std::string(kStart) + "PCL\n" + kTargetDisk + sent + "\x1B&f12y10X" + kTargetRam + kEnd;
  });
}

TEST_F(ReadErrorTest, PclXlMacroSentRaw) {
  destination.language = ZE_LANGUAGE_PCLXL;
  FailEachReadOfMacro(ZE_MACRO_RAW, ZE_MACRO_UNWRAPPED, [](const std::string& sent) {
    return std::string(kStart) +
           "PCL\n@PJL SET LDOWNLOADTARGET = disk1\n@PJL ENTER LANGUAGE = PCLXL\n" + sent +
           kTargetRam + kEnd;
  });
}

TEST_F(ReadErrorTest, MacroCreated) {
  FailEachRead(
      2048, [&] { return TRIED(ZeMacCreate)("file", kOutput, &destination, &macro); },
      [](const std::string& sent) { return "\x1B&f12y0X" + sent; });
}

}  // namespace
}  // namespace zeapi::testing
