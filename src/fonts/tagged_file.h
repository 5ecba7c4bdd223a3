// The directory of a tagged font metrics file and the values that it leads to.
#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "base/byte_reader.h"

namespace zeapi {

class TaggedFile {
 public:
  explicit TaggedFile(std::span<const std::uint8_t> file) : file_(file) {}

  // Reads the first directory; the first entry of a tag counts. False when it is not such a file.
  bool ReadDirectory();

  // The only or first value of a tag; of a rational its whole part. 0 when there is none.
  std::int64_t Number(unsigned tag) const;

  // Empty when there is none.
  std::string Text(unsigned tag) const;

  // All values of a tag whose values have 16 bits each; of another tag, none.
  std::vector<std::uint16_t> Words(unsigned tag) const;

  // The bytes of a tag as they are in the file; of a tag that is not there, none. (No tag runs past
  // the end: ReadDirectory() refuses such a file.) Read them with U16() and U32(), which know the byte
  // order.
  std::span<const std::uint8_t> Bytes(unsigned tag) const;
  std::uint16_t U16(ByteReader* reader) const;
  std::uint32_t U32(ByteReader* reader) const;

  std::span<const std::uint8_t> all() const { return file_; }

 private:
  struct Entry {
    std::uint16_t type;
    std::span<const std::uint8_t> bytes;
  };

  const Entry* Find(unsigned tag) const;

  std::span<const std::uint8_t> file_;
  bool bigEndian_ = false;
  std::map<std::uint16_t, Entry> entries_;
};

}  // namespace zeapi
