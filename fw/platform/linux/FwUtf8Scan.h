// Where the characters of a UTF-8 text begin and end, well-formed ones and others.
#pragma once

#include <cstddef>
#include <string_view>

namespace lumnis {

struct FwUtf8Step {
    std::size_t length;  // at least 1
    bool isWellFormed;
};

// The first character of theText, which is not empty: a well-formed one (Unicode, table 3-7), or
// the longest beginning of one that could have become well-formed, or one stray byte.
inline FwUtf8Step fwScanUtf8(std::string_view theText) {
    const auto at = [&](std::size_t theIndex) {
        return static_cast<unsigned char>(theText[theIndex]);
    };
    const unsigned lead = at(0);
    if (lead < 0x80) {
        return {1, true};
    }
    if (lead < 0xC2 || lead > 0xF4) {
        return {1, false};
    }
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    // The second byte excludes overlong forms, surrogates and values above U+10FFFF.
    unsigned low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    unsigned high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    for (std::size_t i = 1; i < length; ++i) {
        if (i == theText.size() || at(i) < low || at(i) > high) {
            return {i, false};
        }
        low = 0x80;
        high = 0xBF;
    }
    return {length, true};
}

}  // namespace lumnis
