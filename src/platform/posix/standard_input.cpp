#include "platform/standard_input.h"

#include <poll.h>
#include <unistd.h>

namespace zeapi::platform {

bool StandardInputByte(char* byte) {
  pollfd input = {STDIN_FILENO, POLLIN, 0};
  return isatty(STDIN_FILENO) == 0 && poll(&input, 1, 0) == 1 && (input.revents & POLLIN) != 0 &&
         read(STDIN_FILENO, byte, 1) == 1;
}

}  // namespace zeapi::platform
