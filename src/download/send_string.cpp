#include <cstdlib>
#include <cstring>

#include "download/data.h"
#include "download/framed_job.h"
#include "output/hex_text.h"

namespace zeapi {
namespace {

// What a base-16 conversion makes of two characters, whatever they are.
char ByteFromTwo(const char* characters) {
  const char text[3] = {characters[0], characters[1], '\0'};
  return static_cast<char>(std::strtol(text, nullptr, 16));
}

// Decodes the escape after a backslash at `*text` into `*byte` and moves past it. False when the
// text ends within the escape.
bool DecodeEscape(const char** text, char* byte) {
  const char* escape = *text;
  if (escape[0] == '\0') return false;
  if (escape[0] != 'x') {
    *byte = escape[0] == 'n' ? '\n' : escape[0];
    *text = escape + 1;
    return true;
  }
  if (escape[1] == '\0' || escape[2] == '\0') return false;
  *byte = ByteFromTwo(escape + 1);
  *text = escape + 3;
  return true;
}

}  // namespace

Result DecodeHexString(const char* digits, DecodedString* decoded) {
  const std::size_t length = std::strlen(digits) / 2;
  decoded->bytes = CHeapBytes<char>(length + 1);
  if (decoded->bytes == nullptr) return ZE_OUT_OF_MEMORY;
  for (std::size_t i = 0; i < length; ++i) {
    const int high = HexDigitValue(digits[2 * i]);
    const int low = HexDigitValue(digits[2 * i + 1]);
    if (high < 0 || low < 0) return ZE_INVALID_ARGUMENT;
    decoded->bytes[i] = static_cast<char>(high << 4 | low);
  }
  decoded->length = static_cast<std::uint32_t>(length);
  return ZE_OK;
}

Result DecodeEscapedString(const char* text, DecodedString* decoded) {
  decoded->bytes = CHeapBytes<char>(std::strlen(text) + 1);
  if (decoded->bytes == nullptr) return ZE_OUT_OF_MEMORY;
  char* out = decoded->bytes.get();
  while (*text != '\0') {
    char byte = *text++;
    if (byte == '\\' && !DecodeEscape(&text, &byte)) break;
    *out++ = byte;
  }
  decoded->length = static_cast<std::uint32_t>(std::strlen(decoded->bytes.get()));
  return ZE_OK;
}

Result SendDataString(const DecodedString& data, const char* printerName,
                      const ZeDestination& destination, FileMode fileMode) {
  GenQueContext ctx;
  ctx.destination = &destination;
  ctx.fileMode = fileMode;
  return SendFramed(printerName, &ctx, [&] { GenQueWrite(data.bytes.get(), data.length, &ctx); });
}

}  // namespace zeapi
