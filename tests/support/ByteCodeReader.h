// Takes a byte-code file apart for the tests: a second reading of the WMLScript binary format
// (version 1.1, chapter "WMLScript Binary Format") that shares nothing with the writer.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lumnis::test {

struct ByteCodeFunction {
    unsigned int arguments = 0;
    unsigned int locals = 0;
    std::string code;
    bool hasName = false;
    std::string name;
};

struct ByteCodeFile {
    unsigned int charset = 0;
    // One line each: int8 2, int16 128, int32 -2147483648, float 3F800000, utf8 "x", extern "y".
    // Text with C escapes, \xHH for all that is not printable ASCII.
    std::vector<std::string> constants;
    // One line each, operands are constant indices: domain 0, path 1, property 1 0,
    // property 2 1 0 (with a scheme).
    std::vector<std::string> pragmas;
    std::vector<ByteCodeFunction> functions;
};

// Throws std::runtime_error with the offset where theFile breaks the format: size field, counts,
// a multi-byte integer with leading zeros, an index or a function number out of range, names out
// of order, bytes missing or left over.
ByteCodeFile readByteCode(std::string_view theFile);

}  // namespace lumnis::test
