// The value of a token or of a grammar symbol; its kind follows from the symbol.
#pragma once

#include <cstddef>

#include "CpsString.h"

namespace lumnis {

// Plain data, since the parser's stack moves it byte by byte. All kinds have the size of the
// whole: each reduction copies a value as one word, and a word that was written in part is slow
// to read.
union XpTokenValue {
    CpsString* string;  // of the scanner's pool
    std::size_t codePoint;
    std::size_t flag;      // 0 or 1
    std::size_t modifier;  // of a content model: bits of XpModifier
};

struct XpModifier {
    static constexpr std::size_t OPTIONAL = 1;
    static constexpr std::size_t REPEATED = 2;
};

}  // namespace lumnis
