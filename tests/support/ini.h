// INI files of a test, opened through the exported calls.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/scratch.h"
#include "zeapi.h"

namespace zeapi::testing {

class IniTest : public ScratchTest {
 protected:
  static constexpr char kFile[] = "file.ini";

  void TearDown() override {
    if (handle != nullptr) Close();
    ScratchTest::TearDown();
  }

  // Writes the file and opens it.
  void Open(std::string_view text, std::uint32_t mode = ZE_INI_UPDATE) {
    if (handle != nullptr) Close();
    WriteFile(kFile, text);
    handle = ZeIniOpen2(kFile, mode);
    ASSERT_NE(handle, nullptr);
  }

  std::uint32_t Close() {
    const std::uint32_t result = ZeIniClose(handle);
    handle = nullptr;
    return result;
  }

  // What the file holds, without what the host adds to line feeds as it writes text.
  static std::string HostText() {
    std::string text = ReadFile(kFile);
#ifdef _WIN32
    for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos; ++at) {
      text.erase(at, 1);
    }
#endif
    return text;
  }

  // The same once the handle is closed.
  std::string Written() {
    EXPECT_EQ(Close(), 1U);
    return HostText();
  }

  // The lines of a section, or of what comes before the first one's end.
  std::vector<std::string> Lines(const char* section) const {
    std::vector<std::string> lines;
    for (const char* line = ZeIniRead(handle, section, nullptr); *line != '\0';
         line = ZeIniRead(handle, nullptr, nullptr)) {
      lines.emplace_back(line);
    }
    return lines;
  }

  // The value by ZeIniRead2, or its result code in angle brackets.
  std::string Value(const char* section, const char* key, const char* fallback = nullptr) const {
    char buffer[4096];
    std::uint32_t count = 12345;
    const std::uint32_t code =
        ZeIniRead2(handle, section, key, fallback, buffer, sizeof(buffer), &count);
    if (code != ZE_OK && code != ZE_DEFAULT_USED) return "<" + std::to_string(code) + ">";
    return std::string(buffer, count);
  }

  void* handle = nullptr;
};

}  // namespace zeapi::testing
