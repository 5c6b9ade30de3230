#include "FailingHeap.h"

#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>

namespace {

// Allocations of this thread up to the one that fails; 0 while none is to fail.
thread_local long allocationsLeft = 0;
thread_local bool hasFailed = false;
std::atomic<long> blocks = 0;
thread_local std::ptrdiff_t bytes = 0;
thread_local std::ptrdiff_t mostBytes = 0;

bool isToFail() {
    if (allocationsLeft == 0 || --allocationsLeft != 0) {
        return false;
    }
    hasFailed = true;
    return true;
}

void release(void* theBlock) {
    if (theBlock != nullptr) {
        --blocks;
        bytes -= static_cast<std::ptrdiff_t>(malloc_usable_size(theBlock));
        std::free(theBlock);
    }
}

}  // namespace

// The linker gives __wrap_malloc for malloc, by --wrap=malloc, and finds __real_malloc in libc; so
// for realloc.
extern "C" void* __real_malloc(std::size_t theSize);
extern "C" void* __wrap_malloc(std::size_t theSize);
extern "C" void* __real_realloc(void* theBlock, std::size_t theSize);
extern "C" void* __wrap_realloc(void* theBlock, std::size_t theSize);

extern "C" void* __wrap_malloc(std::size_t theSize) {
    return isToFail() ? nullptr : __real_malloc(theSize);
}

extern "C" void* __wrap_realloc(void* theBlock, std::size_t theSize) {
    return isToFail() ? nullptr : __real_realloc(theBlock, theSize);
}

// All forms of new and delete, so that a sanitizer's own do not mix with them. Not inlined: the
// compiler would see malloc in one and delete in the other.
[[gnu::noinline]] void* operator new(std::size_t theSize, const std::nothrow_t&) noexcept {
    void* const block = isToFail() ? nullptr : __real_malloc(theSize == 0 ? 1 : theSize);
    if (block != nullptr) {
        ++blocks;
        bytes += static_cast<std::ptrdiff_t>(malloc_usable_size(block));
        mostBytes = std::max(mostBytes, bytes);
    }
    return block;
}

[[gnu::noinline]] void* operator new(std::size_t theSize) {
    if (void* block = operator new(theSize, std::nothrow)) {
        return block;
    }
    throw std::bad_alloc();
}

[[gnu::noinline]] void* operator new[](std::size_t theSize) {
    return operator new(theSize);
}

[[gnu::noinline]] void operator delete(void* theBlock) noexcept {
    release(theBlock);
}

[[gnu::noinline]] void operator delete(void* theBlock, std::size_t) noexcept {
    release(theBlock);
}

[[gnu::noinline]] void operator delete(void* theBlock, const std::nothrow_t&) noexcept {
    release(theBlock);
}

[[gnu::noinline]] void operator delete[](void* theBlock) noexcept {
    release(theBlock);
}

[[gnu::noinline]] void operator delete[](void* theBlock, std::size_t) noexcept {
    release(theBlock);
}

namespace lumnis::test {

void failAllocation(long theNumber) {
    allocationsLeft = theNumber;
    hasFailed = false;
}

void endFailures() {
    allocationsLeft = 0;
}

bool hasAllocationFailed() {
    return hasFailed;
}

long blocksInUse() {
    return blocks;
}

std::ptrdiff_t bytesInUse() {
    return bytes;
}

std::ptrdiff_t mostBytesInUse() {
    return mostBytes;
}

void startPeak() {
    mostBytes = bytes;
}

}  // namespace lumnis::test
