#include "FwIso2022Kr.h"

#include <algorithm>

#include "FwIso2022.h"
#include "FwUtf8Scan.h"

namespace lumnis {

namespace {

// Code page 949 holds KS X 1001 with the top bit set in both bytes; its other double bytes are
// characters that ISO-2022-KR lacks.
constexpr FwIconvTable theKoreanTable{"UHC", false};
constexpr std::string_view theHeader = "\x1B$)C";
constexpr char theShiftOut = '\x0E';  // to KS X 1001
constexpr char theShiftIn = '\x0F';   // to ASCII

// Whether theByte of code page 949 stands for one of KS X 1001.
bool isKsByte(char theByte) {
    return !isAsciiByte(theByte) && isGraphicByte(withoutTopBit(theByte));
}

void shiftKorean(bool isOut, bool& isOutNow, FwConversionSink& theSink) {
    if (isOut != isOutNow) {
        theSink.put(isOut ? theShiftOut : theShiftIn);
        isOutNow = isOut;
    }
}

}  // namespace

FwIso2022KrEncoder::FwIso2022KrEncoder() : eucM(theKoreanTable) {}

void FwIso2022KrEncoder::convert(std::string_view theSource, FwConversionSink& theSink) {
    char* const begin = theSink.atM;
    bool isOut = false;
    bool needsHeader = false;
    while (!theSource.empty() && !theSink.isFullM) {
        const FwUtf8Step step = fwScanUtf8(theSource);
        const std::string_view character = theSource.substr(0, step.length);
        theSource.remove_prefix(step.length);
        char buffer[8];
        FwConversionSink euc(buffer);
        const bool isThere =
            step.isWellFormed && !isShiftByte(character[0]) && eucM.encodeCharacter(character, euc);
        if (isThere && euc.size() == 1 && isAsciiByte(buffer[0])) {
            shiftKorean(false, isOut, theSink);
            theSink.put(buffer[0]);
        } else if (isThere && euc.size() == 2 && isKsByte(buffer[0]) && isKsByte(buffer[1])) {
            needsHeader = true;
            shiftKorean(true, isOut, theSink);
            theSink.put(withoutTopBit(buffer[0]));
            theSink.put(withoutTopBit(buffer[1]));
        } else {
            shiftKorean(false, isOut, theSink);
            theSink.substitute(theMissingCharacter);
        }
    }
    shiftKorean(false, isOut, theSink);
    if (needsHeader && theSink.room() >= theHeader.size()) {
        // The header stands in front of all text.
        char* const end = theSink.atM;
        theSink.put(theHeader);
        std::rotate(begin, end, theSink.atM);
    }
}

FwIso2022KrDecoder::FwIso2022KrDecoder() : eucM(theKoreanTable) {}

void FwIso2022KrDecoder::convert(std::string_view theSource, FwConversionSink& theSink) {
    bool isOut = false;
    while (!theSource.empty() && !theSink.isFullM) {
        if (theSource.starts_with(theHeader)) {
            theSource.remove_prefix(theHeader.size());
            continue;
        }
        const char byte = theSource[0];
        std::size_t length = 1;
        if (byte == theShiftOut || byte == theShiftIn) {
            isOut = byte == theShiftOut;
        } else if (isShiftByte(byte) || !isAsciiByte(byte)) {
            theSink.substitute(theReplacementCharacter);
        } else if (!isOut || !isGraphicByte(byte)) {
            theSink.put(byte);
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
