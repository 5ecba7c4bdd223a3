#include "job_reference.h"

#include <algorithm>
#include <string_view>

namespace zeapi::fuzz {
namespace {

using namespace std::string_literals;

const std::string kExit = "\x1B%-12345X";
const std::string kBracketK = "\x1B[K"s;

bool TakesPjl(const ZeDestination& destination) { return (destination.flags & ZE_FLAG_PJL) != 0; }

bool TakesBracketK(const ZeDestination& destination) {
  return (destination.flags & ZE_FLAG_BRACKET_K) != 0;
}

std::string Header(const ZeDestination& destination, bool withCopies) {
  if (!TakesPjl(destination)) return "";
  std::string header = kExit;
  if (destination.jobName != nullptr) {
    const std::string_view name = destination.jobName;
    header.append("@PJL RDYMSG DISPLAY = \"").append(name.substr(0, 20)).append("\"\n");
  }
  constexpr const char* kLanguages[] = {"", "", "PPDS", "POSTSCRIPT", "GL", "PCL", "PCL"};
  const bool known = destination.language >= 2 && destination.language <= 6;
  if (known) header += "@PJL ENTER LANGUAGE = "s + kLanguages[destination.language] + "\n";
  if (withCopies && destination.copies != 0)
    header += "@PJL SET COPIES = " + std::to_string(destination.copies) + "\n";
  return header;
}

std::string Trailer(const ZeDestination& destination, bool withReset) {
  if (!TakesPjl(destination)) return "";
  return kExit + "@PJL RDYMSG DISPLAY = \"\"\n" + (withReset ? "@PJL RESET\n" : "") + kExit;
}

std::string PclCopies(const ZeDestination& destination) {
  if (destination.copies == 0) return "";
  return "\x1B&l" + std::to_string(destination.copies) + "X";
}

std::string LanguageSelection(const ZeDestination& destination) {
  if (destination.language == 0) return PclCopies(destination);
  std::string selection = kBracketK + "\x03\x00\x06"s;
  selection += destination.channel != 0 ? static_cast<char>(destination.channel) : '1';
  selection += "\x00\x00\x01\x08\x03\x02\x02"s[static_cast<std::size_t>(destination.language)];
  return destination.language < 5 ? selection : selection + PclCopies(destination);
}

std::string ResourceCommand(const ZeDestination& destination, int request, int device) {
  constexpr const char* kDevices[] = {"", "ram", "flash1", "flash2", "disk1", "disk2"};
  const std::string name = kDevices[device];
  const std::string pjl[] = {"", "@PJL SET LDOWNLOADTARGET = ram\n",
                             "@PJL SET LDOWNLOADTARGET = " + name + "\n",
                             "@PJL LFORMAT DEVICE = " + name + "\n", "@PJL LPRINTDIRECTORY\n"};
  constexpr char kLast[] = {0, 0x32, 0x31, 0x46, 0x50};
  const std::string bracketK = kBracketK + "\x03\x00\x06\xC0"s + kLast[request];
  std::string command;
  if (request == 2 && destination.deviceClass == 2) command += kBracketK + "\x01\x00\x01"s;
  if (TakesPjl(destination)) command += kExit + pjl[request];
  const bool alone = request >= 3;
  if (alone ? !TakesPjl(destination) : TakesBracketK(destination)) command += bracketK;
  return command;
}

}  // namespace

ReferenceJob FileJob(const ZeDestination& destination, const std::string& data) {
  ReferenceJob job;
  int passes = 1;
  if (TakesBracketK(destination))
    job.bytes += LanguageSelection(destination);
  else if (TakesPjl(destination))
    job.bytes += Header(destination, true);
  else
    passes = std::max<int>(1, destination.copies);
  while (passes-- > 0) job.bytes += data;
  job.bytes += Trailer(destination, true);
  if (TakesBracketK(destination)) job.end = kBracketK + "\x01\x00\x06"s;
  return job;
}

ReferenceJob StringJob(const ZeDestination& destination, const std::string& data) {
  return {Header(destination, false) + data + Trailer(destination, false), ""};
}

ReferenceJob ResourceJob(const ZeDestination& destination, int request, int device) {
  return {Header(destination, false) + ResourceCommand(destination, request, device) +
              Trailer(destination, false),
          ""};
}

}  // namespace zeapi::fuzz
