#include "InputText.h"

#include <algorithm>

namespace lumnis::bench {

namespace {

// theUnit with theNumber for each @ in it.
void appendUnit(std::string& theText, std::string_view theUnit, std::size_t theNumber) {
    for (const char byte : theUnit) {
        theText += byte == '@' ? std::to_string(theNumber) : std::string(1, byte);
    }
}

}  // namespace

std::string repeat(std::string_view theUnit, std::size_t theCount) {
    std::string result;
    for (std::size_t i = 0; i < theCount; ++i) {
        appendUnit(result, theUnit, i);
    }
    return result;
}

std::string fill(std::size_t theSize, std::string_view theUnit, std::size_t theNumbers,
                 std::size_t* theCount) {
    std::string result;
    std::size_t count = 0;
    for (std::size_t length = 0; !theUnit.empty(); ++count) {
        appendUnit(result, theUnit, count % theNumbers);
        if (result.size() > theSize) {
            result.resize(length);
            break;
        }
        length = result.size();
    }
    if (theCount != nullptr) {
        *theCount = count;
    }
    return result;
}

std::string filled(std::size_t theSize, std::string_view theHead, std::string_view theUnit,
                   std::string_view theTail) {
    const std::size_t around = theHead.size() + theTail.size();
    std::string result(theHead);
    result += fill(theSize > around ? theSize - around : 0, theUnit);
    return result += theTail;
}

std::string halves(std::size_t theSize, std::string_view theHead, std::string_view theFirst,
                   std::string_view theMiddle, std::string_view theSecond,
                   std::string_view theTail) {
    const std::size_t half = theSize / 2 - theHead.size() - theMiddle.size();
    std::size_t count = 0;
    std::string result(theHead);
    result += fill(half, theFirst, SIZE_MAX, &count);
    result += theMiddle;
    result += fill(half, theSecond, count);
    return result += theTail;
}

std::string nested(std::size_t theSize, std::size_t theLevels, std::string_view theHead,
                   std::string_view theOpen, std::string_view theFilling, std::string_view theClose,
                   std::string_view theTail) {
    const std::size_t levels =
        std::min(theLevels, (theSize - theHead.size() - theTail.size()) /
                                std::max<std::size_t>(1, theOpen.size() + theClose.size()));
    std::string close;
    for (std::size_t i = 0; i < levels; ++i) {
        close += theClose;
    }
    return filled(theSize, std::string(theHead) + repeat(theOpen, levels), theFilling,
                  close + std::string(theTail));
}

std::string functionOf(std::size_t theSize, std::string_view theUnit, std::string_view theTail) {
    return filled(theSize, "extern function f(a, b) {\n", theUnit, std::string(theTail) + "\n}\n");
}

}  // namespace lumnis::bench
