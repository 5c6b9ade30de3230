#include "WscWmlScriptCompiler.h"

#include <exception>
#include <iostream>
#include <new>
#include <sstream>

#include "FwTraceScope.h"
#include "WscCompilerData.h"
#include "WscCompilerException.h"
#include "WscParser.h"

namespace lumnis {

namespace {

constexpr char theCompilerVersion[] = "Version 1.1";
constexpr std::uint8_t theMajorVersion = 1;
constexpr std::uint8_t theMinorVersion = 1;

constexpr int theSuccess = 1;
constexpr int theFailure = 2;

// Null when theIndex is out of range.
template <class Record>
const Record* at(const std::vector<Record>& theRecords, unsigned int theIndex) {
    return theIndex < theRecords.size() ? &theRecords[theIndex] : nullptr;
}

}  // namespace

WscWmlScriptCompiler::WscWmlScriptCompiler() : consoleStreamM(&std::cout) {}

WscWmlScriptCompiler::~WscWmlScriptCompiler() = default;

int WscWmlScriptCompiler::setAcceptCharacterSet(unsigned int theCharset) {
    acceptCharsetsM.push_back(theCharset);
    statusM |= theCharsetAdded;
    return theSuccess;
}

void WscWmlScriptCompiler::getCompilerVersion(CpsString& theVersion) const {
    theVersion = theCompilerVersion;
}

int WscWmlScriptCompiler::compile(const CpsString* theSource) {
    FwTraceScope scope("WscWmlScriptCompiler::compile");
    if (theSource == nullptr) {
        return theFailure;
    }
    statusM = 0;
    debugStreamM.reset();
    if (debugModeM) {
        debugStreamM = std::make_unique<std::ostringstream>();
    }
    rootM = nullptr;
    parserM.reset();
    compilerDataM =
        std::make_unique<WscCompilerData>(debugStreamM.get(), assemblyStreamM, acceptCharsetsM,
                                          optimizeModeM, theMajorVersion, theMinorVersion);
    try {
        run(*theSource);
    } catch (const WscCompilerException& error) {
        compilerDataM->addError(WscWmlScriptError::CompilationError, error.getMessage());
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        // No source text can cause this, but a host must not see it either.
        compilerDataM->addError(WscWmlScriptError::OtherError, error.what());
    }
    statusM |= theCompileFinished;
    return compilerDataM->getErrors().empty() ? theSuccess : theFailure;
}

void WscWmlScriptCompiler::run(const CpsString& theSource) {
    parserM = std::make_unique<WscParser>(theSource, compilerDataM->getTexts());
    parserM->yyparse();
    rootM = parserM->getAstRootNode();
    rootM->runSemanticAction(*compilerDataM);
    if (parseTreeStreamM != nullptr) {
        *parseTreeStreamM << "Dump using dump() routine of nodes\n"
                          << "----------------------------------\n";
        rootM->dump(CpsString(), compilerDataM->getTexts(), *parseTreeStreamM, *consoleStreamM);
    }
}

unsigned int WscWmlScriptCompiler::getByteCodeSize() const {
    return getByteCode()->length();
}

const CpsString* WscWmlScriptCompiler::getByteCode() const {
    return isFinished() && compilerDataM->getErrors().empty() ? &compilerDataM->getByteCode()
                                                              : &noByteCodeM;
}

unsigned int WscWmlScriptCompiler::getNumMetaName() const {
    return isFinished() ? static_cast<unsigned>(compilerDataM->getPragmaMetaName().size()) : 0;
}

unsigned int WscWmlScriptCompiler::getNumMetaHttp() const {
    return isFinished() ? static_cast<unsigned>(compilerDataM->getPragmaMetaHttp().size()) : 0;
}

const WscPragmaMeta* WscWmlScriptCompiler::metaName(unsigned int theIndex) const {
    return compilerDataM == nullptr ? nullptr : at(compilerDataM->getPragmaMetaName(), theIndex);
}

const WscPragmaMeta* WscWmlScriptCompiler::metaHttp(unsigned int theIndex) const {
    return compilerDataM == nullptr ? nullptr : at(compilerDataM->getPragmaMetaHttp(), theIndex);
}

CpsString WscWmlScriptCompiler::getMetaNameProperty(unsigned int theIndex) const {
    const WscPragmaMeta* meta = metaName(theIndex);
    return meta == nullptr ? CpsString() : meta->getPropertyName();
}

CpsString WscWmlScriptCompiler::getMetaNameContent(unsigned int theIndex) const {
    const WscPragmaMeta* meta = metaName(theIndex);
    return meta == nullptr ? CpsString() : meta->getContent();
}

CpsString WscWmlScriptCompiler::getMetaNameScheme(unsigned int theIndex) const {
    const WscPragmaMeta* meta = metaName(theIndex);
    return meta == nullptr ? CpsString() : meta->getScheme();
}

CpsString WscWmlScriptCompiler::getMetaHttpProperty(unsigned int theIndex) const {
    const WscPragmaMeta* meta = metaHttp(theIndex);
    return meta == nullptr ? CpsString() : meta->getPropertyName();
}

CpsString WscWmlScriptCompiler::getMetaHttpContent(unsigned int theIndex) const {
    const WscPragmaMeta* meta = metaHttp(theIndex);
    return meta == nullptr ? CpsString() : meta->getContent();
}

CpsString WscWmlScriptCompiler::getMetaHttpScheme(unsigned int theIndex) const {
    const WscPragmaMeta* meta = metaHttp(theIndex);
    return meta == nullptr ? CpsString() : meta->getScheme();
}

unsigned int WscWmlScriptCompiler::getNumErrors() const {
    return isFinished() ? static_cast<unsigned>(compilerDataM->getErrors().size()) : 0;
}

int WscWmlScriptCompiler::getErrorCode(unsigned int theIndex) const {
    const auto* error = isFinished() ? at(compilerDataM->getErrors(), theIndex) : nullptr;
    return error == nullptr ? WscWmlScriptError::NotAnError : error->getErrorCode();
}

void WscWmlScriptCompiler::getErrorMessage(unsigned int theIndex, CpsString& theText) const {
    const auto* error =
        compilerDataM == nullptr ? nullptr : at(compilerDataM->getErrors(), theIndex);
    if (error == nullptr) {
        theText.clear();
    } else {
        theText = error->getErrorMessage();
    }
}

}  // namespace lumnis
