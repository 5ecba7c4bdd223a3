/* A stand-in for the maker's bidirectional DLL. It appends a line for each call, with its
   arguments, to the file that VELBCE_RECORD names, and a line when it is loaded and when it is
   freed.

   VELBCE_FAIL=Entry:n    the nth call of that entry point fails; n = 0: each of them
   VELBCE_SHORT=n         BceWrite reports n bytes less than it was given
   VELBCE_INFO=HHHH       bytes 92 and 93 of the printer information, in hexadecimal

   Entry points are left out of a variant by giving them another name on the compiler's command
   line. */

#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#if defined(_WIN32)
#define ENTRY __declspec(dllexport) uint32_t __stdcall
#else
#define ENTRY __attribute__((visibility("default"))) uint32_t
#endif

#define INFO_SIZE 412

static FILE* OpenRecord(void) {
  const char* name = getenv("VELBCE_RECORD");
  FILE* record = name != NULL ? fopen(name, "ab") : NULL;
  if (record == NULL) abort();
  return record;
}

static void RecordLine(const char* line) {
  FILE* record = OpenRecord();
  fprintf(record, "%s\n", line);
  fclose(record);
}

static void RecordBytes(const char* head, const void* data, uint32_t size) {
  const unsigned char* bytes = data;
  FILE* record = OpenRecord();
  fprintf(record, "%s ", head);
  for (uint32_t i = 0; i < size; ++i) fprintf(record, "%02x", bytes[i]);
  fprintf(record, "\n");
  fclose(record);
}

/* The value that the call is to return: 0 unless this is a call that shall fail. */
static uint32_t Outcome(const char* entry, unsigned call) {
  const char* fail = getenv("VELBCE_FAIL");
  const size_t length = strlen(entry);
  if (fail == NULL || strncmp(fail, entry, length) != 0 || fail[length] != ':') return 0;
  const unsigned wanted = (unsigned)atoi(fail + length + 1);
  return wanted == 0 || wanted == call;
}

__attribute__((constructor)) static void Loaded(void) { RecordLine("loaded"); }

__attribute__((destructor)) static void Freed(void) { RecordLine("freed"); }

#define RECORD(...)                            \
  do {                                         \
    char line[160];                            \
    snprintf(line, sizeof(line), __VA_ARGS__); \
    RecordLine(line);                          \
  } while (0)

ENTRY BceOpen(uint32_t port, uint32_t handle, uint32_t third) {
  static unsigned calls;
  RECORD("BceOpen %lu %lu %lu", (unsigned long)port, (unsigned long)handle, (unsigned long)third);
  return Outcome("BceOpen", ++calls);
}

ENTRY BceClose(uint32_t port, uint32_t handle) {
  static unsigned calls;
  RECORD("BceClose %lu %lu", (unsigned long)port, (unsigned long)handle);
  return Outcome("BceClose", ++calls);
}

/* The block's first word is its size. */
ENTRY BceStartDoc(uint32_t handle, uint32_t second, const void* info) {
  static unsigned calls;
  char head[80];
  uint32_t size;
  memcpy(&size, info, sizeof(size));
  snprintf(head, sizeof(head), "BceStartDoc %lu %lu", (unsigned long)handle, (unsigned long)second);
  RecordBytes(head, info, size);
  return Outcome("BceStartDoc", ++calls);
}

ENTRY BceEndDoc(uint32_t handle, uint32_t second) {
  static unsigned calls;
  RECORD("BceEndDoc %lu %lu", (unsigned long)handle, (unsigned long)second);
  return Outcome("BceEndDoc", ++calls);
}

ENTRY BceWrite(uint32_t port, uint32_t handle, uint32_t third, const void* data, uint32_t* count,
               uint32_t last) {
  static unsigned calls;
  char head[120];
  snprintf(head, sizeof(head), "BceWrite %lu %lu %lu %lu %lu", (unsigned long)port,
           (unsigned long)handle, (unsigned long)third, (unsigned long)*count, (unsigned long)last);
  RecordBytes(head, data, *count);
  const char* missing = getenv("VELBCE_SHORT");
  if (missing != NULL) *count -= (uint32_t)atoi(missing);
  return Outcome("BceWrite", ++calls);
}

/* The information block is a caller's: it must come zeroed, and all of it may be written. */
ENTRY BceGetPrtInfo(uint32_t printer, void* info, uint32_t third) {
  static unsigned calls;
  static const unsigned char zeros[INFO_SIZE];
  const int zeroed = memcmp(info, zeros, INFO_SIZE) == 0;
  unsigned char* bytes = info;
  RECORD("BceGetPrtInfo %lu %s %lu", (unsigned long)printer, zeroed ? "zeroed" : "not zeroed",
         (unsigned long)third);
  memset(bytes, 0xFF, INFO_SIZE);
  const char* connection = getenv("VELBCE_INFO");
  const unsigned long value = connection != NULL ? strtoul(connection, NULL, 16) : 0;
  bytes[92] = (unsigned char)(value >> 8);
  bytes[93] = (unsigned char)value;
  return Outcome("BceGetPrtInfo", ++calls);
}
