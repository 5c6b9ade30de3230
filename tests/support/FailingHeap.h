// A heap that fails on demand and counts what is in use; it replaces operator new and delete in the
// program that it is linked into, and what the project's own code calls as malloc and
// realloc.
#pragma once

#include <cstddef>

namespace lumnis::test {

// The allocation of that number, from 1, of this thread from now on fails.
void failAllocation(long theNumber);
// None fails from now on.
void endFailures();
// Whether one has failed since the last failAllocation.
bool hasAllocationFailed();

// Blocks from operator new that have not been released, of all threads.
long blocksInUse();

// What this thread has taken by operator new and not released, in bytes, and the most since
// startPeak.
std::ptrdiff_t bytesInUse();
std::ptrdiff_t mostBytesInUse();
void startPeak();

}  // namespace lumnis::test
