#include "download/stored_name.h"

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

}  // namespace zeapi
