// Data jobs: a file, or a short string, sent to a printer as a complete job.
#pragma once

#include <cstdint>

#include "base/c_heap.h"
#include "base/result.h"
#include "output/ZeQue.h"

namespace zeapi {

// Sends a file. Copies are asked of printers with a command set, and made by repetition for others.
Result SendDataFile(const char* fileName, const char* printerName, const ZeDestination& destination,
                    FileMode fileMode);

// Data decoded from a string, on the C heap.
struct DecodedString {
  CHeapPtr<char[]> bytes;
  std::uint32_t length = 0;
};

// Decodes pairs of hexadecimal digits. Returns 0, 1 (odd number of digits, or not a digit) or 11.
Result DecodeHexString(const char* digits, DecodedString* decoded);

// Decodes text in which "\n" is a line feed, "\xHH" a byte and "\" before another character that
// character. The first zero byte ends the data. Returns 0 or 11.
Result DecodeEscapedString(const char* text, DecodedString* decoded);

// Sends decoded data as one write. Neither copies nor bracket-K sequences are sent and the trailer
// does not reset the printer, unlike a file's: callers rely on the difference.
Result SendDataString(const DecodedString& data, const char* printerName,
                      const ZeDestination& destination, FileMode fileMode);

}  // namespace zeapi
