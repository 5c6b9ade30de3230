// Counts what the process takes from the heap, in every library of it: this program's malloc
// stands in the place of the C library's.
#pragma once

#include <cstddef>

namespace lumnis::bench {

struct HeapUse {
    std::size_t allocations;  // calls that returned a new block, realloc included
    std::size_t peakBytes;    // the most that was in use at one time, beyond what was at the start
};

// Runs theWork and tells what it took.
HeapUse measureHeap(void (*theWork)(void*), void* theArgument);

}  // namespace lumnis::bench
