// Makes the nth call of a system function or allocation fail.
#pragma once

#include <cstddef>
#include <string>

namespace zeapi::testing {

// From here on every call that can fail is counted, and the one with this number (from 1) fails; 0:
// none does, they are only counted.
void ArmFault(int failing);

// Ends the counting.
void DisarmFault();

// Calls counted since the fault was armed.
int CountedCalls();

// Name of the function that was made to fail; empty when the count did not get there.
std::string FailedFunction();

// Open files and folders of this process; not while a fault is armed.
std::size_t OpenDescriptors();

}  // namespace zeapi::testing
