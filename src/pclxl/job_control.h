// Taking the job control out of a PCL XL job.
#pragma once

#include "pclxl/filter_io.h"

namespace zeapi {

// Copies without universal exits ("ESC %-12345X", also one that the end cuts short) and lines that
// begin with "@PJL" wherever they stand; a zero byte at the very start goes with the three bytes
// after it.
void StripJobControl(filter::PushBackReader* reader, filter::BlockWriter* writer);

}  // namespace zeapi
