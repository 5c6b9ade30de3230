// One function of the unit.
#pragma once

#include <cstdint>
#include <string_view>

#include "CpsString.h"

namespace lumnis {

class WscFunctionInfo {
  public:
    // theName must stay where it is.
    WscFunctionInfo(std::string_view theName, std::uint8_t theFunctionNo,
                    std::uint8_t theNoOfFunctionArgs)
        : nameM(theName), functionNoM(theFunctionNo), noOfFunctionArgsM(theNoOfFunctionArgs) {}

    std::string_view getName() const noexcept { return nameM; }
    std::uint8_t getFunctionNo() const noexcept { return functionNoM; }
    std::uint8_t getNoOfFunctionArgs() const noexcept { return noOfFunctionArgsM; }

    // Appends the function's entry in the table of names: number, length of the name, name.
    // For exported functions, whose names have at most 255 bytes.
    void writeByteCodeInformation(CpsString& theOutput) const {
        theOutput += static_cast<char>(functionNoM);
        theOutput += static_cast<char>(nameM.size());
        theOutput += nameM;
    }

  private:
    std::string_view nameM;
    std::uint8_t functionNoM;
    std::uint8_t noOfFunctionArgsM;
};

}  // namespace lumnis
