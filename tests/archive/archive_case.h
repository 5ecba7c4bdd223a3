// An archive in a fresh folder, extracted there.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "archive/zip_builder.h"
#include "support/bytes.h"
#include "support/scratch.h"
#include "zeapi.h"

namespace zeapi::testing {

class ArchiveTest : public ScratchTest {
 protected:
  struct Progress {
    std::string name;
    std::uint32_t compressedSize;
    std::uint32_t percentage;
  };

  void SetUp() override;

  static constexpr char kArchive[] = "../test.zip";  // beside the folder, which stays empty

  std::uint32_t Explode(const ZipArchive& archive, const char* pattern = nullptr);
  std::uint32_t ExplodeBytes(const std::string& bytes, const char* pattern = nullptr);
  // With a callback, which fills progress().
  std::uint32_t ExplodeTold(const ZipArchive& archive, const char* pattern = nullptr);
  static const std::vector<Progress>& progress() { return progress_; }
  static void ClearProgress() { progress_.clear(); }

  // Removes all that is below the current directory.
  static void Empty();
  // Everything below it: "a/b=content" of files, "a/" of folders, sorted.
  static std::vector<std::string> Tree();

 private:
  static void WriteArchive(const std::string& bytes);
  static std::uint32_t ZEAPI_CALL OnProgress(const char* name, std::uint32_t compressedSize,
                                             std::uint32_t percentage);
  static std::vector<Progress> progress_;
};

using Names = std::vector<std::string>;

}  // namespace zeapi::testing
