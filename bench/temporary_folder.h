// A folder of the benchmark's own, in $TMPDIR or /tmp, that is removed afterwards.
#pragma once

#include <cstdint>
#include <string>

namespace zeapi::bench {

class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string File(const char* name) const { return path_ + "/" + name; }

  // Makes a folder for drive C, where the debug log then goes; returns the log's path on the host.
  std::string MakeDriveC() const;

 private:
  std::string path_;
};

// Fills a new file with bytes that have no pattern.
void WriteNoise(const std::string& path, std::int64_t size);

}  // namespace zeapi::bench
