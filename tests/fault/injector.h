// Makes the nth call of a system function or allocation fail.
#pragma once

#include <cstddef>
#include <set>
#include <string>

namespace zeapi::testing {

// From here on every call that can fail is counted, and the one with this number (from 1) fails; 0:
// none does, they are only counted.
void ArmFault(int failing);

// What a stream's read does when it is made to fail: it gives nothing, or half of what was asked.
void FailingReadsGiveHalf(bool half);

// Ends the counting.
void DisarmFault();

// Calls counted since the fault was armed.
int CountedCalls();

// Name of the function that was made to fail; empty when the count did not get there.
std::string FailedFunction();

// Calls an export and takes note of it: TRIED(ZeFilCopy)("source", "copy").
#define TRIED(name) (::zeapi::testing::NoteExport(#name), name)
void NoteExport(const char* name);

// The export that was last noted when the function failed.
std::string FailedExport();

// All that were noted while a fault was armed.
const std::set<std::string>& TriedExports();

// Open files and folders of this process; not while a fault is armed.
std::size_t OpenDescriptors();

}  // namespace zeapi::testing
