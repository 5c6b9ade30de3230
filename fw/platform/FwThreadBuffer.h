// Service of the platform: memory of the calling thread, for a text that a call leaves behind.
//
// It is not thread_local: where a host loads the library while it runs, the loader takes such
// memory at the first use in a thread, and ends the process if there is none.
#pragma once

#include <cstddef>

namespace lumnis {

// The size of the buffer in bytes.
constexpr std::size_t theThreadBufferSize = 1024;

// The buffer of this thread, the same each time, until the thread ends. Null if memory is lacking.
char* fwThreadBuffer() noexcept;

}  // namespace lumnis
