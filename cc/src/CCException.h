// No conversion between character sets can be had.
#pragma once

#include <stdexcept>

namespace lumnis {

class CCException : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace lumnis
