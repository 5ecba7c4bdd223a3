#include "files/found_files.h"

#include <cstdlib>
#include <cstring>

#include "base/c_heap.h"

namespace zeapi {
namespace {

void FreeRecord(const ZeFoundFile& file) {
  if (file.kind == ZE_FOUND_FONT && file.info != nullptr) {
    FreeCartridge(static_cast<ZeFontInfo*>(file.info)->cartridge);
  }
  std::free(file.info);
}

}  // namespace

void FreeCartridge(ZeCartridge* cartridge) {
  if (cartridge == nullptr) return;
  for (ZeCartridgeFont* font = cartridge->fonts; font != nullptr;) {
    ZeCartridgeFont* next = font->next;
    std::free(font->name);
    std::free(font);
    font = next;
  }
  std::free(cartridge->name);
  std::free(cartridge);
}

void FreeFoundFiles(ZeFoundFile* first) {
  while (first != nullptr) {
    ZeFoundFile* next = first->next;
    FreeRecord(*first);
    std::free(first);
    first = next;
  }
}

bool FitsFoundFile(std::string_view path) { return path.size() < sizeof(ZeFoundFile::path); }

ZeFoundFile* AddFoundFile(std::string_view path, std::uint32_t kind,
                          std::span<const std::byte> record, FoundFiles* list) {
  CHeapPtr<ZeFoundFile> node(static_cast<ZeFoundFile*>(std::calloc(1, sizeof(ZeFoundFile))));
  if (node == nullptr) return nullptr;
  if (!record.empty()) {
    node->info = std::malloc(record.size());
    if (node->info == nullptr) return nullptr;
    std::memcpy(node->info, record.data(), record.size());
  }
  std::memcpy(node->path, path.data(), path.size());
  node->kind = kind;
  node->next = list->release();
  list->reset(node.release());
  return list->get();
}

}  // namespace zeapi
