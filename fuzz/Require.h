// What must hold under a fuzzer ends the process when it does not: not by assert, since it must
// hold in every build.
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

// theLine, which a message names, must be in theText. In an ignored section a line feed may count
// twice.
inline void requireLine(std::size_t theLine, std::string_view theText) {
    const auto feeds = static_cast<std::size_t>(std::count(theText.begin(), theText.end(), '\n'));
    const bool mayIgnore = theText.find("<![") != std::string_view::npos;
    require(theLine >= 1 && theLine <= 1 + (mayIgnore ? 2 : 1) * feeds);
}

}  // namespace lumnis::fuzz
