// The output controller of a WTA-WML document: there a variable may be a number, the parameter of
// an event, where WmlCtrl::setDigitVariables allows it.
#pragma once

#include "WmlCtrl.h"

namespace lumnis {

class WtaWmlCtrl final : public WmlCtrl {
  public:
    using WmlCtrl::WmlCtrl;

    bool validateVariableDecl(std::string_view theSource, CpsString& theOutput,
                              std::uint32_t& thePosition, CpsString& theError,
                              bool theEscapeDefault) override;
};

}  // namespace lumnis
