// Conversion from and to UTF-8 over all charsets. The first byte chooses the charset, the second
// one escapes and direction; the rest is the text.
#include <cstdint>
#include <string>
#include <vector>

#include "CcCharsetConverter.h"
#include "HedCharsetMap.h"
#include "Require.h"

namespace lumnis {
namespace {

using fuzz::require;

// Every number of the table, and those that are no charset to anybody.
HedCharsetId charsetOf(std::uint8_t theChoice) {
    const auto numbers = HedCharsetMap::instance().numbers();
    if (theChoice < numbers.size()) {
        return numbers[theChoice].number;
    }
    constexpr HedCharsetId theOthers[] = {-2, -4, 9999, -9999};
    const auto codePages = CcCharsetConverter::codePages();
    const std::size_t rest = theChoice - numbers.size();
    return rest < std::size(theOthers) ? theOthers[rest]
                                       : codePages[rest % codePages.size()].charset;
}

struct Outcome {
    bool isDone;
    std::string output;
    std::string message;

    bool operator==(const Outcome&) const = default;
};

constexpr char theFormerOutput[] = "former";

Outcome toUtf8(CcCharsetConverter& theConverter, const std::string& theText, HedCharsetId theSet) {
    CpsString output(theFormerOutput);
    const bool isDone = theConverter.convertToUtf8(theText, output, theSet);
    return {isDone, std::string(output.view()),
            isDone ? "" : std::string(theConverter.getErrorMessage().view())};
}

Outcome fromUtf8(CcCharsetConverter& theConverter, const std::string& theText, HedCharsetId theSet,
                 bool useEscape) {
    CpsString output(theFormerOutput);
    const bool isDone = theConverter.convertFromUtf8(theText, output, theSet, useEscape);
    return {isDone, std::string(output.view()),
            isDone ? "" : std::string(theConverter.getErrorMessage().view())};
}

bool isUnicodeForm(HedCharsetId theSet) {
    return theSet == theUtf8Charset || theSet == theUcs2Charset || theSet == theUcs4Charset ||
           theSet == CcCharsetConverter::theUtf16FormCharset ||
           theSet == CcCharsetConverter::thePassedUtf8Charset;
}

// Sets of one byte each, whose tables map one to one.
bool isSingleByte(HedCharsetId theSet) {
    for (const HedCharsetId set : {3, 4, 5, 9, 10, 12, 2250, 2252, 2253}) {
        if (set == theSet) {
            return true;
        }
    }
    return false;
}

void checkRead(CcCharsetConverter& theConverter, const std::string& theText, HedCharsetId theSet) {
    const Outcome outcome = toUtf8(theConverter, theText, theSet);
    CcCharsetConverter other;
    require(outcome == toUtf8(other, theText, theSet));
    require(outcome.isDone == outcome.message.empty());
    require(outcome.output.size() <= 4 * theText.size());
    if (!outcome.isDone) {
        require(outcome.output.empty());
        return;
    }
    if (isUnicodeForm(theSet)) {
        return;
    }
    require(CcCharsetConverter::isValidUtf8(outcome.output));
    // What has been read can be written, and means the same when it is read again. It need not
    // be the same bytes: some characters have several places in their set.
    const Outcome written = fromUtf8(theConverter, outcome.output, theSet, false);
    if (outcome.output.empty()) {
        require(!written.isDone);  // shifts alone
        return;
    }
    if (isSingleByte(theSet)) {
        require(written.isDone && written.output == theText);
    }
    if (written.isDone) {
        const Outcome again = toUtf8(theConverter, written.output, theSet);
        require(again.isDone && again.output == outcome.output);
    }
}

void checkWrite(CcCharsetConverter& theConverter, const std::string& theText, HedCharsetId theSet,
                bool useEscape) {
    const Outcome outcome = fromUtf8(theConverter, theText, theSet, useEscape);
    CcCharsetConverter other;
    require(outcome == fromUtf8(other, theText, theSet, useEscape));
    require(outcome.isDone == outcome.message.empty());
    if (!outcome.isDone) {
        require(outcome.output.empty() || outcome.output == theFormerOutput);
        return;
    }
    // The entity token of a character of two bytes has three bytes, in UCS-4 one byte has four.
    require(outcome.output.size() <= 4 * theText.size());
    if (isUnicodeForm(theSet)) {
        return;
    }
    // What has been written can be read. Without escapes it has the same number of characters,
    // and is the same text where each byte of the set means one character.
    const Outcome read = toUtf8(theConverter, outcome.output, theSet);
    require(read.isDone);
    if (!useEscape && isSingleByte(theSet)) {
        require(read.output == theText);
    }
    if (!useEscape) {
        const Outcome again = fromUtf8(theConverter, read.output, theSet, false);
        require(again.isDone && again.output == outcome.output);
    }
}

}  // namespace
}  // namespace lumnis

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* theData, std::size_t theSize) {
    using namespace lumnis;
    if (theSize < 2) {
        return 0;
    }
    const HedCharsetId charset = charsetOf(theData[0]);
    const bool useEscape = (theData[1] & 1) != 0;
    const std::string text(theData + 2, theData + theSize);
    CcCharsetConverter converter;
    if ((theData[1] & 2) != 0) {
        checkRead(converter, text, charset);
    } else {
        checkWrite(converter, text, charset, useEscape);
    }
    return 0;
}
