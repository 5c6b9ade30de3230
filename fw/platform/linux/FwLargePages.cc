#include "FwLargePages.h"

#include <sys/mman.h>

#include <cstdlib>
#include <new>

namespace lumnis {

void FwLargePageDeleter::operator()(std::byte* theBlock) const noexcept {
    std::free(theBlock);
}

FwLargePageBlock fwAllocateLargePage() {
    auto* block = static_cast<std::byte*>(std::aligned_alloc(theLargePageSize, theLargePageSize));
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    // A hint: where it is not followed the block is as good as any.
    madvise(block, theLargePageSize, MADV_HUGEPAGE);
    return FwLargePageBlock(block);
}

}  // namespace lumnis
