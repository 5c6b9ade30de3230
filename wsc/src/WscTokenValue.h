// What the parser's stack holds: the value of a token, or the node of a rule.
#pragma once

#include <cstdint>

namespace lumnis {

class CpsString;
class WscSimpleNode;

union WscTokenValue {
    double floatValue;
    std::int32_t integerValue;
    const CpsString* text;  // an identifier or string literal; owned by the lexer
    int token;              // every other token: its own number
    WscSimpleNode* node;    // owned by the parser's arena
};

}  // namespace lumnis
