// QSF files of both forms.
//
// Input: a line of numbers (0 binary, 1 binary with the checksum mended, 2 INI form; for INI files
// list and model), the content of the file.

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "support/ini_model.h"
#include "support/input.h"
#include "support/private_drives.h"
#include "support/target.h"
#include "support/text_reference.h"
#include "zeapi.h"

namespace zeapi::fuzz {
namespace {

constexpr char kPath[] = "c:\\file";
constexpr std::size_t kHeader = 74;

struct Release {
  void operator()(void* block) const { ZeMemFree(block); }
};
using Block = std::unique_ptr<void, Release>;

std::uint32_t Number(const std::string& bytes, std::size_t at, std::size_t width) {
  std::uint32_t value = 0;
  for (std::size_t i = width; i-- > 0;)
    value = value << 8 | static_cast<std::uint8_t>(bytes[at + i]);
  return value;
}

void Mend(const std::filesystem::path& file, std::string* bytes) {
  std::uint16_t sum = 0;
  if (bytes->size() < kHeader || ZeFilChecksum(kPath, 0, 2, &sum) != ZE_OK) return;
  (*bytes)[2] = static_cast<char>(sum);
  (*bytes)[3] = static_cast<char>(sum >> 8);
  WriteWhole(file, *bytes);
}

std::uint32_t ExpectedOpen(const std::string& bytes) {
  if (bytes.size() < kHeader) return ZE_OPEN_FAILED;
  if (bytes[4] != 1) return ZE_UNKNOWN_TYPE;
  const auto a = static_cast<std::uint8_t>(bytes[5]);
  const auto b = static_cast<std::uint8_t>(bytes[6]);
  if (bytes.compare(0, 2, "QS") != 0 || a > 1 || b > 1) return ZE_BAD_HEADER;
  if (a == 1 && b == 0 && Number(bytes, 48, 2) == 0) return ZE_BAD_HEADER;
  std::uint16_t sum = 0;
  Check(ZeFilChecksum(kPath, 0, 2, &sum) == ZE_OK, "a file has a checksum");
  return sum == Number(bytes, 2, 2) ? ZE_OK : ZE_BAD_CHECKSUM;
}

void CheckBlock(void* handle, const std::string& bytes, std::uint32_t number) {
  const std::size_t at = number == 1 ? 44 : number == 2 ? 50 : 56;
  const std::uint32_t start = Number(bytes, at, 4);
  const std::uint32_t stated = Number(bytes, at + 4, 2);
  auto end = static_cast<std::uint32_t>(bytes.size());
  if (number == 1 && Number(bytes, 50, 4) != 0) end = Number(bytes, 50, 4);
  if (number == 2 && !(bytes[5] == 1 && bytes[6] == 0)) end = Number(bytes, 56, 4);

  void* memory = nullptr;
  std::uint16_t count = 0;
  const std::uint32_t code = ZeQsfGetVariables(handle, number, &memory, &count);
  const Block block(memory);
  Check((memory != nullptr) == (code == ZE_OK && stated != 0), "only success gives a block");
  if (stated == 0) return Check(code == ZE_OK && count == 0, "a block of none is nothing");
  if (start > end || end > bytes.size()) {
    return Check(code == ZE_BAD_FORMAT && count == 0, "a block outside the file is refused");
  }
  Check(code == ZE_OK && count == stated, "a block within the file is read");
  std::string expected;
  if (bytes[5] == 1 && bytes[6] == 1) {
    const std::uint32_t length = end - start;
    for (const unsigned shift : {0U, 8U, 16U, 24U}) expected += static_cast<char>(length >> shift);
    for (const unsigned shift : {8U, 0U}) expected += static_cast<char>(stated >> shift);
  }
  expected += bytes.substr(start, end - start);
  Check(std::memcmp(memory, expected.data(), expected.size()) == 0,
        "a block holds its prefix and the bytes of the file");
}

void CheckBinary(const std::string& bytes) {
  void* handle = nullptr;
  const std::uint32_t code = ZeQsfOpen(kPath, 1, &handle);
  Check(code == ExpectedOpen(bytes), "the header is checked in its order");
  Check((handle != nullptr) == (code == ZE_OK), "only success gives a handle");
  if (handle == nullptr) return;
  for (const std::uint32_t number : {1U, 2U, 5U}) CheckBlock(handle, bytes, number);
  ZeQsfClose(handle);
}

// The variables of a list that is known to be whole, two bytes each.
std::string Variables(const std::string& bytes, std::uint32_t list, std::uint32_t model) {
  testing::IniModel ini;
  ini.Load(TextOf(bytes), true);
  const std::string word = std::array{"REQUIRED", "OPTIONAL", "EXCLUDE", "ORDER"}.at(list - 1);
  std::string section = std::to_string(1000 + model % 256).substr(1) + word;
  if (ini.Read2(section, "NUMVARS").code == ZE_SECTION_NOT_FOUND) section = "DEFAULT" + word;
  const long entries = std::strtol(ini.Read2(section, "NUMENTRIES").value.c_str(), nullptr, 10);
  std::string variables;
  for (long entry = 1; entry <= entries; ++entry) {
    std::string value = ini.Read2(section, "OMVARS" + std::to_string(entry)).value + " ";
    std::string digits;
    for (std::size_t at = 0; at < value.size(); ++at) {
      if (std::isxdigit(static_cast<unsigned char>(value[at])) != 0) digits += value[at];
      if (value[at] != ' ' || at == 0 || value[at - 1] == ' ') continue;
      const std::string last =
          digits.substr(digits.size() - std::min<std::size_t>(digits.size(), 4));
      const long number = std::strtol(last.c_str(), nullptr, 16);
      variables += static_cast<char>(number >> 8);
      variables += static_cast<char>(number);
      digits.clear();
    }
  }
  return variables;
}

void CheckIni(const std::string& bytes, std::uint32_t list, std::uint32_t model) {
  void* ini = ZeIniOpen2(kPath, ZE_INI_READ);
  Check(ini != nullptr, "any file can be opened");
  std::uint16_t* variables = nullptr;
  std::uint16_t count = 0;
  const std::uint32_t code = ZeQsfIniGetSection(ini, list, model, &variables, &count);
  const Block block(variables);
  Check((variables != nullptr) == (code == ZE_OK) && (count != 0) == (code == ZE_OK),
        "only success gives variables");
  if (variables != nullptr) {
    Check(std::string_view(reinterpret_cast<const char*>(variables), std::size_t{2} * count) ==
              Variables(bytes, list, model),
          "the variables are those of the entries");
  }
  ZeIniClose(ini);
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const PrivateDrives drives("c");
  Input input(data, size);
  Numbers numbers(input.Line());
  const unsigned form = numbers.Below(3);
  const unsigned list = numbers.Below(6);
  const unsigned model = numbers.Below(300);
  const std::filesystem::path file = drives.Folder("c") / "file";
  std::string bytes(input.Rest());
  WriteWhole(file, bytes);
  const int descriptors = OpenDescriptors();
  if (form == 2) {
    CheckIni(bytes, list, model);
  } else {
    if (form == 1) Mend(file, &bytes);
    CheckBinary(bytes);
  }
  Check(descriptors == OpenDescriptors(), "every file is closed");
  return 0;
}
