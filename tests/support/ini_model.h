// The rules of INI files once more: a list of lines that is read from its beginning for each call.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zeapi::testing {

class IniModel {
 public:
  // Takes the lines of a text as loading does; `filtered`: without comments and empty lines.
  void Load(std::string_view text, bool filtered);

  struct Answer {
    std::uint32_t code;
    std::string value;  // empty where there is none
  };
  Answer Read2(const std::string& section, const std::string& key) const;

  // Section and key may be null, as for the call.
  std::string Read(const std::string* section, const std::string* key);

  // ZeIniWrite, or with `all` ZeIniWriteAll.
  void Write(const std::string& section, const std::string& key, const std::string& value,
             bool all);

  void Delete(const std::string& section, const std::string* key, const std::string* value);

  // What the file holds when it is written back.
  std::string Text() const;

  std::vector<std::string> lines;

 private:
  static constexpr std::size_t kNone = std::string::npos;

  std::size_t Header(const std::string& section) const;
  std::size_t FindKey(std::size_t at, const std::string& key) const;
  void Insert(std::size_t at, const std::string& line);
  void Remove(std::size_t at);

  std::size_t cursor_ = kNone;
};

}  // namespace zeapi::testing
