// The record format that printer alerts share: a header, keys that declare the layout of the element
// headers, and a tree of elements. All numbers are big-endian.
//
// Nothing is read beyond the record. What a record promises and does not hold cuts it short: from then
// on nothing more is read and every value is 0.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "base/byte_reader.h"

namespace zeapi {

// What every element begins with.
struct AlertElement {
  std::int32_t id = 0;
  std::int32_t type = 0;  // kAlertContainer, kAlertInteger, kAlertText; others have no content
};

inline constexpr std::int32_t kAlertContainer = 0;
inline constexpr std::int32_t kAlertInteger = 1;
inline constexpr std::int32_t kAlertText = 2;

class ZeAlertParser {
 public:
  // Copies the record at `buffer` (its first two bytes say how long it is) and reads header and keys.
  explicit ZeAlertParser(const void* buffer);
  ZeAlertParser(const ZeAlertParser&) = delete;
  ZeAlertParser& operator=(const ZeAlertParser&) = delete;

  // Bytes of the record not read yet; 0 once it was cut short.
  int BytesLeft() const;
  bool Ended() const { return BytesLeft() == 0; }
  // True when the record ended before something that it promised.
  bool CutShort() const { return cutShort_ || !reader_.ok(); }
  void CutShortHere() { cutShort_ = true; }

  AlertElement ReadElement();

  // The rest of an element, one of these: its children follow and their number is the result; its
  // number; its bytes; or nothing of interest.
  std::int32_t EnterContainer();
  std::int32_t ReadInteger();
  std::span<const std::uint8_t> ReadBytes();
  void Skip(const AlertElement& element);

 private:
  struct Field {
    int definition;
    std::int32_t length;
  };
  struct ContainerHeader {
    std::int32_t childCount = 0;
    std::int32_t length = 0;
  };

  void ReadKeys();
  void ReadKey(int key, std::string_view text);
  std::int32_t ReadField(std::int32_t length);
  std::span<const std::uint8_t> Take(std::int32_t length);
  ContainerHeader ReadContainerHeader();
  template <typename TakeData>
  void ReadDataHeader(TakeData takeData);

  std::vector<std::uint8_t> copy_;
  ByteReader reader_;
  std::array<std::vector<Field>, 3> keys_;
  bool cutShort_ = false;
};

// Reads `childCount` children; `visit(number, element)` takes the rest of each (number from 1) and
// says false to cut the record short. `done()` comes after each child.
template <typename Visit, typename Done>
void ForEachAlertChild(ZeAlertParser& parser, std::int32_t childCount, Visit visit, Done done) {
  for (std::int32_t number = 1; number <= childCount && !parser.Ended(); ++number) {
    const int before = parser.BytesLeft();
    const AlertElement element = parser.ReadElement();
    if (parser.CutShort()) return;
    // A child without a single byte could be repeated for ever.
    if (!visit(number, element) || parser.BytesLeft() == before) parser.CutShortHere();
    done();
  }
}

}  // namespace zeapi
