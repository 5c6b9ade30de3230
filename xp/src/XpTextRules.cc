#include "XpTextRules.h"

#include <algorithm>

namespace lumnis {

namespace {

constexpr std::string_view theSpaces = "\t\n\r ";

// Appends theText in pieces between the bytes of theSet, which with a line feed behind a carriage
// return become theByte.
void appendReplacing(CpsString& theOutput, std::string_view theText, std::string_view theSet,
                     char theByte) {
    for (;;) {
        const std::size_t at = theText.find_first_of(theSet);
        theOutput += theText.substr(0, at);
        if (at == std::string_view::npos) {
            return;
        }
        theOutput += theByte;
        const bool isPair = theText.substr(at, 2) == "\r\n";
        theText.remove_prefix(at + (isPair ? 2 : 1));
    }
}

}  // namespace

void XpTextRules::appendWithLineEnds(CpsString& theOutput, std::string_view theText) {
    appendReplacing(theOutput, theText, "\r", '\n');
}

void XpTextRules::appendWithBlanks(CpsString& theOutput, std::string_view theText) {
    appendReplacing(theOutput, theText, "\t\n\r", ' ');
}

void XpTextRules::appendUtf8(CpsString& theOutput, unsigned theCodePoint) {
    const auto tail = [&](unsigned theShift) {
        theOutput += static_cast<char>(0x80 | ((theCodePoint >> theShift) & 0x3F));
    };
    if (theCodePoint < 0x80) {
        theOutput += static_cast<char>(theCodePoint);
    } else if (theCodePoint < 0x800) {
        theOutput += static_cast<char>(0xC0 | (theCodePoint >> 6));
        tail(0);
    } else if (theCodePoint < 0x10000) {
        theOutput += static_cast<char>(0xE0 | (theCodePoint >> 12));
        tail(6);
        tail(0);
    } else {
        theOutput += static_cast<char>(0xF0 | (theCodePoint >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

CpsString XpTextRules::collapseSpace(std::string_view theText) {
    CpsString result;
    for (;;) {
        theText.remove_prefix(std::min(theText.find_first_not_of(theSpaces), theText.size()));
        if (theText.empty()) {
            return result;
        }
        const std::size_t end = std::min(theText.find_first_of(theSpaces), theText.size());
        if (!result.empty()) {
            result += ' ';
        }
        result += theText.substr(0, end);
        theText.remove_prefix(end);
    }
}

}  // namespace lumnis
