// What the fuzzers of XML documents and of DTDs ask of every message.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace lumnis::fuzz {

inline void require(bool theCondition) {
    if (!theCondition) {
        std::abort();
    }
}

// theLine must be in theText. In an ignored section a line feed may count twice.
inline void requireLine(unsigned theLine, std::string_view theText) {
    const auto lines = static_cast<std::size_t>(std::count(theText.begin(), theText.end(), '\n'));
    const bool mayIgnore = theText.find("<![") != std::string_view::npos;
    require(theLine >= 1 && theLine <= 1 + (mayIgnore ? 2 : 1) * lines);
}

}  // namespace lumnis::fuzz
