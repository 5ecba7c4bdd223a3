// PCL XL: the listing of any file, and the stream fixup of any job.
//
// Input: a line of numbers (0 listing, 1 fixup; execute), a line with the name of the stream, the
// job.

#include <filesystem>
#include <string>

#include "base/stream.h"
#include "pclxl/list_stream.h"
#include "pclxl/stream_fixup.h"
#include "support/input.h"
#include "support/private_drives.h"
#include "support/target.h"

namespace zeapi::fuzz {
namespace {

// The work files are in the current directory; the engine has its files there too.
class InFolder {
 public:
  explicit InFolder(const std::filesystem::path& folder)
      : before_(std::filesystem::current_path()) {
    std::filesystem::current_path(folder);
  }
  ~InFolder() { std::filesystem::current_path(before_); }
  InFolder(const InFolder&) = delete;
  InFolder& operator=(const InFolder&) = delete;

 private:
  std::filesystem::path before_;
};

class CountingSink final : public XlListingSink {
 public:
  void Text(std::string_view text) override { size += text.size(); }
  std::size_t size = 0;
};

void List(const std::string& job) {
  const Stream file(std::fopen("job", "rb"));
  CountingSink sink;
  const XlListed listed = XlListStream(file.get(), &sink);
  Check(listed.operatorCount >= 0, "operators are counted from 0");
  Check(static_cast<std::size_t>(listed.operatorCount) <= job.size(), "an operator is a byte");
  // One byte may make a row of its own or a long name, and attributes count once for each byte.
  Check(sink.size <= 200 + 200 * job.size(), "the listing is bounded by its input");
  const XlListed quiet = XlListStream(file.get(), nullptr);
  Check(quiet.walk == listed.walk, "a quiet walk ends as one that lists");
  Check(quiet.operatorCount == listed.operatorCount, "and meets as many operators");
}

std::uint32_t Number32(std::string_view bytes, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t i = 4; i-- > 0;)
    number = number << 8 | static_cast<unsigned char>(bytes[at + i]);
  return number;
}

// The stored stream says its own length twice, holds the body and is a session that lists.
void CheckStored(const std::string& stored, const std::string& name, bool execute) {
  const std::string body = ReadWhole("temp.str");
  const std::size_t opening = static_cast<unsigned char>(stored[44]);
  const std::size_t data = 45 + opening + 3 + 3 + name.size() + 3;
  Check(stored.starts_with(") HP-PCL XL;1;1;\n"), "the stream has its header");
  Check(Number32(stored, data + 1) == body.size() + 17, "the length is that of the body");
  Check(Number32(stored, data + 9) == body.size() + 17, "the data has that length too");
  Check(stored.substr(data + 13, 17) == stored.substr(0, 17), "the data begins with a header");
  Check(stored.substr(data + 30, body.size()) == body, "the data is the page");
  Check(body.empty() || ReadWhole("in.str").find('\x43' + body) != std::string::npos,
        "the page is what stands behind BeginPage, if there is one");
  const Stream file(std::fopen("output", "rb"));
  CountingSink sink;
  // The page that runs the stream is one that the reader itself would not store.
  const XlResult expected = execute ? kXlStreamInPage : kXlOk;
  Check(XlListStream(file.get(), &sink).walk == expected, "what was stored can be read");
}

void FixUp(const std::string& name, bool execute) {
  for (const char* file : {"in.str", "temp.str", "out.str"}) WriteWhole(file, "earlier");
  const ZeDestination destination = {};
  GenQueContext ctx;
  ctx.destination = &destination;
  const Stream job(std::fopen("job", "rb"));
  ctx.file = std::fopen("output", "wb");
  ctx.backEnd = QueueBackEnd::kFile;
  const Result result = StreamFixupSend(job.get(), &ctx, 0, name.c_str(), execute);
  std::fclose(ctx.file);
  Check(result == ZE_OK || result == ZE_FIXUP_FAILED, "a fixup goes well or fails");
  const std::string output = ReadWhole("output");
  if (result == ZE_OK) {
    CheckStored(output, name, execute);
  } else {
    Check(output.empty(), "a fixup that fails sends nothing");
  }
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const PrivateDrives drives("w");
  const InFolder folder(drives.Folder("w"));
  Input input(data, size);
  Numbers numbers(input.Line());
  const bool fixup = numbers.Below(2) != 0;
  const bool execute = numbers.Below(2) != 0;
  const std::string name(UpToZero(input.Line()));
  const std::string job(input.Rest());
  WriteWhole("job", job);
  const int descriptors = OpenDescriptors();
  if (fixup) {
    FixUp(name, execute);
  } else {
    List(job);
  }
  Check(descriptors == OpenDescriptors(), "every file is closed");
  return 0;
}
