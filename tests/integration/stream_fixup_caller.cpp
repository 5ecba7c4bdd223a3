// Fixes up a job: stream_fixup_caller JOB NAME EXECUTE OUTPUT. Prints the result; the exit code is 0
// whenever it got that far.
#include <cstdio>
#include <cstdlib>

#include "base/stream.h"
#include "pclxl/stream_fixup.h"

int main(int count, char** arguments) {
  using namespace zeapi;
  if (count != 5) return 2;
  const Stream job(std::fopen(arguments[1], "rb"));
  const ZeDestination destination = {};
  GenQueContext ctx;
  ctx.destination = &destination;
  if (job == nullptr || GenQueOpen(arguments[4], &ctx) != ZE_OK) return 2;
  const Result result =
      StreamFixupSend(job.get(), &ctx, 0, arguments[2], std::atoi(arguments[3]) != 0);
  GenQueClose(&ctx);
  std::printf("%u\n", result);
  return 0;
}
