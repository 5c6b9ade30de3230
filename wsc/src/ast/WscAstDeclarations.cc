#include "WscAstDeclarations.h"

#include "WscAstPrimaries.h"
#include "WscCompilerData.h"

namespace lumnis {

// The messages below differ in capitals and blanks; tools know them so, and they stay.

namespace {

// Fields of one byte in the function pool of the file.
constexpr unsigned theMaxFunctions = 255;
constexpr unsigned theMaxParameters = 255;
constexpr unsigned theMaxLocalVariables = 255;
constexpr unsigned theMaxFunctionNameLength = 255;
// What the one byte of a variable's number in an instruction can tell apart.
constexpr unsigned theMaxVariables = 256;
// What the two bytes of a constant's index can name.
constexpr unsigned theMaxConstants = 65535;

// Empty when the pragma has none.
std::string_view schemeOf(WscCompilerData& theData, const WscSimpleNode& thePragma) {
    const WscSimpleNode* scheme = thePragma.getChild(2);
    return scheme->isA(WscNodeType::Empty) ? std::string_view() : stringOf(theData, scheme);
}

}  // namespace

const WscSimpleNode* WscAstCompilationUnit::semanticAction(WscCompilerData& theData,
                                                           WscActionFrame& theFrame) const {
    if (const WscSimpleNode* next = nextChild(theFrame)) {
        return next;
    }
    if (theData.getNoOfConstants() > theMaxConstants) {
        fail("Semantic error: Number of constants too many (>65535)");
    }
    theData.selectOutEncoding();
    theData.writeByteCode();
    return nullptr;
}

const WscSimpleNode* WscAstFunctionDeclarations::semanticAction(WscCompilerData& theData,
                                                                WscActionFrame& theFrame) const {
    if (theFrame.step == 0) {
        for (const WscSimpleNode* function = getFirstChild(); function != nullptr;
             function = getNextChild(function)) {
            static_cast<const WscAstFunctionDeclaration*>(function)->addFunctionInfo(theData);
        }
    }
    return nextChild(theFrame);
}

void WscAstFunctionDeclaration::addFunctionInfo(WscCompilerData& theData) const {
    const bool isExported = getChild(0)->isA(WscNodeType::Extern);
    WscName& name = nameOf(theData, getChild(1));
    const unsigned parameters = getChild(2)->getNumChildren();
    if (isExported && name.text.size() > theMaxFunctionNameLength) {
        fail("Semantic error: External function name \"" + CpsString(name.text) +
             "\" too long (>255)");
    }
    if (parameters > theMaxParameters) {
        fail("Semantic error: Number of formal parameters in function \"" + CpsString(name.text) +
             "\" too many (>255)");
    }
    if (theData.addFunction(name, static_cast<std::uint8_t>(parameters), isExported) < 0) {
        fail("Semantic error: Function \"" + CpsString(name.text) + "\" multiply defined");
    }
    if (theData.getNoOfFunctions() > theMaxFunctions) {
        fail("Semantic Error: Number of functions too many (>255)");
    }
}

const WscSimpleNode* WscAstFunctionDeclaration::semanticAction(WscCompilerData& theData,
                                                               WscActionFrame& theFrame) const {
    WscName& name = nameOf(theData, getChild(1));
    const WscSimpleNode* parameters = getChild(2);
    if (theFrame.step == 0) {
        theData.startFunctionCode();
        for (const WscSimpleNode* parameter = parameters->getFirstChild(); parameter != nullptr;
             parameter = parameters->getNextChild(parameter)) {
            WscName& variable = nameOf(theData, parameter);
            if (theData.addVariable(variable) < 0) {
                fail("Semantic Error: Function parameter \"" + CpsString(variable.text) +
                     "\" has already been defined");
            }
        }
        return getChild(3);
    }
    theData.generate(WscOpcode::ReturnEs);
    if (theData.getNoOfVariables() - parameters->getNumChildren() > theMaxLocalVariables) {
        fail("Semantic Error: Number of variables in function \"" + CpsString(name.text) +
             "\" too many (>255)");
    }
    if (theData.getNoOfVariables() > theMaxVariables) {
        fail("SemanticError: Number of variables & formal parameters in function \"" +
             CpsString(name.text) + "\" too many (>256)");
    }
    if (theData.stopFunctionCode(name, theData.getNoOfVariables()) < 0) {
        fail("Semantic Error: Unable to generate code for function \"" + CpsString(name.text) +
             "\", too long jump range (>65535)");
    }
    return nullptr;
}

const WscSimpleNode* WscAstExternalCompilationUnitPragma::semanticAction(WscCompilerData& theData,
                                                                         WscActionFrame&) const {
    WscName& name = nameOf(theData, getChild(0));
    if (!theData.addPragmaURL(name, stringOf(theData, getChild(1)))) {
        fail("Semantic error: URL identifier \"" + CpsString(name.text) + "\" multiply defined");
    }
    return nullptr;
}

const WscSimpleNode* WscAstAccessControlDomain::semanticAction(WscCompilerData& theData,
                                                               WscActionFrame&) const {
    const std::string_view domain = stringOf(theData, getChild(0));
    if (theData.hasPragmaAccessDomain()) {
        fail("Semantic Error: Domain \"" + CpsString(domain) + "\" access control already defined");
    }
    theData.addPragmaAccessDomain(domain);
    return nullptr;
}

const WscSimpleNode* WscAstAccessControlPath::semanticAction(WscCompilerData& theData,
                                                             WscActionFrame&) const {
    const std::string_view path = stringOf(theData, getChild(0));
    if (theData.hasPragmaAccessPath()) {
        fail("Semantic error: path \"" + CpsString(path) + "\" access control already defined");
    }
    theData.addPragmaAccessPath(path);
    return nullptr;
}

const WscSimpleNode* WscAstAccessControlDomainPath::semanticAction(WscCompilerData& theData,
                                                                   WscActionFrame&) const {
    const std::string_view domain = stringOf(theData, getChild(0));
    if (theData.hasPragmaAccessDomain() || theData.hasPragmaAccessPath()) {
        fail("Semantic Error: Domain or path\"" + CpsString(domain) +
             "\" access control already defined");
    }
    theData.addPragmaAccessDomainPath(domain, stringOf(theData, getChild(1)));
    return nullptr;
}

const WscSimpleNode* WscAstMetaName::semanticAction(WscCompilerData& theData,
                                                    WscActionFrame&) const {
    theData.addPragmaMetaName(stringOf(theData, getChild(0)), stringOf(theData, getChild(1)),
                              schemeOf(theData, *this));
    return nullptr;
}

const WscSimpleNode* WscAstMetaHttpEquiv::semanticAction(WscCompilerData& theData,
                                                         WscActionFrame&) const {
    theData.addPragmaMetaHttp(stringOf(theData, getChild(0)), stringOf(theData, getChild(1)),
                              schemeOf(theData, *this));
    return nullptr;
}

const WscSimpleNode* WscAstMetaUserAgent::semanticAction(WscCompilerData& theData,
                                                         WscActionFrame&) const {
    theData.addPragmaMetaUserAgent(stringOf(theData, getChild(0)), stringOf(theData, getChild(1)),
                                   schemeOf(theData, *this));
    return nullptr;
}

}  // namespace lumnis
