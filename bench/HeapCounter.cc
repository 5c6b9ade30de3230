#include "HeapCounter.h"

#include <malloc.h>

#include <algorithm>

// The C library's own, under the names that it keeps for this purpose.
extern "C" {
void* __libc_malloc(std::size_t theSize);
void* __libc_calloc(std::size_t theCount, std::size_t theSize);
void* __libc_realloc(void* theBlock, std::size_t theSize);
void* __libc_memalign(std::size_t theAlignment, std::size_t theSize);
void __libc_free(void* theBlock);
}

namespace {

std::size_t theAllocations = 0;
std::size_t theBytes = 0;
std::size_t thePeak = 0;

void* counted(void* theBlock) {
    ++theAllocations;
    theBytes += malloc_usable_size(theBlock);
    thePeak = std::max(thePeak, theBytes);
    return theBlock;
}

}  // namespace

extern "C" {
void* malloc(std::size_t theSize) {
    return counted(__libc_malloc(theSize));
}
void* calloc(std::size_t theCount, std::size_t theSize) {
    return counted(__libc_calloc(theCount, theSize));
}
void* realloc(void* theBlock, std::size_t theSize) {
    theBytes -= malloc_usable_size(theBlock);
    return counted(__libc_realloc(theBlock, theSize));
}
void* aligned_alloc(std::size_t theAlignment, std::size_t theSize) {
    return counted(__libc_memalign(theAlignment, theSize));
}
void free(void* theBlock) {
    theBytes -= malloc_usable_size(theBlock);
    __libc_free(theBlock);
}
}

namespace lumnis::bench {

HeapUse measureHeap(void (*theWork)(void*), void* theArgument) {
    const std::size_t before = theBytes;
    theAllocations = 0;
    thePeak = theBytes;
    theWork(theArgument);
    return {theAllocations, thePeak - before};
}

}  // namespace lumnis::bench
