// What an actor of a WML document refuses. The parser makes an XpParserError of it, with the line.
#pragma once

#include <utility>

#include "XpDtd.h"

namespace lumnis {

class WmlActorException final : public XpDtd::ActorException {
  public:
    explicit WmlActorException(CpsString theMessage) : messageM(std::move(theMessage)) {}

    CpsString toString() const override { return messageM; }

  private:
    CpsString messageM;
};

}  // namespace lumnis
