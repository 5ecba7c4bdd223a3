// What the record parsers write to the debug log, each line with a number that tells it from the others of
// its module.
#pragma once

#include <cstdio>

#include "base/log.h"

namespace zeapi::parse_log {

inline constexpr char kRecord[] = "zeparse";
inline constexpr char kOptions[] = "zecard";
inline constexpr char kAccount[] = "zefax";

inline constexpr std::size_t kLongestMessage = 96;

inline void DataBufferLength(int length) {
  char text[kLongestMessage];
  std::snprintf(text, sizeof text, "Data buffer length =%i", length);
  ZeLog(kRecord, 118, text);
}

inline void Version(int version) {
  char text[kLongestMessage];
  std::snprintf(text, sizeof text, "Version of alert =%i", version);
  ZeLog(kRecord, 124, text);
}

inline void KeyField(const char* key, int definition, int length) {
  char text[kLongestMessage];
  std::snprintf(text, sizeof text, "%s Key id = %i  key length =%i", key, definition, length);
  ZeLog(kRecord, 231, text);
}

inline void BytesLeft(const char* module, int bytes) {
  char text[kLongestMessage];
  std::snprintf(text, sizeof text, "bytesLeft = %i", bytes);
  ZeLog(module, 162, text);
}

inline void Root(const char* module, int id, int type) {
  char text[kLongestMessage];
  std::snprintf(text, sizeof text, "ID =%i  element type=%i", id, type);
  ZeLog(module, 74, text);
}

inline void Child(const char* module, int id, int type, int number) {
  char text[kLongestMessage];
  std::snprintf(text, sizeof text, "ID =%i  element type=%i  child=%i", id, type, number);
  ZeLog(module, 138, text);
}

}  // namespace zeapi::parse_log
