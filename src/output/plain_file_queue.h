// A queue over a work file in the current directory: its writes are those of the output queue, but
// it is never offered to the spooler, and opening and closing it leave no lines in the log.
#pragma once

#include "output/ZeQue.h"

namespace zeapi {

class PlainFileQueue {
 public:
  PlainFileQueue() { ctx_.destination = &destination_; }
  ~PlainFileQueue() { Close(); }
  PlainFileQueue(const PlainFileQueue&) = delete;
  PlainFileQueue& operator=(const PlainFileQueue&) = delete;

  // Makes the file anew. Returns 0 or 3.
  Result Open(const char* path);

  // Returns 0 or 4. Closing what is closed does nothing.
  Result Close();

  // The language that a filter on this queue goes by; 0 unless set.
  void SetLanguage(std::int32_t language) { destination_.language = language; }

  GenQueContext* context() { return &ctx_; }

 private:
  ZeDestination destination_ = {};
  GenQueContext ctx_;
};

}  // namespace zeapi
