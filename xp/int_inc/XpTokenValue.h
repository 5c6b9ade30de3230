// The value of a token or of a grammar symbol; its kind follows from the symbol.
#pragma once

#include <cstddef>
#include <string_view>

#include "CpsString.h"

namespace lumnis {

// A part of the text that is being scanned, valid until the next token is read.
struct XpText {
    const char* data;
    std::size_t length;

    std::string_view view() const { return {data, length}; }
};

// Plain data, since the parser's stack moves it byte by byte.
union XpTokenValue {
    CpsString* string;  // of the scanner's pool
    XpText text;
    unsigned codePoint;
    bool flag;
    int modifier;  // of a content model: bit 0 optional, bit 1 repeated
};

}  // namespace lumnis
