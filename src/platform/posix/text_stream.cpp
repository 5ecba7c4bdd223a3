#include "platform/posix/text_stream.h"

#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace zeapi::platform {
namespace {

constexpr char kEndOfText = 0x1A;

struct TextReader {
  int descriptor;
  bool pendingReturn;  // the last byte read was a CR whose fate depends on the next byte
  bool ended;          // a Ctrl-Z was read
};

// Turns `count` raw bytes at `text` into text in place; returns how many are left.
std::size_t Translate(TextReader* reader, char* text, std::size_t count) {
  char* out = text;
  const char* in = text;
  const char* end = text + count;
  if (const void* mark = std::memchr(in, kEndOfText, count)) {
    end = static_cast<const char*>(mark);
    reader->ended = true;
  }
  while (in < end) {
    const void* next = std::memchr(in, '\r', static_cast<std::size_t>(end - in));
    const char* stop = next == nullptr ? end : static_cast<const char*>(next);
    const std::size_t plain = static_cast<std::size_t>(stop - in);
    std::memmove(out, in, plain);
    out += plain;
    in = stop;
    if (in == end) break;
    if (in + 1 == end && !reader->ended) {
      reader->pendingReturn = true;
      break;
    }
    if (in + 1 == end || in[1] != '\n') *out++ = '\r';
    ++in;
  }
  return static_cast<std::size_t>(out - text);
}

ssize_t ReadText(void* cookie, char* buffer, std::size_t size) {
  auto* reader = static_cast<TextReader*>(cookie);
  while (!reader->ended) {
    // A CR left over from the last block goes in front of this one.
    std::size_t kept = 0;
    if (reader->pendingReturn) {
      buffer[0] = '\r';
      kept = 1;
    }
    if (size == kept) {
      // No room to look at the byte after the CR: it goes out as it is. Streams never ask so
      // little.
      reader->pendingReturn = false;
      return 1;
    }
    const ssize_t count = read(reader->descriptor, buffer + kept, size - kept);
    if (count < 0) return -1;
    reader->pendingReturn = false;
    if (count == 0) {
      reader->ended = true;
      return static_cast<ssize_t>(kept);
    }
    const std::size_t left = Translate(reader, buffer, kept + static_cast<std::size_t>(count));
    if (left > 0) return static_cast<ssize_t>(left);
  }
  return 0;
}

int SeekText(void* cookie, off64_t* position, int whence) {
  auto* reader = static_cast<TextReader*>(cookie);
  if (whence != SEEK_SET || *position != 0) {
    errno = ESPIPE;
    return -1;
  }
  if (lseek(reader->descriptor, 0, SEEK_SET) < 0) return -1;
  reader->pendingReturn = false;
  reader->ended = false;
  return 0;
}

int CloseText(void* cookie) {
  auto* reader = static_cast<TextReader*>(cookie);
  const int result = close(reader->descriptor);
  std::free(reader);
  return result;
}

}  // namespace

std::FILE* OpenTextReader(int descriptor) {
  auto* reader = static_cast<TextReader*>(std::malloc(sizeof(TextReader)));
  if (reader == nullptr) {
    close(descriptor);
    return nullptr;
  }
  *reader = {descriptor, false, false};
  std::FILE* stream = fopencookie(reader, "r", {ReadText, nullptr, SeekText, CloseText});
  if (stream == nullptr) CloseText(reader);
  return stream;
}

}  // namespace zeapi::platform
