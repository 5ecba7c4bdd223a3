// Font downloads of any bytes under any font's extension, compared with the job put together
// plainly from the file in memory.
//
// Input: a line of numbers (extension, language less 1, command sets, target less 1, font ID, PPDS
// font code, PPDS font slot), the content of the font file.

#include <algorithm>
#include <iterator>

#include "support/input.h"
#include "support/private_drives.h"
#include "support/target.h"
#include "support/text_reference.h"
#include "zeapi.h"

namespace zeapi::fuzz {
namespace {

using Text = std::string;

constexpr const char* kExtensions[] = {"pfb", "pfa", "dlf", "sfp", "ttf", "fot", "txt"};
constexpr const char* kLanguages[] = {"", "PPDS", "POSTSCRIPT", "GL", "PCL", "PCL"};
constexpr char kLanguageCodes[] = {0, 1, 8, 3, 2, 2};
constexpr const char* kTargets[] = {"ram", "flash1", "flash2", "disk1", "disk2"};
const Text kExit = "\x1B%-12345X";

Text Low16(std::size_t value) {
  return {static_cast<char>(value & 0xFF), static_cast<char>(value >> 8 & 0xFF)};
}
Text High16(std::size_t value) {
  return {static_cast<char>(value >> 8 & 0xFF), static_cast<char>(value & 0xFF)};
}

Text Hexadecimal(std::string_view bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  Text text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text += kDigits[byte / 16];
    text += kDigits[byte % 16];
  }
  return text;
}

// Whole pieces of 1024 bytes, and the last one if the segment is whole.
Text Segments(std::string_view font) {
  Text sent;
  while (font.size() >= 6 && font[0] == '\x80' && (font[1] == 1 || font[1] == 2)) {
    std::size_t length = 0;
    for (int i = 3; i >= 0; --i) {
      length = length * 256 + static_cast<unsigned char>(font[2 + static_cast<std::size_t>(i)]);
    }
    const bool binary = font[1] == 2;
    font.remove_prefix(6);
    const bool whole = length <= font.size();
    const std::string_view body = font.substr(0, whole ? length : font.size() / 1024 * 1024);
    sent += binary ? Hexadecimal(body) : Text(body);
    if (!whole) break;
    font.remove_prefix(length);
  }
  return sent;
}

Text PpdsBlocks(std::string_view font, const ZeDestination& to) {
  Text sent = Text("\x1B=\x04\0\x41\x0E", 6) + High16(to.resourceId);
  while (!font.empty()) {
    const std::string_view piece = font.substr(0, 2048);
    font.remove_prefix(piece.size());
    sent += "\x1B=" + Low16(piece.size() + 8) + "\x41\x01\x01" +
            High16(to.ppdsFontCode + std::size_t{0xFF00}) + High16(to.ppdsFontSlot) +
            (font.empty() ? '\x01' : '\x02') + Text(piece);
  }
  return sent;
}

Text PostScript(const Text& font) {
  return Text(
             "%% BeginExitServer 0\n% Adobe Type 1 download\r\n\r\n serverdict begin   0   "
             "exitserver  \n%% EndExitServer\n") +
         '\0' + font + "%!\x04";
}

Text DlfId(std::uint16_t id) {
  return id < 100 ? Text("\x1B=\x03\0\x31\x08", 6) + static_cast<char>(id)
                  : Text("\x1B=\x04\0\x31\x0E", 6) + High16(id);
}

bool BeginsAsAPclFont(std::string_view font) {
  if (font.substr(0, 3) != "\x1B)s") return false;
  return font.substr(3, 6).find('W') != font.npos;
}

struct Sent {
  Text font;
  std::uint32_t code = ZE_OK;
};

Sent FontPart(const Text& font, const ZeFontInfo& info, const ZeDestination& to) {
  const bool refused = to.language == ZE_LANGUAGE_PCLXL && !BeginsAsAPclFont(font);
  switch (info.format) {
    case ZE_FONT_TYPE1:
      if (to.language == ZE_LANGUAGE_PPDS) return {PpdsBlocks(font, to)};
      return {PostScript((info.flags & ZE_FONT_BINARY) != 0 ? Segments(font) : font)};
    case ZE_FONT_DLF:
      if (refused) return {"", ZE_OPEN_FAILED};
      return {DlfId(to.resourceId) + font};
    case ZE_FONT_HOST_TRUETYPE:
      return {"", ZE_BAD_FORMAT};
    default:
      Check(BeginsAsAPclFont(font), "what the query takes for a PCL font begins as one");
      return {"\x1B*c" + std::to_string(to.resourceId) + "D" + font + "\x1B*c5F"};
  }
}

Text Job(const Text& font, const ZeDestination& to, std::size_t target) {
  const bool pjl = (to.flags & ZE_FLAG_PJL) != 0;
  const bool bracketK = (to.flags & ZE_FLAG_BRACKET_K) != 0;
  const auto language = static_cast<std::size_t>(to.language - 1);
  const bool stored = target != 0;
  Text job;
  if (bracketK) job += Text("\x1B[K\x03\0\x06\x31", 7) + kLanguageCodes[language];
  if (pjl) job += kExit;
  if (pjl && language != 0) job += Text("@PJL ENTER LANGUAGE = ") + kLanguages[language] + "\n";
  if (stored && pjl) job += kExit + "@PJL SET LDOWNLOADTARGET = " + kTargets[target] + "\n";
  if (stored && bracketK) job += Text("\x1B[K\x03\0\x06\xC0\x31", 8);
  job += font;
  if (stored && pjl) job += kExit + "@PJL SET LDOWNLOADTARGET = ram\n";
  if (stored && bracketK) job += Text("\x1B[K\x03\0\x06\xC0\x32", 8);
  if (pjl) job += kExit + "@PJL RDYMSG DISPLAY = \"\"\n" + kExit;
  return job;
}

}  // namespace
}  // namespace zeapi::fuzz

