// The characters of a variable's name (WML 1.3, 10.3).
#pragma once

#include "CpsAscii.h"

namespace lumnis {

constexpr bool isWmlNameStart(char theByte) {
    return isAsciiLetter(theByte) || theByte == '_';
}
constexpr bool isWmlNameChar(char theByte) {
    return isWmlNameStart(theByte) || isAsciiDigit(theByte);
}

}  // namespace lumnis
