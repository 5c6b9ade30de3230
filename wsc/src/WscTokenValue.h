// What the parser's stack holds: the value of a token, or the node of a rule.
#pragma once

#include <cstddef>
#include <cstdint>

namespace lumnis {

// All members have eight bytes: the processor waits when it copies more than was just written.
union WscTokenValue {
    double floatValue;
    std::int64_t integerValue;  // of 32 bits
    std::size_t name;           // an identifier: its number in WscSourceTexts, as is
    std::size_t text;           // the one of a string literal
    std::int64_t token;         // every other token: its own number
    std::size_t node;           // a rule's node: its number in the tree
};

}  // namespace lumnis
