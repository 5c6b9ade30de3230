#include "WscPragmaInfo.h"

#include <initializer_list>

#include "WscStringAndIntHandler.h"

namespace lumnis {

namespace {

void writePragma(CpsString& theOutput, char theType,
                 std::initializer_list<std::uint32_t> theConstants) {
    theOutput += theType;
    for (const std::uint32_t constant : theConstants) {
        WscStringAndIntHandler().getAsMultiByteInteger(constant, theOutput);
    }
}

}  // namespace

void WscPragmaAcessDomain::writeByteCodeInformation(CpsString& theOutput) const {
    writePragma(theOutput, 0, {domainM});
}

void WscPragmaAcessPath::writeByteCodeInformation(CpsString& theOutput) const {
    writePragma(theOutput, 1, {pathM});
}

void WscPragmaUserAgentProperty::writeByteCodeInformation(CpsString& theOutput) const {
    writePragma(theOutput, 2, {propertyNameM, contentM});
}

void WscPragmaUserAgentPropertyScheme::writeByteCodeInformation(CpsString& theOutput) const {
    writePragma(theOutput, 3, {propertyNameM, contentM, schemeM});
}

}  // namespace lumnis
