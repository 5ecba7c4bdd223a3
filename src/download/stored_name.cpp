#include "download/stored_name.h"

#include <cstdio>
#include <cstring>

#include "base/text.h"
#include "files/upper_case_copy.h"
#include "zeapi.h"

namespace zeapi {

StoredName ChooseStoredName(const char (&field)[kNameField], const char* path) {
  char fileName[ZE_MAX_NAME + 1];
  const char* chosen = field;
  if (field[0] == '\0') chosen = StrCpyFile(fileName, path);
  StoredName name = {};
  std::memcpy(name.text, chosen, BoundedLength(chosen, kNameField - 1));
  return name;
}

StoredFileName StoredFileNameOf(const StoredName& name, bool demo) {
  StoredFileName file;
  std::snprintf(file.text, sizeof(file.text), "%s%s", name.text, demo ? kDemoExtension : "");
  return file;
}

}  // namespace zeapi
