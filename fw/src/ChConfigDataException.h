// A setting of the content handler that cannot be had.
#pragma once

#include <stdexcept>
#include <string>

#include "CpsString.h"

namespace lumnis {

// Nothing raises it while the settings are constants.
class ChConfigDataException : public std::runtime_error {
  public:
    explicit ChConfigDataException(const CpsString& theText)
        : std::runtime_error(std::string(theText.view())) {}
};

}  // namespace lumnis
