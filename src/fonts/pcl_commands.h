// The escape sequences of a PCL stream with a number in them, one by one.
#pragma once

#include <cstdint>
#include <cstdio>
#include <vector>

namespace zeapi {

// Two characters after ESC, a number and the letter that ends it. Joined sequences are told apart:
// "ESC *c 1 d 65 E" is "*c1D" and "*c65E".
struct PclCommand {
  char parameter = 0;
  char group = 0;
  std::uint32_t value = 0;  // without its sign and fraction; limited to 65535
  char letter = 0;          // upper case

  bool Is(char parameterWanted, char groupWanted, char letterWanted) const {
    return parameter == parameterWanted && group == groupWanted && letter == letterWanted;
  }
  // True when as many bytes of data follow as the value says.
  bool HasData() const { return letter == 'W' || Is('&', 'p', 'X'); }
};

class PclCommands {
 public:
  // Reads where the stream stands; `size` bytes are left in the file.
  PclCommands(std::FILE* stream, std::uint32_t size) : stream_(stream), left_(size) {}

  // The next sequence; what stands between sequences is passed over. False at the end.
  bool Next(PclCommand* command);

  // The data that follow a command. False when the file ends within them.
  bool ReadData(const PclCommand& command, std::vector<std::uint8_t>* data);
  bool SkipData(const PclCommand& command);

 private:
  int Get();
  bool BeginSequence();
  bool ReadNumber(PclCommand* command);

  std::FILE* stream_;
  std::uint32_t left_;
  PclCommand sequence_;  // the one that goes on
  bool joined_ = false;
};

}  // namespace zeapi
