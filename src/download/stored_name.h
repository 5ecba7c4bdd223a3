// The name under which a printer stores a resource.
#pragma once

#include <cstddef>

namespace zeapi {

// Length of the name fields of records.
inline constexpr std::size_t kNameField = 24;

// At most 23 characters, terminated.
struct StoredName {
  char text[kNameField];
};

// The name in a record's field, which need not be terminated; when it is empty, the file-name part
// of `path` in upper case. `path` has at most ZE_MAX_NAME characters.
StoredName ChooseStoredName(const char (&field)[kNameField], const char* path);

inline constexpr char kDemoExtension[] = ".demo";

// The name of the file that a printer keeps a resource in.
struct StoredFileName {
  char text[kNameField + sizeof(kDemoExtension)];
};
StoredFileName StoredFileNameOf(const StoredName& name, bool demo);

}  // namespace zeapi
