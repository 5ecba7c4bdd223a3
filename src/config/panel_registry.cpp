#include "config/panel_registry.h"

#include <cstdio>
#include <string>

#include "base/text.h"
#include "config/panel_queries.h"
#include "files/split_path.h"

namespace zeapi {
namespace {

struct Slot {
  std::uint32_t panelId = 0;  // 0: free
  std::uint32_t useCount = 0;
  std::unique_ptr<IniFile> file;
};

Slot registry[5];

// A free place before that of the panel wins, and the place of panel 0 counts as free: which file an
// identifier leads to hangs on the order of registrations.
Slot* SlotFor(std::uint32_t panelId) {
  for (Slot& slot : registry) {
    if (slot.panelId == panelId || slot.panelId == 0) return &slot;
  }
  return nullptr;
}

std::string PathOf(std::int16_t panel, const char* directory) {
  char name[kPanelFileNameRoom];
  OpcFileName(panel, name);
  if (directory == nullptr) return name;
  return EndedByBackslash({directory, BoundedLength(directory, ZE_MAX_NAME)}) + name;
}

}  // namespace

void OpcFileName(std::int16_t panel, char* name) {
  std::snprintf(name, kPanelFileNameRoom, "opc%03u.cfg", static_cast<unsigned>(panel));
}

IniFile* OpcRegister(std::int16_t panel, const char* directory) {
  const auto panelId = static_cast<std::uint32_t>(panel);
  Slot* slot = SlotFor(panelId);
  if (slot == nullptr) return nullptr;
  if (slot->file == nullptr) {
    // The place stays taken when the file does not open, for the next try of this panel.
    slot->panelId = panelId;
    std::unique_ptr<IniFile> file = IniOpen(PathOf(panel, directory).c_str(), kIniReadFiltered);
    if (file == nullptr) return nullptr;
    file->style = OpcStyle(file.get());
    slot->file = std::move(file);
  }
  ++slot->useCount;
  return slot->file.get();
}

bool OpcUnregister(const void* file) {
  if (file == nullptr) return false;
  for (Slot& slot : registry) {
    if (slot.file.get() != file) continue;
    if (--slot.useCount > 0) return true;
    slot.panelId = 0;
    return IniClose(std::move(slot.file));
  }
  return false;
}

}  // namespace zeapi
