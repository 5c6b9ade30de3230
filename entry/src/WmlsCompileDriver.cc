#include "WmlsCompileDriver.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <utility>

#include "CcCharsetConverter.h"
#include "FwTraceScope.h"
#include "WscWmlScriptError.h"

namespace lumnis {

namespace {

const char* headingOf(int theErrorCode) {
    switch (theErrorCode) {
        case WscWmlScriptError::CompilationError:
            return "Compilation error: \n";
        case WscWmlScriptError::OtherError:
            return "Other error: \n";
        case WscWmlScriptError::NotAnError:
            return "Not an error: \n";
        default:
            return "Unknown error code: \n";
    }
}

void writePragma(std::ostream& theStream, const char* theKind, const CpsString& theProperty,
                 const CpsString& theContent, const CpsString& theScheme) {
    theStream << "<PRAGMA> " << theKind << ": \"" << theProperty.view() << "\" \""
              << theContent.view() << '"';
    if (!theScheme.empty()) {
        theStream << " \"" << theScheme.view() << '"';
    }
    theStream << '\n';
}

}  // namespace

bool WmlsCompileDriver::run(const char* theSource, int theSourceLength, char** theResult,
                            std::uint32_t& theResultLength, char** theErrorText) {
    FwTraceScope scope("WmlsCompileDriver::run");
    sourceM = std::make_unique<CpsString>(theSource, static_cast<std::uint32_t>(theSourceLength));
    if (convertInputM != 0 && !convertInput()) {
        return false;
    }
    if (compilerM.compile(sourceM.get()) != 1) {
        storeErrorText(errorText(compilerM), theErrorText);
        return false;
    }
    const CpsString& byteCode = *compilerM.getByteCode();
    auto* result = static_cast<char*>(std::malloc(byteCode.length()));
    if (result == nullptr) {
        std::fputs("Could not malloc result buffer for wmlc data.\n", stderr);
        theResultLength = 0;
        return false;
    }
    std::memcpy(result, byteCode.data(), byteCode.length());
    theResultLength = byteCode.length();
    *theResult = result;
    if (printPragmasM != 0) {
        writePragmaReport(compilerM, std::cout);
    }
    return true;
}

bool WmlsCompileDriver::convertInput() {
    CcCharsetConverter converter;
    auto converted = std::make_unique<CpsString>();
    if (!converter.convertToUtf8(*sourceM, *converted, inputCharsetM)) {
        std::cout << converter.getErrorMessage().view() << "\n\n" << std::flush;
        std::fputs("Charset conversion failed.\n", stderr);
        return false;
    }
    sourceM = std::move(converted);
    return true;
}

CpsString WmlsCompileDriver::errorText(const WscWmlScriptCompiler& theCompiler) {
    CpsString text;
    CpsString message;
    for (unsigned int i = 0; i < theCompiler.getNumErrors(); ++i) {
        theCompiler.getErrorMessage(i, message);
        text += '\n';
        text += headingOf(theCompiler.getErrorCode(i));
        text += message;
    }
    return text;
}

void WmlsCompileDriver::storeErrorText(std::string_view theText, char** theErrorText) noexcept {
    if (theErrorText == nullptr) {
        return;
    }
    auto* copy = static_cast<char*>(std::malloc(theText.size() + 2));
    if (copy != nullptr) {
        std::memcpy(copy, theText.data(), theText.size());
        copy[theText.size()] = '\n';
        copy[theText.size() + 1] = '\0';
    }
    *theErrorText = copy;
}

void WmlsCompileDriver::writePragmaReport(const WscWmlScriptCompiler& theCompiler,
                                          std::ostream& theStream) {
    for (unsigned int i = 0; i < theCompiler.getNumMetaHttp(); ++i) {
        writePragma(theStream, "MetaHTTP", theCompiler.getMetaHttpProperty(i),
                    theCompiler.getMetaHttpContent(i), theCompiler.getMetaHttpScheme(i));
    }
    for (unsigned int i = 0; i < theCompiler.getNumMetaName(); ++i) {
        writePragma(theStream, "MetaName", theCompiler.getMetaNameProperty(i),
                    theCompiler.getMetaNameContent(i), theCompiler.getMetaNameScheme(i));
    }
    theStream << '\n' << std::flush;
}

}  // namespace lumnis
