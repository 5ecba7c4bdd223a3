/* What one compiler makes of the records of the public header. The same table is compiled as C and
   as C++. */
#ifndef ZEAPI_TESTS_RECORD_FACTS_H_
#define ZEAPI_TESTS_RECORD_FACTS_H_

#include <stddef.h>

typedef struct RecordFact {
  const char* what; /* "Record" or "Record.field" */
  size_t stated;    /* size or offset in the 32-bit library */
  size_t compiled;  /* size or offset here */
} RecordFact;

#define RECORD(record, size) {#record, size, sizeof(record)},
#define FIELD(record, field, offset) {#record "." #field, offset, offsetof(record, field)},

#ifdef __cplusplus
extern "C" {
#endif

extern const RecordFact kRecordFactsInC[];
extern const size_t kRecordFactsInCCount;

#ifdef __cplusplus
}
#endif

#endif
