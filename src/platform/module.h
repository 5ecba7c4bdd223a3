// Loading a dynamic library by its plain name.
#pragma once

namespace zeapi::platform {

using Module = void*;
using EntryPoint = void (*)();

// Null when there is no such library.
Module ModuleLoad(const char* name);

// Null when the library has no such entry point.
EntryPoint ModuleFind(Module module, const char* entryPoint);

void ModuleFree(Module module);

}  // namespace zeapi::platform
