#include "fonts/pcl_commands.h"

#include <algorithm>

#include "fonts/font_stream.h"

namespace zeapi {
namespace {

constexpr int kEscape = 0x1B;
constexpr std::uint32_t kLargestValue = 65535;

bool IsBetween(int c, int low, int high) { return c >= low && c <= high; }

}  // namespace

int PclCommands::Get() {
  const int c = std::getc(stream_);
  if (c == EOF) {
    left_ = 0;
  } else if (left_ > 0) {
    --left_;
  }
  return c;
}

// Finds the next sequence that may have a number. False at the end.
bool PclCommands::BeginSequence() {
  int c = Get();
  while (c != EOF) {
    if (c != kEscape) {
      c = Get();
      continue;
    }
    c = Get();
    if (!IsBetween(c, '!', '/')) continue;
    sequence_ = {};
    sequence_.parameter = static_cast<char>(c);
    c = Get();
    if (!IsBetween(c, '`', '~')) continue;
    sequence_.group = static_cast<char>(c);
    return true;
  }
  return false;
}

// False when the sequence breaks off.
bool PclCommands::ReadNumber(PclCommand* command) {
  *command = sequence_;
  bool fraction = false;
  for (int c = Get(); c != EOF; c = Get()) {
    if (c >= '0' && c <= '9') {
      if (fraction) continue;
      command->value =
          std::min(command->value * 10 + static_cast<std::uint32_t>(c - '0'), kLargestValue);
    } else if (c == '.') {
      fraction = true;
    } else if (IsBetween(c, '@', '^')) {
      command->letter = static_cast<char>(c);
      joined_ = false;
      return true;
    } else if (IsBetween(c, '`', '~')) {
      command->letter = static_cast<char>(c - 'a' + 'A');
      joined_ = true;
      return true;
    } else if (c != '+' && c != '-' && c != ' ') {
      if (c == kEscape) {
        std::ungetc(c, stream_);
        ++left_;
      }
      break;
    }
  }
  joined_ = false;
  return false;
}

bool PclCommands::Next(PclCommand* command) {
  while (joined_ || BeginSequence()) {
    if (ReadNumber(command)) return true;
  }
  return false;
}

bool PclCommands::ReadData(const PclCommand& command, std::vector<std::uint8_t>* data) {
  if (command.value > left_) return false;
  data->resize(command.value);
  left_ -= command.value;
  return ReadUpTo(stream_, *data).size() == data->size();
}

bool PclCommands::SkipData(const PclCommand& command) {
  if (command.value > left_) return false;
  left_ -= command.value;
  return std::fseek(stream_, static_cast<long>(command.value), SEEK_CUR) == 0;
}

}  // namespace zeapi
