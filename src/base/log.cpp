#include "base/log.h"

#include <cstdio>

#include "platform/files.h"

namespace zeapi {

void ZeLog(const char* module, unsigned line, const char* message) {
  std::FILE* log = platform::OpenLogStream(kLogPath);
  if (log == nullptr) return;
  std::fprintf(log, "%s (%u): %s\n", module, line, message);
  std::fclose(log);
}

}  // namespace zeapi
