#include "output/bce_doc_info.h"

#include <array>
#include <cstring>

#include "platform/host.h"

namespace zeapi {
namespace {

constexpr std::size_t kComputerNameRoom = 16;
constexpr std::size_t kUserNameRoom = 80;
constexpr char kProductWord[] = "Vantrel";

void StoreWord(std::uint8_t* place, std::size_t value) {
  for (int i = 0; i < 4; ++i) place[i] = static_cast<std::uint8_t>(value >> (8 * i));
}

}  // namespace

CHeapPtr<std::uint8_t[]> MakeBceDocInfo(const ZeDestination& destination) {
  char computer[kComputerNameRoom] = "";
  char user[kUserNameRoom] = "";
  platform::HostComputerName(computer, sizeof(computer));
  platform::HostUserName(user, sizeof(user));
  const char* job = destination.jobName != nullptr ? destination.jobName : "";

  const std::array<const char*, 4> strings = {computer, user, kProductWord, job};
  constexpr std::size_t kHeader = sizeof(std::uint32_t) * (1 + strings.size());
  std::size_t total = kHeader;
  for (const char* string : strings) total += std::strlen(string) + 1;

  CHeapPtr<std::uint8_t[]> block = CHeapBytes<std::uint8_t>(total);
  if (block == nullptr) return block;
  StoreWord(block.get(), total);
  std::size_t offset = kHeader;
  for (std::size_t i = 0; i < strings.size(); ++i) {
    StoreWord(block.get() + sizeof(std::uint32_t) * (1 + i), offset);
    const std::size_t size = std::strlen(strings[i]) + 1;
    std::memcpy(block.get() + offset, strings[i], size);
    offset += size;
  }
  return block;
}

}  // namespace zeapi
