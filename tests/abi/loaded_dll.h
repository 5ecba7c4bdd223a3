// The real DLL, loaded by name as an application loads it.
#pragma once

#include <windows.h>

class LoadedDll {
 public:
  static const LoadedDll& Instance() {
    static const LoadedDll dll;
    return dll;
  }

  bool IsLoaded() const { return module_ != nullptr; }

  const void* Find(const char* name) const {
    return reinterpret_cast<const void*>(GetProcAddress(module_, name));
  }

  template <typename Function>
  Function Find(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }

 private:
  LoadedDll() : module_(LoadLibraryA("ZEAPI1TD.dll")) {}
  HMODULE module_;
};

// The export of that name, with the header's prototype.
#define DLL_CALL(name) LoadedDll::Instance().Find<decltype(&::name)>(#name)
