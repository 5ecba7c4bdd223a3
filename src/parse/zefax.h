// Job accounting records.
#pragma once

#include <memory>

#include "zeapi.h"

namespace zeapi {

void FreeJobAccount(ZeJobAccount* account);

struct JobAccountFree {
  void operator()(ZeJobAccount* account) const { FreeJobAccount(account); }
};
using JobAccountPtr = std::unique_ptr<ZeJobAccount, JobAccountFree>;

// Null when there is no memory for the record itself; a later lack of it ends the record.
JobAccountPtr ParseJobAccount(const void* buffer);

}  // namespace zeapi
