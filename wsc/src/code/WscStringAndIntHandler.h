// Multi-byte integers of the byte code: 7 bits a byte, the most significant group first, the top
// bit set on all but the last byte (WMLScript standard, "Multi-byte Integer Format").
#pragma once

#include "CpsString.h"

namespace lumnis {

class WscStringAndIntHandler {
  public:
    // Appends theValue in 1 to 5 bytes, without leading groups of zeros.
    void getAsMultiByteInteger(unsigned int theValue, CpsString& theOutput) const;
};

}  // namespace lumnis
