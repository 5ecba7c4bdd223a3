#include "archive/confirmation.h"

#include "platform/standard_input.h"

namespace zeapi {

bool Confirmed() {
  char answer = '\0';
  char c = '\0';
  for (int count = 0; count < kLongestAnswer && c != '\n'; ++count) {
    if (!platform::StandardInputByte(&c)) break;
    if (count == 0) answer = c;
  }
  return answer == 'y' || answer == 'Y';
}

}  // namespace zeapi
