#include "platform/module.h"

#include <windows.h>

namespace zeapi::platform {

Module ModuleLoad(const char* name) { return LoadLibraryA(name); }

EntryPoint ModuleFind(Module module, const char* entryPoint) {
  // GetProcAddress has one type for every function; the cast through void* says that this is meant.
  return reinterpret_cast<EntryPoint>(
      reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(module), entryPoint)));
}

void ModuleFree(Module module) { FreeLibrary(static_cast<HMODULE>(module)); }

}  // namespace zeapi::platform
