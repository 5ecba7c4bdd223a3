/* A caller outside the tree. Its calls remove 4, 8 and 16 bytes of stack, so that an import library
   that forgets how names are decorated does not link. */
#include <stdio.h>
#include <string.h>
#include <zeapi.h>

int main(void) {
  ZeApiInfo info;
  char name[16];
  char small[1];
  ZeGenQueryApiInfo(&info);
  if (info.words[0] != ZE_API_VERSION) {
    fprintf(stderr, "version %d in place of %d\n", info.words[0], ZE_API_VERSION);
    return 1;
  }
  if (strcmp(ZeStrCpyFile(name, "c:\\fonts\\plain.sfp"), "PLAIN.SFP") != 0) {
    fprintf(stderr, "file name \"%s\"\n", name);
    return 1;
  }
  if (ZeGenQueryQueues(0, 0, small, sizeof small) != ZE_INVALID_ARGUMENT) {
    fprintf(stderr, "a buffer of one byte was accepted\n");
    return 1;
  }
  printf("zeapi %d.%d\n", info.words[0] / 100, info.words[0] % 100);
  return 0;
}
