// A fault of the scanner machinery, which no document can cause.
#pragma once

#include <stdexcept>

namespace lumnis {

class XpInternalError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace lumnis
