// A print spooler that exists only in the target: linked before the library, it takes the place of
// the host's. The console of the process is silenced with it.
#pragma once

#include <string>

namespace zeapi::fuzz {

enum class SpoolerMood {
  kNoPrinter,        // knows no printer
  kAccepts,          // takes everything
  kRefusesDocument,  // opens the printer and starts no document
  kRefusesWrite,     // takes `writes` writes and then half of each
  kMoods
};

struct MoodySpooler {
  SpoolerMood mood = SpoolerMood::kNoPrinter;
  unsigned writes = 0;

  // What happened.
  std::string received;
  std::string documentName;
  bool refused = false;
  int openPrinters = 0;
  int documents = 0;
};

// The one that the library meets. Assign a new one before each job.
extern MoodySpooler spooler;

}  // namespace zeapi::fuzz
