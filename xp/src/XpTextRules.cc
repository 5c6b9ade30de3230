#include "XpTextRules.h"

#include <algorithm>
#include <cstdint>

namespace lumnis {

namespace {

constexpr std::string_view theSpaces = "\t\n\r ";

// Appends theText in pieces between the bytes that isSpecial knows, which with a line feed behind
// a carriage return become theByte.
template <typename Test>
void appendReplacing(CpsString& theOutput, std::string_view theText, Test isSpecial, char theByte) {
    for (;;) {
        const auto place = std::find_if(theText.begin(), theText.end(), isSpecial);
        const auto at = static_cast<std::size_t>(place - theText.begin());
        theOutput.appendPiece(theText.substr(0, at));
        if (at == theText.size()) {
            return;
        }
        theOutput.appendPiece({&theByte, 1});
        const bool isPair = theText.substr(at, 2) == "\r\n";
        theText.remove_prefix(at + (isPair ? 2 : 1));
    }
}

}  // namespace

void XpTextRules::appendWithLineEnds(CpsString& theOutput, std::string_view theText) {
    if (theText.find('\r') == std::string_view::npos) {
        theOutput.appendPiece(theText);
        return;
    }
    appendReplacing(
        theOutput, theText, [](char theChar) { return theChar == '\r'; }, '\n');
}

void XpTextRules::appendWithBlanks(CpsString& theOutput, std::string_view theText) {
    appendReplacing(
        theOutput, theText,
        [](char theChar) { return theChar == '\t' || theChar == '\n' || theChar == '\r'; }, ' ');
}

void XpTextRules::appendUtf8(CpsString& theOutput, unsigned theCodePoint) {
    char bytes[4];
    std::size_t count = 0;
    const auto put = [&](unsigned theByte) { bytes[count++] = static_cast<char>(theByte); };
    const auto putTail = [&](unsigned theShift) {
        put(0x80 | ((theCodePoint >> theShift) & 0x3F));
    };
    if (theCodePoint < 0x80) {
        put(theCodePoint);
    } else if (theCodePoint < 0x800) {
        put(0xC0 | (theCodePoint >> 6));
        putTail(0);
    } else if (theCodePoint < 0x10000) {
        put(0xE0 | (theCodePoint >> 12));
        putTail(6);
        putTail(0);
    } else {
        put(0xF0 | (theCodePoint >> 18));
        putTail(12);
        putTail(6);
        putTail(0);
    }
    theOutput.appendPiece({bytes, count});
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
            result.appendPiece(" ");
        }
        result.appendPiece(theText.substr(0, end));
        theText.remove_prefix(end);
    }
}

}  // namespace lumnis
