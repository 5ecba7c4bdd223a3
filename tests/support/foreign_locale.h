// A host program's locale that is not "C": Turkish, where "I" and "i" are no pair and decimals have
// a comma.
#pragma once

#include <filesystem>

namespace zeapi::testing {

class ForeignLocale {
 public:
  // Sets the locale for the whole process. `folder` takes the files that it is made of where the
  // host has none.
  explicit ForeignLocale(const std::filesystem::path& folder);
  ~ForeignLocale();
  ForeignLocale(const ForeignLocale&) = delete;
  ForeignLocale& operator=(const ForeignLocale&) = delete;

  // True when the locale is in force and does what it is here for.
  bool InForce() const;
};

}  // namespace zeapi::testing
