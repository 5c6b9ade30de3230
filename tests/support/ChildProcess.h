// The end of a child that a test has forked.
#pragma once

#include <unistd.h>

// Writes what a build for coverage has counted; other builds do not have it.
extern "C" [[gnu::weak]] int __llvm_profile_write_file();

namespace lumnis::test {

// Ends a child without running what its parent has registered for its own end.
[[noreturn]] inline void leave(int theStatus) {
    if (__llvm_profile_write_file != nullptr) {
        __llvm_profile_write_file();
    }
    _exit(theStatus);
}

}  // namespace lumnis::test
