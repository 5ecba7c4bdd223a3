// Records as printers send them, built from their elements.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "support/byte_order.h"

namespace zeapi::testing {

inline std::string Joined(std::initializer_list<std::string> parts) {
  std::string whole;
  for (const std::string& part : parts) whole += part;
  return whole;
}

// Elements for the keys of StandardKeys().
inline std::string ElementHead(int id, int type) { return BigEndian(id, 1) + BigEndian(type, 1); }

inline std::string Container(int id, int childCount, std::string_view content) {
  return ElementHead(id, 0) + BigEndian(childCount, 1) +
         BigEndian(static_cast<long long>(content.size()), 2) + std::string(content);
}

inline std::string Container(int id, std::initializer_list<std::string> children) {
  return Container(id, static_cast<int>(children.size()), Joined(children));
}

inline std::string Integer(int id, long long value, int width = 4) {
  return ElementHead(id, 1) + BigEndian(width, 1) + BigEndian(value, width);
}

inline std::string Text(int id, std::string_view text) {
  return ElementHead(id, 2) + BigEndian(static_cast<long long>(text.size()), 1) + std::string(text);
}

inline std::string Keys(std::string_view element, std::string_view container,
                        std::string_view data) {
  return "P{" + std::string(element) + "}C{" + std::string(container) + "}D{" + std::string(data) +
         "}";
}

inline std::string StandardKeys() { return Keys("ID:1,DT:1", "NE:1,LD:2", "LD:1,DA:0"); }

// The whole record: length, version and what follows.
inline std::string Record(std::string_view keys, std::string_view elements, int version = 1) {
  const std::string body = BigEndian(version, 2) + std::string(keys) + std::string(elements);
  return BigEndian(static_cast<long long>(body.size()), 2) + body;
}

inline std::string Record(std::string_view elements) { return Record(StandardKeys(), elements); }

// The record as it would have been sent without its last bytes.
inline std::string CutBy(std::size_t bytes, const std::string& record) {
  const std::string body = record.substr(2, record.size() - 2 - bytes);
  return BigEndian(static_cast<long long>(body.size()), 2) + body;
}

}  // namespace zeapi::testing
