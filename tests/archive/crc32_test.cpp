#include "archive/crc32.h"

#include <gtest/gtest.h>

#include "archive/memory_io.h"
#include "archive/random_data.h"
#include "archive/zip_builder.h"
#include "platform/crc32_fold.h"

namespace zeapi::testing {
namespace {

std::uint32_t Crc(std::string_view text) {
  Crc32 crc;
  crc.Update(AsBytes(text));
  return crc.Value();
}

TEST(Crc32, KnownValues) {
  EXPECT_EQ(Crc(""), 0U);
  EXPECT_EQ(Crc("123456789"), 0xCBF43926U);
  EXPECT_EQ(Crc(std::string(32, '\0')), 0x190A55ADU);
}

TEST(Crc32, EveryLengthAtEveryPlace) {
  Random random(31);
  std::string noise;
  for (int i = 0; i < 600; ++i) noise += static_cast<char>(Below(random, 256));
  for (std::size_t start = 0; start < 20; ++start) {
    for (std::size_t size = 0; size < 400; ++size) {
      const std::string_view text = std::string_view(noise).substr(start, size);
      const std::uint32_t expected = CrcOf(text);
      ASSERT_EQ(Crc(text), expected) << start << ' ' << size;
      ASSERT_EQ(~Crc32WithTables(0xFFFFFFFF, AsBytes(text)), expected);
    }
  }
}

TEST(Crc32, PiecesAddUp) {
  Random random(32);
  for (int i = 0; i < 300; ++i) {
    const std::string text = RandomData(random, 3000);
    Crc32 crc;
    for (std::string_view rest = text; !rest.empty();) {
      const std::string_view piece = rest.substr(0, 1 + Below(random, 500));
      crc.Update(AsBytes(piece));
      rest.remove_prefix(piece.size());
    }
    ASSERT_EQ(crc.Value(), CrcOf(text));
  }
}

TEST(Crc32, BothWaysAgree) {
  if (!platform::CanFoldCrc32()) GTEST_SKIP() << "this processor has no carry-less multiplication";
  Random random(33);
  for (int i = 0; i < 1000; ++i) {
    const std::string text = RandomData(random, 1000);
    const auto start = static_cast<std::uint32_t>(random()) * 3;
    ASSERT_EQ(Crc32ByFolding(start, AsBytes(text)), Crc32WithTables(start, AsBytes(text)));
  }
}

}  // namespace
}  // namespace zeapi::testing
