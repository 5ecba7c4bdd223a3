#include "pclxl/stored_stream.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <initializer_list>

#include "base/stream.h"
#include "files/regular_file.h"
#include "pclxl/work_files.h"

namespace zeapi {
namespace {

// A row of the layout is put together here and written as a whole.
class Row {
 public:
  Row& Add(std::initializer_list<std::uint8_t> bytes) {
    return Add(std::span(bytes.begin(), bytes.size()));
  }

  Row& Add(std::span<const std::uint8_t> bytes) {
    const std::size_t count = std::min(bytes.size(), bytes_.size() - size_);
    if (count != 0) std::memcpy(bytes_.data() + size_, bytes.data(), count);
    size_ += count;
    return *this;
  }

  Row& Add32(std::uint32_t number) {
    for (unsigned shift = 0; shift < 32; shift += 8)
      Add({static_cast<std::uint8_t>(number >> shift)});
    return *this;
  }

  // An array of bytes, its count in one byte, and the identifier of its attribute.
  Row& AddArray(std::span<const std::uint8_t> bytes, std::uint8_t id) {
    return Add({0xC8, 0xC0, static_cast<std::uint8_t>(bytes.size())}).Add(bytes).Add({0xF8, id});
  }

  bool WriteTo(std::FILE* out) {
    const bool written = std::fwrite(bytes_.data(), 1, size_, out) == size_;
    size_ = 0;
    return written;
  }

 private:
  std::array<std::uint8_t, 3 + kXlLongestName + 3> bytes_;
  std::size_t size_ = 0;
};

std::span<const std::uint8_t> AsBytes(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

bool WriteSessionOpening(std::span<const std::uint8_t> opening, std::FILE* out) {
  Row row;
  return row.Add(AsBytes(kXlStreamHeader)).WriteTo(out) &&
         row.Add({0xD1, 0x58, 0x02, 0x58, 0x02, 0xF8, 0x89}).WriteTo(out) &&  // 600 units each way
         row.Add({0xC0, 0x00, 0xF8, 0x86}).WriteTo(out) &&                    // Measure: inch
         row.Add({0xC0, 0x03, 0xF8, 0x8F}).WriteTo(out) &&  // ErrorReport: channel and page
         row.Add({0x41}).WriteTo(out) &&                    // BeginSession
         row.Add({0xC0, 0x00, 0xF8, 0x88}).WriteTo(out) &&  // SourceType: default
         row.Add({0xC0, 0x01, 0xF8, 0x82}).WriteTo(out) &&  // DataOrg: low byte first
         row.Add({0x48}).WriteTo(out) &&                    // OpenDataSource
         row.AddArray(opening, 0x81).WriteTo(out) &&        // CommentData
         row.Add({0x47}).WriteTo(out);                      // Comment
}

bool WriteStreamOpening(std::string_view name, std::uint32_t dataSize, std::FILE* out) {
  Row row;
  return row.AddArray(AsBytes(name), 0x8B).WriteTo(out) &&                  // StreamName
         row.Add({0x5B}).WriteTo(out) &&                                    // BeginStream
         row.Add({0xC2}).Add32(dataSize).Add({0xF8, 0x8C}).WriteTo(out) &&  // StreamDataLength
         row.Add({0x5C}).WriteTo(out) &&                                    // ReadStream
         row.Add({0xFA}).Add32(dataSize).WriteTo(out) &&                    // embedded data
         row.Add(AsBytes(kXlStreamHeader)).WriteTo(out);
}

XlResult CopyPageBody(std::uint32_t size, std::FILE* out) {
  const Stream body(OpenRegularFile(kXlPageFile, "rb"));
  if (body == nullptr) return kXlFile;
  std::array<std::uint8_t, 1024> block;
  while (size != 0) {
    const std::size_t count = std::min<std::size_t>(size, block.size());
    if (std::fread(block.data(), 1, count, body.get()) < count) return kXlFile;
    if (std::fwrite(block.data(), 1, count, out) < count) return kXlEnd;
    size -= static_cast<std::uint32_t>(count);
  }
  return kXlOk;
}

bool WriteExecutingPage(std::string_view name, std::FILE* out) {
  Row row;
  // Orientation: portrait; MediaSize: letter; MediaSource: automatic; BeginPage
  row.Add({0xC0, 0x00, 0xF8, 0x28, 0xC0, 0x00, 0xF8, 0x25, 0xC0, 0x01, 0xF8, 0x26, 0x43});
  return row.WriteTo(out) &&
         row.AddArray(AsBytes(name), 0x8B).Add({0x5E}).WriteTo(out) &&  // ExecStream
         row.Add({0xC1, 0x01, 0x00, 0xF8, 0x31, 0x44}).WriteTo(out);    // one copy; EndPage
}

bool WriteSessionEnd(std::FILE* out) {
  Row row;
  return row.Add({0x49}).WriteTo(out) && row.Add({0x42}).WriteTo(out);  // data source, session
}

}  // namespace

XlResult XlWriteStoredStream(std::string_view name, std::span<const std::uint8_t> opening,
                             std::uint32_t bodySize, bool execute, std::FILE* out) {
  const auto dataSize = static_cast<std::uint32_t>(bodySize + kXlStreamHeader.size());
  if (!WriteSessionOpening(opening, out) || !WriteStreamOpening(name, dataSize, out)) return kXlEnd;
  const XlResult copied = CopyPageBody(bodySize, out);
  if (copied != kXlOk) return copied;
  Row row;
  if (!row.Add({0x5D}).WriteTo(out)) return kXlEnd;  // EndStream
  if (execute && !WriteExecutingPage(name, out)) return kXlEnd;
  return WriteSessionEnd(out) ? kXlOk : kXlEnd;
}

}  // namespace zeapi
