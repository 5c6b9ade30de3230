#include "FwIso2022Jp.h"

#include <algorithm>

#include "FwIso2022.h"
#include "FwUtf8Scan.h"

namespace lumnis {

namespace {

// EUC-JP holds the same sets without shift states: the bytes of JIS X 0208 with the top bit set,
// the katakana behind 8E, JIS X 0212, which ISO-2022-JP lacks, behind 8F.
constexpr FwIconvTable theEucTable{"EUC-JP-MS", false};
constexpr char theSingleShift2 = '\x8E';

enum class JpSet { ascii, roman, katakana, kanji };

struct JpEscape {
    std::string_view bytes;
    JpSet set;
};

// The first row of a set is the one that is written.
constexpr JpEscape theEscapes[] = {
    {"\x1B(B", JpSet::ascii},      {"\x1B(J", JpSet::roman},
    {"\x1B(I", JpSet::katakana},   {"\x1B$B", JpSet::kanji},  // JIS X 0208-1983
    {"\x1B$@", JpSet::kanji},                                 // JIS C 6226-1978
    {"\x1B&@\x1B$B", JpSet::kanji}                            // JIS X 0208-1990
};

// Writes the escape to theSet unless the text is in it already.
void shift(JpSet theSet, JpSet& theCurrent, FwConversionSink& theSink) {
    if (theSet != theCurrent) {
        theSink.put(std::find_if(std::begin(theEscapes), std::end(theEscapes),
                                 [&](const JpEscape& theEscape) { return theEscape.set == theSet; })
                        ->bytes);
        theCurrent = theSet;
    }
}

constexpr std::string_view theYenSign = "\xC2\xA5";
constexpr std::string_view theOverline = "\xE2\x80\xBE";

}  // namespace

FwIso2022JpEncoder::FwIso2022JpEncoder() : eucM(theEucTable) {}

void FwIso2022JpEncoder::convert(std::string_view theSource, FwConversionSink& theSink) {
    JpSet set = JpSet::ascii;
    while (!theSource.empty() && !theSink.isFullM) {
        const FwUtf8Step step = fwScanUtf8(theSource);
        const std::string_view character = theSource.substr(0, step.length);
        theSource.remove_prefix(step.length);
        char buffer[8];
        FwConversionSink euc(buffer);
        if (character == theYenSign || character == theOverline) {
            shift(JpSet::roman, set, theSink);
            theSink.put(character == theYenSign ? '\x5C' : '\x7E');
        } else if (!step.isWellFormed || isShiftByte(character[0]) ||
                   !eucM.encodeCharacter(character, euc)) {
            shift(JpSet::ascii, set, theSink);
            theSink.substitute(theMissingCharacter);
        } else if (euc.size() == 1 && isAsciiByte(buffer[0])) {
            shift(JpSet::ascii, set, theSink);
            theSink.put(buffer[0]);
        } else if (euc.size() == 2 && buffer[0] == theSingleShift2) {
            shift(JpSet::katakana, set, theSink);
            theSink.put(withoutTopBit(buffer[1]));
        } else if (euc.size() == 2) {
            shift(JpSet::kanji, set, theSink);
            theSink.put(withoutTopBit(buffer[0]));
            theSink.put(withoutTopBit(buffer[1]));
        } else {
            shift(JpSet::ascii, set, theSink);
            theSink.substitute(theMissingCharacter);
        }
    }
    shift(JpSet::ascii, set, theSink);
}

FwIso2022JpDecoder::FwIso2022JpDecoder() : eucM(theEucTable) {}

void FwIso2022JpDecoder::convert(std::string_view theSource, FwConversionSink& theSink) {
    JpSet set = JpSet::ascii;
    while (!theSource.empty() && !theSink.isFullM) {
        const auto escape = std::find_if(
            std::begin(theEscapes), std::end(theEscapes),
            [&](const JpEscape& theEscape) { return theSource.starts_with(theEscape.bytes); });
        if (escape != std::end(theEscapes)) {
            set = escape->set;
            theSource.remove_prefix(escape->bytes.size());
            continue;
        }
        const char byte = theSource[0];
        std::size_t length = 1;
        if (isShiftByte(byte) || !isAsciiByte(byte)) {
            theSink.substitute(theReplacementCharacter);
        } else if (!isGraphicByte(byte) || set == JpSet::ascii) {
            theSink.put(byte);
        } else if (set == JpSet::roman) {
            theSink.put(byte == '\x5C'   ? theYenSign
                        : byte == '\x7E' ? theOverline
                                         : std::string_view(&byte, 1));
        } else if (set == JpSet::katakana) {
            const char euc[] = {theSingleShift2, withTopBit(byte)};
            eucM.convert({euc, 2}, theSink);
        } else if (theSource.size() > 1 && isGraphicByte(theSource[1])) {
            const char euc[] = {withTopBit(byte), withTopBit(theSource[1])};
            eucM.convert({euc, 2}, theSink);
            length = 2;
        } else {
            theSink.substitute(theReplacementCharacter);
        }
        theSource.remove_prefix(length);
    }
}

}  // namespace lumnis
