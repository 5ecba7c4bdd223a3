/* Prints what this compiler makes of the records of the public header: a line "Record[.field] number"
   for each size and offset. */
#include <stdio.h>

#include "record_facts.h"

int main(void) {
  for (size_t i = 0; i < kRecordFactsInCCount; ++i) {
    printf("%s %zu\n", kRecordFactsInC[i].what, kRecordFactsInC[i].compiled);
  }
  return 0;
}
