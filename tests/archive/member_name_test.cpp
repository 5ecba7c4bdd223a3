#include "archive/member_name.h"

#include "support/bytes.h"

namespace zeapi::testing {
namespace {

TEST(MapMemberName, Separators) {
  EXPECT_BYTES(MapMemberName("a/b\\c"), "a/b/c");
  EXPECT_BYTES(MapMemberName("/a//b/"), "/a//b/");
}

TEST(MapMemberName, CharactersOfTheirOwn) {
  EXPECT_BYTES(MapMemberName("a b"), "a b");
  EXPECT_BYTES(MapMemberName("c:x"), "c_x");
  EXPECT_BYTES(MapMemberName("name.txt;1"), "name.txt");
  EXPECT_BYTES(MapMemberName("a<b/c>d"), "ad");
  EXPECT_BYTES(MapMemberName("a[b;c]d"), "ad");
  EXPECT_BYTES(MapMemberName("a<b"), "a");
  EXPECT_BYTES(MapMemberName("a[b"), "a");
  EXPECT_BYTES(MapMemberName("a>b]c"), "a>b]c");
}

TEST(MapMemberName, Character22TakesTheNextAsItIs) {
  EXPECT_BYTES(MapMemberName("a\x16:b\x16;c\x16<d\x16[e"), "a:b;c<d[e");
  EXPECT_BYTES(MapMemberName("a\x16\x01"
                             "b\x16\x16"),
               "a\x01"
               "b\x16");
  EXPECT_BYTES(MapMemberName("a\x16"), "a");
  EXPECT_BYTES(MapMemberName(Bytes("a\x16\0b")), "a");
}

TEST(MapMemberName, PrintableAndHighCharactersStay) {
  std::string kept;
  for (int c = 1; c < 256; ++c) {
    const std::string one(1, static_cast<char>(c));
    const std::string mapped = MapMemberName(one + "x");
    if (mapped == one + "x") kept += one;
  }
  std::string expected;
  for (int c = 32; c < 255; ++c) {
    if (c < 127 || c > 127) expected += static_cast<char>(c);
  }
  for (const char c : std::string(":;<[\\")) expected.erase(expected.find(c), 1);
  EXPECT_BYTES(kept, expected);
  EXPECT_BYTES(MapMemberName(Bytes("a\0b\x7F\xFF")), "ab");
}

struct Local {
  const char* mapped;
  const char* folder;
  const char* file;
  bool dropped;
  bool usable;
};

constexpr Local kLocals[] = {
    {"a", "", "a", false, true},
    {"a/b/c", "a/b/", "c", false, true},
    {"a/b/", "a/b/", "", false, true},
    {"a//b", "a/", "b", false, true},
    {"./a/./b", "a/", "b", false, true},
    {"./", "", "", false, true},
    // leaving the tree
    {"../a", "", "a", true, true},
    {"a/../../b", "a/", "b", true, true},
    {"/etc/passwd", "etc/", "passwd", true, true},
    {"//server/share/x", "server/share/", "x", true, true},
    {"/", "", "", true, true},
    {"../", "", "", true, true},
    {"a\\..\\b", "a/", "b", true, true},
    {"\\a", "", "a", true, true},
    {"c:x", "", "c_x", false, true},
    {"c:\\x", "c_/", "x", false, true},
    {"file:stream", "", "file_stream", false, true},
    // nothing is left
    {"", "", "", false, false},
    {"..", "", "", true, false},
    {".", "", "", false, false},
    {"a/..", "a/", "", true, false},
    // dots and blanks
    {"...", "", "___", false, true},
    {".. ", "", "___", false, true},
    {".. /x", "___/", "x", false, true},
    {"a. ./b.", "a___/", "b_", false, true},
    {" a .b", "", " a .b", false, true},
    {".profile", "", ".profile", false, true},
    {" ", "", "_", false, true},
    // devices
    {"CON", "", "_CON", false, true},
    {"con", "", "_con", false, true},
    {"nul.tar.gz", "", "_nul.tar.gz", false, true},
    {"LPT1.txt", "", "_LPT1.txt", false, true},
    {"com0/x", "_com0/", "x", false, true},
    {"COM\xB9", "", "_COM\xB9", false, true},
    {"COM\xC2\xB3.x", "", "_COM\xC2\xB3.x", false, true},
    {"Aux .c", "", "_Aux .c", false, true},
    {"prn", "", "_prn", false, true},
    {"conin$", "", "_conin$", false, true},
    {"CONOUT$", "", "_CONOUT$", false, true},
    {"clock$", "", "_clock$", false, true},
    {"CONS", "", "CONS", false, true},
    {"LPT", "", "LPT", false, true},
    {"LPT10", "", "LPT10", false, true},
    {"COMA", "", "COMA", false, true},
    {"CON ", "", "CON_", false, true},
};

TEST(MakeLocal, Table) {
  for (const Local& expected : kLocals) {
    SCOPED_TRACE(expected.mapped);
    const LocalName local = MakeLocal(expected.mapped);
    EXPECT_EQ(local.folder, expected.folder);
    EXPECT_EQ(local.file, expected.file);
    EXPECT_EQ(local.dropped, expected.dropped);
    EXPECT_EQ(local.usable, expected.usable);
  }
}

}  // namespace
}  // namespace zeapi::testing
