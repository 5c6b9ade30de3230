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

CpsString schemeOf(const WscSimpleNode& thePragma) {
    const WscSimpleNode* scheme = thePragma.getChild(2);
    return scheme->isA(WscNodeType::Empty) ? CpsString() : stringOf(scheme);
}

}  // namespace

const WscSimpleNode* WscAstCompilationUnit::semanticAction(WscActionFrame& theFrame) const {
    WscCompilerData& data = getCompilerData();
    if (const WscSimpleNode* next = nextChild(theFrame)) {
        return next;
    }
    if (data.getNoOfConstants() > theMaxConstants) {
        fail("Semantic error: Number of constants too many (>65535)");
    }
    data.selectOutEncoding();
    data.writeByteCode();
    return nullptr;
}

const WscSimpleNode* WscAstFunctionDeclarations::semanticAction(WscActionFrame& theFrame) const {
    if (theFrame.step == 0) {
        for (const WscSimpleNode* function = getFirstChild(); function != nullptr;
             function = function->getNextSibling()) {
            static_cast<const WscAstFunctionDeclaration*>(function)->addFunctionInfo();
        }
    }
    return nextChild(theFrame);
}

void WscAstFunctionDeclaration::addFunctionInfo() const {
    WscCompilerData& data = getCompilerData();
    const bool isExported = getChild(0)->isA(WscNodeType::Extern);
    const CpsString& name = nameOf(getChild(1));
    const unsigned parameters = getChild(2)->getNumChildren();
    if (isExported && name.length() > theMaxFunctionNameLength) {
        fail("Semantic error: External function name \"" + name + "\" too long (>255)");
    }
    if (parameters > theMaxParameters) {
        fail("Semantic error: Number of formal parameters in function \"" + name +
             "\" too many (>255)");
    }
    if (data.addFunction(name, static_cast<std::uint8_t>(parameters), isExported) < 0) {
        fail("Semantic error: Function \"" + name + "\" multiply defined");
    }
    if (data.getNoOfFunctions() > theMaxFunctions) {
        fail("Semantic Error: Number of functions too many (>255)");
    }
}

const WscSimpleNode* WscAstFunctionDeclaration::semanticAction(WscActionFrame& theFrame) const {
    WscCompilerData& data = getCompilerData();
    const CpsString& name = nameOf(getChild(1));
    const WscSimpleNode* parameters = getChild(2);
    if (theFrame.step == 0) {
        data.startFunctionCode();
        for (const WscSimpleNode* parameter = parameters->getFirstChild(); parameter != nullptr;
             parameter = parameter->getNextSibling()) {
            if (data.addVariable(nameOf(parameter)) < 0) {
                fail("Semantic Error: Function parameter \"" + nameOf(parameter) +
                     "\" has already been defined");
            }
        }
        return getChild(3);
    }
    data.generate(WscOpcode::ReturnEs);
    if (data.getNoOfVariables() - parameters->getNumChildren() > theMaxLocalVariables) {
        fail("Semantic Error: Number of variables in function \"" + name + "\" too many (>255)");
    }
    if (data.getNoOfVariables() > theMaxVariables) {
        fail("SemanticError: Number of variables & formal parameters in function \"" + name +
             "\" too many (>256)");
    }
    if (data.stopFunctionCode(name, data.getNoOfVariables()) < 0) {
        fail("Semantic Error: Unable to generate code for function \"" + name +
             "\", too long jump range (>65535)");
    }
    return nullptr;
}

const WscSimpleNode* WscAstExternalCompilationUnitPragma::semanticAction(WscActionFrame&) const {
    const CpsString& name = nameOf(getChild(0));
    if (!getCompilerData().addPragmaURL(name, stringOf(getChild(1)))) {
        fail("Semantic error: URL identifier \"" + name + "\" multiply defined");
    }
    return nullptr;
}

const WscSimpleNode* WscAstAccessControlDomain::semanticAction(WscActionFrame&) const {
    const CpsString& domain = stringOf(getChild(0));
    if (getCompilerData().hasPragmaAccessDomain()) {
        fail("Semantic Error: Domain \"" + domain + "\" access control already defined");
    }
    getCompilerData().addPragmaAccessDomain(domain);
    return nullptr;
}

const WscSimpleNode* WscAstAccessControlPath::semanticAction(WscActionFrame&) const {
    const CpsString& path = stringOf(getChild(0));
    if (getCompilerData().hasPragmaAccessPath()) {
        fail("Semantic error: path \"" + path + "\" access control already defined");
    }
    getCompilerData().addPragmaAccessPath(path);
    return nullptr;
}

const WscSimpleNode* WscAstAccessControlDomainPath::semanticAction(WscActionFrame&) const {
    WscCompilerData& data = getCompilerData();
    const CpsString& domain = stringOf(getChild(0));
    if (data.hasPragmaAccessDomain() || data.hasPragmaAccessPath()) {
        fail("Semantic Error: Domain or path\"" + domain + "\" access control already defined");
    }
    data.addPragmaAccessDomainPath(domain, stringOf(getChild(1)));
    return nullptr;
}

const WscSimpleNode* WscAstMetaName::semanticAction(WscActionFrame&) const {
    getCompilerData().addPragmaMetaName(stringOf(getChild(0)), stringOf(getChild(1)),
                                        schemeOf(*this));
    return nullptr;
}

const WscSimpleNode* WscAstMetaHttpEquiv::semanticAction(WscActionFrame&) const {
    getCompilerData().addPragmaMetaHttp(stringOf(getChild(0)), stringOf(getChild(1)),
                                        schemeOf(*this));
    return nullptr;
}

const WscSimpleNode* WscAstMetaUserAgent::semanticAction(WscActionFrame&) const {
    getCompilerData().addPragmaMetaUserAgent(stringOf(getChild(0)), stringOf(getChild(1)),
                                             schemeOf(*this));
    return nullptr;
}

}  // namespace lumnis
