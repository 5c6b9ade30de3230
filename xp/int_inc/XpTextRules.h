// The small rules of XML on text: line ends, white space, characters.
#pragma once

#include <string_view>

#include "CpsString.h"

namespace lumnis {

struct XpTextRules {
    // Appends theText; a carriage return, with or without a line feed behind it, becomes one line
    // feed.
    static void appendWithLineEnds(CpsString& theOutput, std::string_view theText);
    // Appends theText; tab, line feed, carriage return, and the last two together become one blank.
    static void appendWithBlanks(CpsString& theOutput, std::string_view theText);
    // theCodePoint must be below 0x110000.
    static void appendUtf8(CpsString& theOutput, unsigned theCodePoint);
    // theText without white space at its ends and with one blank for each run inside.
    static CpsString collapseSpace(std::string_view theText);
};

}  // namespace lumnis
