// Ownership of C streams inside the library.
#pragma once

#include <cstdio>
#include <memory>

namespace zeapi {

struct StreamCloser {
  void operator()(std::FILE* stream) const { std::fclose(stream); }
};

// Closes the stream at the end of its scope. Where the result of closing counts, release() it
// first.
using Stream = std::unique_ptr<std::FILE, StreamCloser>;

}  // namespace zeapi
