// Marks what a double does as not the library's doing, so that no failure is injected there.
#pragma once

namespace zeapi::testing {

inline int outsideLibrary = 0;

class OutsideLibrary {
 public:
  OutsideLibrary() { ++outsideLibrary; }
  ~OutsideLibrary() { --outsideLibrary; }
  OutsideLibrary(const OutsideLibrary&) = delete;
  OutsideLibrary& operator=(const OutsideLibrary&) = delete;
};

}  // namespace zeapi::testing
