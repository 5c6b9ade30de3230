// The exception of everything that is wrong with a script.
#pragma once

#include <stdexcept>

#include "CpsString.h"

namespace lumnis {

class WscCompilerException : public std::runtime_error {
  public:
    // theLine counts from 1.
    WscCompilerException(int theLine, const CpsString& theMessage);

    int getLine() const noexcept { return lineM; }
    // The message as users see it: "Error at line: N. \r\n" and the text of the constructor.
    CpsString getMessage() const;

  private:
    int lineM;
    CpsString messageM;
};

}  // namespace lumnis
