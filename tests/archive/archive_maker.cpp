// Writes an archive of members that the encoders of these tests have packed, and beside it the plain
// files, for other programs to read: archive_maker ARCHIVE FOLDER.

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "archive/implode_encoder.h"
#include "archive/reduce_encoder.h"
#include "archive/shrink_encoder.h"
#include "archive/zip_builder.h"

namespace zeapi::testing {
namespace {

std::string PlainOf(unsigned size, Random& random) {
  std::string plain;
  while (plain.size() < size) plain += RandomData(random, size);
  return plain;
}

ZipArchive Packed() {
  Random random(71);
  ZipArchive archive;
  for (int i = 0; i < 40; ++i) {
    const std::string number = std::to_string(i);
    const std::string plain = PlainOf(i == 20 ? 60000U : 1U << (4 + i % 10), random);
    archive.members.push_back({"stored" + number, plain});
    const ShrinkHabits late = {0, i % 3 == 0 ? 3000U : 0U, 0};
    archive.members.push_back({"shrunk" + number, plain, 1, Shrink(plain, late, random)});
    const ShrinkHabits early = {700, 0, 0};
    archive.members.push_back({"cleared" + number, plain, 1, Shrink(plain, early, random)});
    for (std::uint16_t factor = 1; factor <= 4; ++factor) {
      const auto method = static_cast<std::uint16_t>(factor + 1);
      archive.members.push_back({"reduced" + std::to_string(factor) + "_" + number, plain, method,
                                 Reduce(plain, factor, {}, random)});
    }
    for (std::uint16_t flags = 0; flags <= 6; flags = static_cast<std::uint16_t>(flags + 2)) {
      const ImplodeForm form = {(flags & 4) != 0, (flags & 2) != 0};
      archive.members.push_back({"imploded" + std::to_string(flags) + "_" + number, plain, 6,
                                 Implode(plain, form, static_cast<TreeShape>(i % 3), random),
                                 flags});
    }
  }
  return archive;
}

int Write(const char* path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return file.flush() ? 0 : 1;
}

}  // namespace
}  // namespace zeapi::testing

int main(int count, char** arguments) {
  if (count != 3) return 2;
  const zeapi::testing::ZipArchive archive = zeapi::testing::Packed();
  int failures = zeapi::testing::Write(arguments[1], archive.Bytes());
  std::filesystem::create_directories(arguments[2]);
  for (const auto& member : archive.members) {
    const std::string path = std::string(arguments[2]) + "/" + member.name;
    failures += zeapi::testing::Write(path.c_str(), member.plain);
  }
  return failures == 0 ? 0 : 1;
}
