#include "WtaWmlCtrl.h"

#include "WmlVariableName.h"

namespace lumnis {

bool WtaWmlCtrl::validateVariableDecl(std::string_view theSource, CpsString& theOutput,
                                      std::uint32_t& thePosition, CpsString& theError,
                                      bool theEscapeDefault) {
    std::uint32_t position = thePosition;
    const bool isBracketed = position < theSource.size() && theSource[position] == '(';
    if (isBracketed) {
        ++position;
    }
    const bool isAtEnd = position == theSource.size();
    if (!isAtEnd && (isWmlNameStart(theSource[position]) || !getDigitVariables())) {
        return WmlCtrl::validateVariableDecl(theSource, theOutput, thePosition, theError,
                                             theEscapeDefault);
    }
    if (isAtEnd || !isAsciiDigit(theSource[position])) {
        theError = "Variable name has to begin with digit, alpha or '_'";
        return false;
    }
    const std::uint32_t start = position;
    while (position < theSource.size() && isAsciiDigit(theSource[position])) {
        ++position;
    }
    return finishVariable(theSource, theSource.substr(start, position - start), position,
                          isBracketed, Conversions::LONG, theOutput, thePosition, theError,
                          theEscapeDefault);
}

}  // namespace lumnis
