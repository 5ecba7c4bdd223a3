#include "support/target.h"

#include <fcntl.h>

#include <cstdio>
#include <cstdlib>

namespace zeapi::fuzz {

void Check(bool holds, const char* promise) {
  if (holds) return;
  std::fprintf(stderr, "Broken: %s\n", promise);
  std::abort();
}

int OpenDescriptors() {
  constexpr int kHighest = 32;
  int open = 0;
  for (int descriptor = 0; descriptor < kHighest; ++descriptor)
    open += fcntl(descriptor, F_GETFD) >= 0;
  return open;
}

}  // namespace zeapi::fuzz
