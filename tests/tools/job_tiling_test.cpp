// Whatever its bytes are, the events of a job are the job: no gap, no overlap, no empty event, none
// beyond the end.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <sstream>

#include "job/job_listing.h"
#include "job_text.h"

namespace tool {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kFragments[] = {
    "\x1B%-12345X"sv,
    "@PJL SET COPIES = 2\n"sv,
    "@PJL ENTER LANGUAGE = PCL\r\n"sv,
    "@PJL ENTER LANGUAGE = POSTSCRIPT\n"sv,
    "@PJL LWRITEFILE DEVICE=disk1 FILENAME=\"a\" START=0 \n"sv,
    "@PJL END DATA\n"sv,
    "@PJL LOPENDEMOFILE NAME=\"a\"\n"sv,
    "\x1BM@PJL LCLOSEDEMOFILE\n"sv,
    "\x1B"
    "E"sv,
    "\x1B&l1o2a-3.5C"sv,
    "\x1B*b3W\x00\x1B\xFF"sv,
    "\x1B*b2v\x01\x02"sv,
    "\x1B(s99999W"sv,
    "\x1B&p4X\f\x1B@P"sv,
    "\x1B[K\x03\x00\x06\xC0\x46"sv,
    "\x1B[K\xFF\xFF"sv,
    "\x1B[l\x01\x00\x06"sv,
    "%!PS\n"sv,
    ") HP-PCL XL;1;1;\n"sv,
    "text\r\n\f"sv,
    "\x80\x90"sv,
    "\x1B"sv,
    "\x1B&l12"sv,
};

// The same numbers on every host: the engine is fixed by the standard, distributions are not.
class Random {
 public:
  explicit Random(std::uint32_t seed) : engine_(seed) {}
  std::size_t Below(std::size_t limit) { return engine_() % limit; }
  char Byte() { return static_cast<char>(Below(256)); }

 private:
  std::mt19937 engine_;
};

std::string RandomBytes(Random& random, std::size_t longest) {
  std::string job(random.Below(longest), '\0');
  // Escapes and brackets come more often than by chance.
  constexpr std::string_view kOften = "\x1B\x1B\x1B[K@&*%(s0123WX\n";
  for (char& c : job)
    c = random.Below(2) == 0 ? random.Byte() : kOften[random.Below(kOften.size())];
  return job;
}

// Commands in any order, some bytes damaged, the end cut off.
std::string RandomJob(Random& random) {
  std::string job;
  for (std::size_t count = random.Below(30); count > 0; --count)
    job += kFragments[random.Below(std::size(kFragments))];
  if (job.empty()) return job;
  for (std::size_t count = random.Below(4); count > 0; --count)
    job[random.Below(job.size())] = random.Byte();
  job.resize(job.size() - random.Below(std::min<std::size_t>(job.size(), 8)));
  return job;
}

void ExpectTiled(std::string_view job) {
  const std::vector<std::uint8_t> bytes = test::BytesOf(job);
  std::size_t at = 0;
  for (const JobEvent& event : ReadJob(bytes)) {
    ASSERT_EQ(event.offset, at) << testing::PrintToString(job);
    ASSERT_GT(event.length, 0U) << testing::PrintToString(job);
    ASSERT_LE(event.length, bytes.size() - at) << testing::PrintToString(job);
    at += event.length;
  }
  ASSERT_EQ(at, bytes.size()) << testing::PrintToString(job);
}

TEST(JobTiling, HoldsForRandomBytes) {
  Random random(1);
  for (int i = 0; i < 3000 && !testing::Test::HasFatalFailure(); ++i)
    ExpectTiled(RandomBytes(random, 300));
}

TEST(JobTiling, HoldsForDamagedJobs) {
  Random random(2);
  for (int i = 0; i < 3000 && !testing::Test::HasFatalFailure(); ++i)
    ExpectTiled(RandomJob(random));
}

TEST(JobTiling, HoldsForEveryBeginningOfAJob) {
  std::string job;
  for (const std::string_view fragment : kFragments) job += fragment;
  for (std::size_t length = 0; length <= job.size() && !testing::Test::HasFatalFailure(); ++length)
    ExpectTiled(job.substr(0, length));
}

TEST(JobTiling, LeavesTheListingPrintableWhateverTheBytes) {
  Random random(3);
  for (int i = 0; i < 300; ++i) {
    const std::vector<std::uint8_t> job = test::BytesOf(RandomJob(random));
    const std::vector<JobEvent> events = ReadJob(job);
    std::ostringstream out;
    PrintJob(out, job, events, i % 2 == 0);
    for (const char c : out.str()) ASSERT_TRUE(c == '\n' || (c >= ' ' && c <= '~')) << out.str();
    for (const JobEvent& event : events) ASSERT_NO_THROW(EventToJson(event, job).dump());
  }
}

}  // namespace
}  // namespace tool
