#include "XpTextRules.h"

#include <algorithm>
#include <cstdint>

namespace lumnis {

namespace {

constexpr std::string_view theSpaces = "\t\n\r ";
// What a string may hold; beyond that it throws.
constexpr std::uint64_t theLongest = 4294967039;

// Appends theText in pieces between the bytes that isSpecial knows, which with a line feed behind
// a carriage return become theByte.
template <typename Test>
void appendReplacing(CpsString& theOutput, std::string_view theText, Test isSpecial, char theByte) {
    for (;;) {
        const auto place = std::find_if(theText.begin(), theText.end(), isSpecial);
        const auto at = static_cast<std::size_t>(place - theText.begin());
        XpTextRules::append(theOutput, theText.substr(0, at));
        if (at == theText.size()) {
            return;
        }
        XpTextRules::append(theOutput, {&theByte, 1});
        const bool isPair = theText.substr(at, 2) == "\r\n";
        theText.remove_prefix(at + (isPair ? 2 : 1));
    }
}

}  // namespace

void XpTextRules::append(CpsString& theOutput, std::string_view theText) {
    const std::uint64_t length = std::uint64_t{theOutput.length()} + theText.size();
    if (length > theOutput.capacity() && length <= theLongest) [[unlikely]] {
        constexpr std::uint64_t theMostAtOnce = 1u << 30;
        const std::uint64_t wanted =
            length + std::min<std::uint64_t>(theOutput.length(), theMostAtOnce);
        theOutput.reserve(static_cast<std::uint32_t>(std::min(wanted, theLongest)));
    }
    theOutput.append(theText);
}

void XpTextRules::appendWithLineEnds(CpsString& theOutput, std::string_view theText) {
    if (theText.find('\r') == std::string_view::npos) {
        append(theOutput, theText);
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
    append(theOutput, {bytes, count});
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
            append(result, " ");
        }
        append(result, theText.substr(0, end));
        theText.remove_prefix(end);
    }
}

}  // namespace lumnis
