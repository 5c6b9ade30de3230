// What the parser's stack holds: the value of a token, or the node of a rule.
#pragma once

#include <cstdint>

namespace lumnis {

class CpsString;
class WscSimpleNode;
struct WscName;

// All members have eight bytes: the processor waits when it copies more than was just written.
union WscTokenValue {
    double floatValue;
    std::int64_t integerValue;  // of 32 bits
    const WscName* name;        // an identifier; owned by the lexer, as is
    const CpsString* text;      // a string literal
    std::int64_t token;         // every other token: its own number
    WscSimpleNode* node;        // owned by the parser's arena
};

}  // namespace lumnis
