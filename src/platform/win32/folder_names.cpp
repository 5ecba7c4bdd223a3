// The system finds names without regard to case by itself: none are kept.
#include "platform/find.h"

namespace zeapi::platform {

struct FolderNames::State {};

FolderNames::FolderNames(const char*) {}

FolderNames::~FolderNames() = default;

}  // namespace zeapi::platform
