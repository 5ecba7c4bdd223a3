// The records of the public header have one layout: that of the 32-bit library, in C and in C++.

#include <gtest/gtest.h>

#include <iterator>

#include "record_facts.h"
#include "zeapi.h"

namespace {

constexpr RecordFact kRecordFactsInCpp[] = {
#include "record_facts.inc"
};

TEST(Records, AreTheSameInCAndInCpp) {
  ASSERT_EQ(kRecordFactsInCCount, std::size(kRecordFactsInCpp));
  for (std::size_t i = 0; i < kRecordFactsInCCount; ++i) {
    EXPECT_STREQ(kRecordFactsInC[i].what, kRecordFactsInCpp[i].what);
    EXPECT_EQ(kRecordFactsInC[i].compiled, kRecordFactsInCpp[i].compiled)
        << kRecordFactsInC[i].what;
  }
}

// A pointer that is wider than in the 32-bit library moves what follows it; nothing else may.
TEST(Records, HaveTheStatedLayoutUpToPointers) {
  for (const RecordFact& fact : kRecordFactsInCpp) {
    if (sizeof(void*) == 4)
      EXPECT_EQ(fact.compiled, fact.stated) << fact.what;
    else
      EXPECT_GE(fact.compiled, fact.stated) << fact.what;
  }
}

}  // namespace
