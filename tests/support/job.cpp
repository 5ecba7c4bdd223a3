#include "support/job.h"

namespace zeapi::testing {

std::vector<std::string> FileOpenLines() {
  return {".\\ZeQue (946): +GenQueOpen", ".\\ZeQue (1201): Attempt to use Win32 Printer",
          ".\\ZeQue (1228): OpenPrinter FAILED!", ".\\ZeQue (1232): Default: use file i/o",
          ".\\ZeQue (1360): -GenQueOpen"};
}

std::vector<std::string> FileWriteLines() {
  return {".\\ZeQue (1569): +GenQueWrite", ".\\ZeQue (1597): fwrite",
          ".\\ZeQue (1761): -GenQueWrite"};
}

std::vector<std::string> FileCloseLines() {
  return {".\\ZeQue (1391): +GenQueClose", ".\\ZeQue (1424): fclose",
          ".\\ZeQue (1509): -GenQueClose"};
}

std::vector<std::string> operator+(std::vector<std::string> lines,
                                   const std::vector<std::string>& more) {
  lines.insert(lines.end(), more.begin(), more.end());
  return lines;
}

}  // namespace zeapi::testing
