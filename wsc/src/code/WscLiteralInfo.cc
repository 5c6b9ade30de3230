#include "WscLiteralInfo.h"

#include <bit>

#include "CcCharsetConverter.h"
#include "WscStringAndIntHandler.h"

namespace lumnis {

namespace {

// The low theCount bytes of theValue, most significant first.
void writeBigEndian(CpsString& theOutput, std::uint32_t theValue, unsigned theCount) {
    while (theCount-- != 0) {
        theOutput += static_cast<char>((theValue >> (8 * theCount)) & 0xFF);
    }
}

void writeString(CpsString& theOutput, WscLiteralInfo::Type theType, std::string_view theText) {
    theOutput += static_cast<char>(theType);
    WscStringAndIntHandler().getAsMultiByteInteger(static_cast<std::uint32_t>(theText.size()),
                                                   theOutput);
    theOutput += theText;
}

}  // namespace

void WscLiteralInt8::writeByteCodeInformation(CpsString& theOutput) const {
    theOutput += static_cast<char>(Int8);
    theOutput += static_cast<char>(valueM);
}

void WscLiteralInt16::writeByteCodeInformation(CpsString& theOutput) const {
    theOutput += static_cast<char>(Int16);
    writeBigEndian(theOutput, static_cast<std::uint16_t>(valueM), 2);
}

void WscLiteralInt32::writeByteCodeInformation(CpsString& theOutput) const {
    theOutput += static_cast<char>(Int32);
    writeBigEndian(theOutput, static_cast<std::uint32_t>(valueM), 4);
}

void WscLiteralFloat::writeByteCodeInformation(CpsString& theOutput) const {
    theOutput += static_cast<char>(Float);
    writeBigEndian(theOutput, std::bit_cast<std::uint32_t>(valueM), 4);
}

void WscLiteralStringUtf8::writeByteCodeInformation(CpsString& theOutput) const {
    writeString(theOutput, StringUtf8, textM);
}

bool WscLiteralStringExtern::transcode(CcCharsetConverter& theConverter, std::uint32_t theCharset) {
    if (transcodedTextM == nullptr) {
        transcodedTextM = std::make_unique<CpsString>(textM);
    }
    return theConverter.convertFromUtf8(textM, *transcodedTextM,
                                        static_cast<HedCharsetId>(theCharset), false);
}

void WscLiteralStringExtern::transcode(CcCharsetConverter& theConverter,
                                       std::uint32_t theHighPrioCharset, bool useEscape) {
    highPriorityCharsetM = theHighPrioCharset;
    highPriorityTextM = std::make_unique<CpsString>();
    // A failure leaves the text as the conversion left it.
    theConverter.convertFromUtf8(textM, *highPriorityTextM,
                                 static_cast<HedCharsetId>(theHighPrioCharset), useEscape);
}

void WscLiteralStringExtern::writeByteCodeInformation(CpsString& theOutput) const {
    if (highPriorityTextM != nullptr && highPriorityCharsetM == charsetM) {
        writeString(theOutput, StringExtern, *highPriorityTextM);
    } else if (transcodedTextM != nullptr && charsetM != theUtf8Charset) {
        writeString(theOutput, StringExtern, *transcodedTextM);
    } else {
        writeString(theOutput, StringExtern, textM);
    }
}

}  // namespace lumnis
