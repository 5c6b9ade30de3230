// One error of a compilation, as its caller sees it.
#pragma once

#include <utility>

#include "CpsString.h"

namespace lumnis {

class WscWmlScriptError {
  public:
    enum Code {
        CompilationError = 0,
        OtherError = 1,  // a fault that is not the script's
        NotAnError = 2
    };

    WscWmlScriptError(int theCode, CpsString theMessage)
        : codeM(theCode), messageM(std::move(theMessage)) {}

    int getErrorCode() const noexcept { return codeM; }
    const CpsString& getErrorMessage() const noexcept { return messageM; }

  private:
    int codeM;
    CpsString messageM;
};

}  // namespace lumnis
