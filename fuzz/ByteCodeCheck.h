// A reader of byte-code files that only judges them (WMLScript standard, chapters "WMLScript
// Binary Format" and "WMLScript Instruction Set"). It shares nothing with the writer but the
// table of opcodes.
#pragma once

#include <string_view>

namespace lumnis::fuzz {

// What is wrong with the file, as a text that lives for ever; null when nothing is. Tested: size
// field, counts and types of the pools, UTF-8 alone as the charset, every index and number in
// range, names only of functions that are there, every opcode known, no instruction cut off,
// every jump to the start of an instruction or the end of the code, in its shortest form.
const char* findByteCodeFault(std::string_view theFile);

}  // namespace lumnis::fuzz
