/* A caller that is linked with an import library of the DLL. It needs nothing of a C library, so
   that it can be linked without one. Its exit status is 0 when every call answered as it should. */

#include "zeapi.h"

static int Equal(const char* a, const char* b) {
  while (*a != '\0' && *a == *b) {
    ++a;
    ++b;
  }
  return *a == *b;
}

int main(void) {
  ZeApiInfo info;
  char name[ZE_MAX_NAME + 1];
  ZeGenQueryApiInfo(&info);
  if (info.words[0] != ZE_API_VERSION) return 1;
  if (ZeStrCpyFile(name, "c:\\fonts\\courier.sfp") != name || !Equal(name, "COURIER.SFP")) return 2;
  if (ZeGenQueryAdapters(0, 0, name, 1023) != ZE_INVALID_ARGUMENT) return 3;
  return 0;
}
