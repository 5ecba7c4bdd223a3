/* A caller of the library, as the integration tests need one: it knows the public header only,
   makes one call as its arguments say and prints the result.

   job_caller file FILE PRINTER [name=value]...
   job_caller string TEXT PRINTER [name=value]...
   job_caller resource REQUEST PRINTER DEVICE [name=value]...
   job_caller font FILE PRINTER TARGET [name=value]...
   job_caller type PRINTER-VALUE [times=n]

   The names are those of the destination's fields, and "append"; "times" repeats the call. */

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "zeapi.h"

static ZeDestination destination;
static uint32_t append;
static int times = 1;

static int SetOption(const char* option) {
  const char* equals = strchr(option, '=');
  if (equals == NULL) return 0;
  const size_t length = (size_t)(equals - option);
  const char* value = equals + 1;
  const uint32_t number = (uint32_t)strtoul(value, NULL, 0);
#define IS(name) (length == strlen(name) && strncmp(option, name, length) == 0)
  if (IS("flags"))
    destination.flags = number;
  else if (IS("deviceClass"))
    destination.deviceClass = number;
  else if (IS("language"))
    destination.language = (int32_t)number;
  else if (IS("copies"))
    destination.copies = (uint16_t)number;
  else if (IS("resourceId"))
    destination.resourceId = (uint16_t)number;
  else if (IS("ppdsFontCode"))
    destination.ppdsFontCode = (uint16_t)number;
  else if (IS("ppdsFontSlot"))
    destination.ppdsFontSlot = (uint16_t)number;
  else if (IS("bidiPort"))
    destination.bidiPort = (uint16_t)number;
  else if (IS("bidiHandle"))
    destination.bidiHandle = (uint16_t)number;
  else if (IS("jobName"))
    destination.jobName = value;
  else if (IS("channel"))
    destination.channel = (uint8_t)number;
  else if (IS("append"))
    append = number;
  else if (IS("times"))
    times = (int)number;
  else
    return 0;
#undef IS
  return 1;
}

static uint32_t Call(char** arguments) {
  if (strcmp(arguments[0], "file") == 0)
    return ZeDatSendFile(arguments[1], arguments[2], &destination, append);
  if (strcmp(arguments[0], "string") == 0)
    return ZeDatSendString(arguments[1], arguments[2], &destination, append);
  if (strcmp(arguments[0], "resource") == 0)
    return ZeGenResource(atoi(arguments[1]), arguments[2], &destination, atoi(arguments[3]));
  if (strcmp(arguments[0], "font") == 0)
    return ZeFonDownload(arguments[1], arguments[2], &destination, atoi(arguments[3]));
  return ZeNetGetType((uint32_t)strtoul(arguments[1], NULL, 0));
}

static int ArgumentCount(const char* call) {
  static const struct {
    const char* call;
    int count;
  } calls[] = {{"file", 3}, {"string", 3}, {"resource", 4}, {"font", 4}, {"type", 2}};
  for (size_t i = 0; i < sizeof(calls) / sizeof(calls[0]); ++i) {
    if (strcmp(call, calls[i].call) == 0) return calls[i].count;
  }
  return 0;
}

int main(int argc, char** argv) {
  const int count = argc > 1 ? ArgumentCount(argv[1]) : 0;
  int understood = count != 0 && argc > count;
  for (int i = 1 + count; understood && i < argc; ++i) understood = SetOption(argv[i]);
  if (!understood) {
    fprintf(stderr, "job_caller: wrong arguments\n");
    return 2;
  }
  for (int i = 0; i < times; ++i) printf("result %lu\n", (unsigned long)Call(argv + 1));
  return 0;
}
