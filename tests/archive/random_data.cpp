#include "archive/random_data.h"

#include <algorithm>

namespace zeapi::testing {
namespace {

void AppendLetters(Random& random, std::size_t count, unsigned letters, std::string* data) {
  const unsigned first = Below(random, 256);
  for (; count > 0; --count) *data += static_cast<char>(first + Below(random, letters));
}

void AppendRepeat(std::size_t count, std::size_t distance, std::string* data) {
  for (; count > 0; --count) *data += (*data)[data->size() - distance];
}

}  // namespace

std::string RandomData(Random& random, unsigned most) {
  const std::size_t size = Below(random, most + 1);
  const unsigned letters = 1U << Below(random, 9);
  std::string data;
  while (data.size() < size) {
    const std::size_t left = size - data.size();
    const std::size_t length = std::min<std::size_t>(left, 1 + Below(random, 330));
    switch (Below(random, 5)) {
      case 0:
        AppendLetters(random, length, 256, &data);
        break;
      case 1:
        data.append(length, static_cast<char>(Below(random, 3) == 0 ? 0 : Below(random, 256)));
        break;
      case 2:
        if (data.empty()) break;
        AppendRepeat(length, 1 + Below(random, static_cast<unsigned>(data.size())), &data);
        break;
      case 3:
        if (data.empty()) break;
        AppendRepeat(
            length,
            1 + Below(random, static_cast<unsigned>(std::min<std::size_t>(data.size(), 20))),
            &data);
        break;
      default:
        AppendLetters(random, length, letters, &data);
    }
  }
  return data;
}

}  // namespace zeapi::testing
