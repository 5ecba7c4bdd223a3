/* A caller of the font calls that knows the public header only. Reads one call a line from its input,
   tab between the arguments, and prints a line for each.

   query FILE OPTION             -> result kind format flags companion description
   convert FILE OUTPUT NUMBER    -> result
   tfm FILE OUTPUT NUMBER PCL    -> result, of conversion 6 or 16: FILE are the metrics of PCL */

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "zeapi.h"

#define MOST 5

static int Split(char* line, char** words) {
  int count = 0;
  line[strcspn(line, "\r\n")] = '\0';
  for (char* next = line; next != NULL && count < MOST; ++count) {
    words[count] = next;
    next = strchr(next, '\t');
    if (next != NULL) *next++ = '\0';
  }
  return count;
}

static uint32_t NumberOf(const char* text) { return (uint32_t)strtoul(text, NULL, 10); }

static void Query(char** words) {
  ZeFontInfo info;
  const uint32_t result = ZeFonQueryInfo(words[1], &info, NumberOf(words[2]), 1);
  printf("%u\t%u\t%u\t%u\t%s\t%s\n", (unsigned)result, (unsigned)info.kind, (unsigned)info.format,
         (unsigned)info.flags, info.companionFile, info.description);
}

static void ConvertTfm(char** words) {
  ZeFontInfo info;
  uint32_t result = ZeFonQueryInfo(words[4], &info, 0, 1);
  if (result == ZE_OK) {
    strcpy(info.metricsFile, words[1]);
    result = ZeFonConvert(words[4], words[2], &info, 4, NumberOf(words[3]));
  }
  printf("%u\n", (unsigned)result);
}

int main(void) {
  char line[2048];
  while (fgets(line, sizeof(line), stdin) != NULL) {
    char* words[MOST];
    const int count = Split(line, words);
    if (count == 3 && strcmp(words[0], "query") == 0)
      Query(words);
    else if (count == 4 && strcmp(words[0], "convert") == 0)
      printf("%u\n", (unsigned)ZeFonConvert(words[1], words[2], NULL, 0, NumberOf(words[3])));
    else if (count == 5 && strcmp(words[0], "tfm") == 0 && strlen(words[1]) < 260)
      ConvertTfm(words);
    else
      return 2;
    fflush(stdout);
  }
  return 0;
}
