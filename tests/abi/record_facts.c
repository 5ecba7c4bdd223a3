#include "record_facts.h"

#include "zeapi.h"

const RecordFact kRecordFactsInC[] = {
#include "record_facts.inc"
};
const size_t kRecordFactsInCCount = sizeof(kRecordFactsInC) / sizeof(kRecordFactsInC[0]);
