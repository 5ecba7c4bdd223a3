// Reading text, compared with the whole text made at once, whatever pieces the system hands out and
// the caller asks for.
//
// Input: a line of numbers (size of the stream's buffer, bytes a call asks for, bytes to read
// before a rewind, number of the read that fails or 0, sizes of the pieces that the system hands
// out), the bytes of the file.

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <string>

#include "platform/posix/text_stream.h"
#include "support/input.h"
#include "support/target.h"
#include "support/text_reference.h"

namespace zeapi::fuzz {
namespace {

// What stands between the reader and the file.
struct Pieces {
  int descriptor = -1;
  std::array<unsigned, 8> sizes = {};
  std::size_t next = 0;
  unsigned reads = 0;
  unsigned failingRead = 0;
  bool failed = false;
};
Pieces pieces;

int MemoryFile(std::string_view content) {
  const int descriptor = memfd_create("text", 0);
  Check(write(descriptor, content.data(), content.size()) == static_cast<ssize_t>(content.size()),
        "a file in memory takes the content");
  lseek(descriptor, 0, SEEK_SET);
  return descriptor;
}

// Reads up to `limit` bytes in calls of at most `request` bytes.
std::string ReadText(std::FILE* stream, std::size_t request, std::size_t limit) {
  std::string text;
  const std::unique_ptr<char[]> block(new char[request]);
  while (text.size() < limit) {
    const std::size_t wanted = std::min(request, limit - text.size());
    const std::size_t count = std::fread(block.get(), 1, wanted, stream);
    text.append(block.get(), count);
    if (count < wanted) break;
  }
  return text;
}

void CheckRead(const std::string& read, const std::string& text, std::size_t limit) {
  if (pieces.failed) {
    Check(text.compare(0, read.size(), read) == 0, "what is read before a failure is the text");
  } else {
    Check(read == text.substr(0, limit), "what is read is the text");
  }
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

// The linker turns every call of read into one of these.
extern "C" ssize_t __real_read(int descriptor, void* buffer, std::size_t count);
extern "C" ssize_t __wrap_read(int descriptor, void* buffer, std::size_t count);

extern "C" ssize_t __wrap_read(int descriptor, void* buffer, std::size_t count) {
  if (descriptor != pieces.descriptor) return __real_read(descriptor, buffer, count);
  if (++pieces.reads == pieces.failingRead) {
    pieces.failed = true;
    errno = EIO;
    return -1;
  }
  const unsigned size = pieces.sizes[pieces.next];
  pieces.next = (pieces.next + 1) % pieces.sizes.size();
  return __real_read(descriptor, buffer, size == 0 ? count : std::min<std::size_t>(count, size));
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  Numbers numbers(input.Line());
  // A stream with room for one byte only cannot look at what follows a CR; the library has none.
  const std::size_t room = 2 + numbers.Below(600);
  const std::size_t request = 1 + numbers.Below(600);
  const std::size_t before = numbers.Below(5000);
  pieces = Pieces{};
  pieces.failingRead = numbers.Below(50);
  for (unsigned& piece : pieces.sizes) piece = numbers.Below(100);
  const std::string text = TextOf(input.Rest());

  const std::unique_ptr<char[]> buffer(new char[room]);
  pieces.descriptor = MemoryFile(input.Rest());
  std::FILE* stream = zeapi::platform::OpenTextReader(pieces.descriptor);
  Check(stream != nullptr, "a text opens");
  std::setvbuf(stream, buffer.get(), _IOFBF, room);
  CheckRead(ReadText(stream, request, before), text, before);
  std::rewind(stream);
  CheckRead(ReadText(stream, request, text.npos), text, text.npos);
  Check(std::ferror(stream) != 0 || std::feof(stream) != 0, "reading ends for a reason");
  Check(pieces.reads > 0, "the system hands out pieces");
  Check(std::fclose(stream) == 0, "a text closes");
  pieces.descriptor = -1;
  return 0;
}
