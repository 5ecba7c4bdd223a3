// Stands in for the fuzzing engine: runs a target once on each file that is named, or that lies in
// a folder that is named. So seeds and past findings are replayed by any compiler, under whatever
// sanitizers the build has.

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <vector>

#include "support/target.h"

namespace fs = std::filesystem;

namespace {

std::vector<fs::path> InputsOf(int count, char** arguments) {
  std::vector<fs::path> inputs;
  for (int i = 1; i < count; ++i) {
    if (fs::is_directory(arguments[i])) {
      for (const fs::directory_entry& entry : fs::directory_iterator(arguments[i]))
        inputs.push_back(entry.path());
    } else {
      inputs.emplace_back(arguments[i]);
    }
  }
  std::sort(inputs.begin(), inputs.end());
  return inputs;
}

// The input lies in a block of exactly its size, so that a sanitizer sees every read beyond it.
bool Run(const fs::path& input) {
  std::ifstream file(input, std::ios::binary);
  std::error_code failed;
  const std::size_t size = fs::file_size(input, failed);
  if (!file || failed) return false;
  const std::unique_ptr<std::uint8_t[]> data(new std::uint8_t[size]);
  if (!file.read(reinterpret_cast<char*>(data.get()), static_cast<std::streamsize>(size)))
    return false;
  // Said before, so that the last line of a failed run names its input.
  std::printf("%s\n", input.c_str());
  std::fflush(stdout);
  LLVMFuzzerTestOneInput(data.get(), size);
  return true;
}

}  // namespace

int main(int count, char** arguments) {
  const std::vector<fs::path> inputs = InputsOf(count, arguments);
  for (const fs::path& input : inputs) {
    if (!Run(input)) {
      std::fprintf(stderr, "cannot read %s\n", input.c_str());
      return 2;
    }
  }
  if (inputs.empty()) {
    std::fprintf(stderr, "no inputs\n");
    return 2;
  }
  return 0;
}
