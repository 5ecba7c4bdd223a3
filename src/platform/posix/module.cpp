#include "platform/module.h"

#include <dlfcn.h>

namespace zeapi::platform {

Module ModuleLoad(const char* name) { return dlopen(name, RTLD_NOW | RTLD_LOCAL); }

EntryPoint ModuleFind(Module module, const char* entryPoint) {
  return reinterpret_cast<EntryPoint>(dlsym(module, entryPoint));
}

void ModuleFree(Module module) { dlclose(module); }

}  // namespace zeapi::platform
