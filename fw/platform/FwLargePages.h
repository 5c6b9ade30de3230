// Service of the platform: memory in large pages, for what takes megabytes at once. Each page of
// the common size costs a fault, which for a large compilation adds up to more than the work
// itself.
#pragma once

#include <cstddef>
#include <memory>

namespace lumnis {

struct FwLargePageDeleter {
    void operator()(std::byte* theBlock) const noexcept;
};
using FwLargePageBlock = std::unique_ptr<std::byte[], FwLargePageDeleter>;

// The size of a large page and of a block, in bytes.
constexpr std::size_t theLargePageSize = std::size_t{1} << 21;

// A block of theLargePageSize bytes, in one page if the system has one to give. Throws
// std::bad_alloc.
FwLargePageBlock fwAllocateLargePage();

}  // namespace lumnis
