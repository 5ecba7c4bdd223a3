// Names of the files that belong to a font file: the same path with another extension.
#pragma once

#include <string_view>

#include "zeapi.h"

namespace zeapi {

// A path and the few characters by which an extension may lengthen it.
struct PathText {
  char text[ZE_MAX_NAME + 16];
};

// Replaces what follows the dot of the last component. An extension that begins with "." brings its
// own dot. Where the last component has no dot, the extension is put at the end as it is, without
// one. `path` has at most ZE_MAX_NAME characters, `extension` at most 15.
PathText ReplaceExtension(std::string_view path, std::string_view extension);

}  // namespace zeapi
