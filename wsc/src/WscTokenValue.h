// What the parser's stack holds: the value of a token, or the node of a rule.
#pragma once

#include <cstdint>

namespace lumnis {

class CpsString;
class WscSimpleNode;
struct WscName;

union WscTokenValue {
    double floatValue;
    std::int32_t integerValue;
    const WscName* name;    // an identifier; owned by the lexer, as is
    const CpsString* text;  // a string literal
    int token;              // every other token: its own number
    WscSimpleNode* node;    // owned by the parser's arena
};

}  // namespace lumnis
