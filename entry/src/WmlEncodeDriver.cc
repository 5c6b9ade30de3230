#include "WmlEncodeDriver.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "CcCharsetConverter.h"
#include "FwThreadBuffer.h"
#include "FwTraceScope.h"
#include "HedCharsetMap.h"
#include "XaProducer.h"
#include "XaWbxmlDirector.h"
#include "XpInternalError.h"
#include "XpParserError.h"

namespace lumnis {

namespace {

// How much of theText fits into theSize bytes without a part of a character at its end. A message
// may quote malformed UTF-8: no more is taken off than a character is long.
std::size_t lengthThatFits(std::string_view theText, std::size_t theSize) noexcept {
    if (theText.size() <= theSize) {
        return theText.size();
    }
    const auto isContinuation = [](char theByte) {
        return (static_cast<unsigned char>(theByte) & 0xC0) == 0x80;
    };
    std::size_t length = theSize;
    for (int i = 0; i < 3 && isContinuation(theText[length]); ++i) {
        --length;
    }
    return length;
}

}  // namespace

void WmlEncodeDriver::refuse(std::string_view thePrefix, const char* theMessage,
                             std::string_view theSuffix) {
    errorMessageM = theMessage;
    errorTextM = thePrefix;
    errorTextM += theMessage;
    errorTextM += theSuffix;
}

// From the document to outputM, or with a text in errorTextM.
void WmlEncodeDriver::process(const CpsString& theDocument) {
    const HedCharsetId charset = HedCharsetMap::instance().getNumber(outputCharsetM);
    try {
        runOutputM = XaProducer::instance().process(theDocument, mediaTypeM, charset,
                                                    &outputMediaTypeM, outputM);
    } catch (const XpParserError& error) {
        errorLineM = error.getLine();
        refuse("", error.toString().c_str(),
               "  (before or at line: " + std::to_string(errorLineM) + ")\n");
    } catch (const XpException& error) {
        refuse("", error.toString().c_str(), "");
    } catch (const XpInternalError& error) {
        refuse("fatal internal parser error: ", error.what(), "\n");
    } catch (const XaException& error) {
        refuse("error in Xa: ", error.what(), "\n");
    } catch (const std::exception& error) {
        refuse("standard exception: ", error.what(), "\n");
    } catch (...) {
        refuse("", "undefined exception", "\n");
    }
}

WmlEncodeDriver::Outcome WmlEncodeDriver::encode(std::string_view theSource) {
    const FwTraceScope scope("WmlEncodeDriver::encode");
    outputM.clear();
    runOutputM.reset();
    errorTextM.clear();
    errorMessageM.clear();
    errorLineM = 0;
    WmlDirector::init();
    XaWbxmlDirector::init();

    CpsString document;
    CcCharsetConverter converter;
    if (!converter.convertToUtf8(theSource, document,
                                 HedCharsetMap::instance().getNumber(inputCharsetM))) {
        errorTextM = errorMessageM = converter.getErrorMessage();
        return Outcome::NOT_CONVERTIBLE;
    }
    process(document);
    return runOutputM != nullptr ? Outcome::ENCODED : Outcome::REFUSED;
}

bool WmlEncodeDriver::run(std::string_view theSource, char** theResult,
                          std::uint32_t& theResultLength, char** theErrorText) {
    const Outcome outcome = encode(theSource);
    if (outcome == Outcome::NOT_CONVERTIBLE) {
        std::printf("%s\n", errorTextM.c_str());
        return false;
    }
    // A block even for no bytes: a caller who gets a null pointer would take it for a lack of
    // memory.
    auto* result = static_cast<char*>(std::malloc(std::max<std::size_t>(outputM.length(), 1)));
    if (result == nullptr) {
        std::puts("Could not malloc result buffer for wmlc data.");
        theResultLength = 0;
        return false;
    }
    std::memcpy(result, outputM.data(), outputM.length());
    theResultLength = outputM.length();
    *theResult = result;
    if (outcome == Outcome::ENCODED) {
        return true;
    }
    if (!errorTextM.empty()) {
        storeErrorText(errorTextM, theErrorText);
    }
    return false;
}

void WmlEncodeDriver::storeErrorText(std::string_view theText, char** theErrorText) noexcept {
    static char theLastResort[] = "not enough memory";
    char* text = fwThreadBuffer();
    if (text == nullptr) {
        text = theLastResort;
    } else {
        const std::size_t length = lengthThatFits(theText, theThreadBufferSize - 1);
        std::memcpy(text, theText.data(), length);
        text[length] = '\0';
    }
    if (theErrorText != nullptr) {
        *theErrorText = text;
    }
}

}  // namespace lumnis