using namespace zeapi::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const PrivateDrives drives("c");
  Input input(data, size);
  Numbers numbers(input.Line());
  const std::string extension = kExtensions[numbers.Below(std::size(kExtensions))];
  ZeDestination to = {};
  to.language = static_cast<std::int32_t>(numbers.Below(6)) + 1;
  to.flags = numbers.Below(4) * ZE_FLAG_PJL;
  const unsigned target = numbers.Below(5);
  to.resourceId = static_cast<std::uint16_t>(numbers.Below(0x10000));
  to.ppdsFontCode = static_cast<std::uint16_t>(numbers.Below(0x10000));
  to.ppdsFontSlot = static_cast<std::uint16_t>(numbers.Below(0x10000));
  const std::string font(input.Rest());
  WriteWhole(drives.Folder("c") / ("font." + extension), font);
  const std::string path = "c:\\FONT." + extension;

  ZeFontInfo info;
  const std::uint32_t queried = ZeFonQueryInfo(path.c_str(), &info, 0, 0);
  const std::filesystem::path output = drives.Folder("c") / "job";
  const int descriptors = OpenDescriptors();
  const std::uint32_t code =
      ZeFonDownload(path.c_str(), "c:\\job", &to, static_cast<std::int32_t>(target) + 1);
  Check(descriptors == OpenDescriptors(), "every file is closed");
  if (queried != ZE_OK) {
    Check(code == queried, "what the query refuses is refused with its code");
    Check(!std::filesystem::exists(output), "nothing is sent of a file that is refused");
  } else {
    const Sent sent = FontPart(font, info, to);
    Check(code == sent.code, "the font's sender gives the code");
    Check(ReadWhole(output) == Job(sent.font, to, target), "the job is as it has to be");
    std::filesystem::remove(output);
  }
  std::filesystem::remove(drives.Folder("c") / ("font." + extension));
  Check(drives.NothingOutside(), "nothing else is written");
  return 0;
}
