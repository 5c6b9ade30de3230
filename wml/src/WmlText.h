// Classes of characters in WML, which no locale changes.
#pragma once

namespace lumnis {

constexpr bool isWmlSpace(char theByte) {
    // One comparison for most bytes.
    return static_cast<unsigned char>(theByte) <= ' ' &&
           (theByte == ' ' || theByte == '\t' || theByte == '\r' || theByte == '\n');
}
constexpr bool isWmlDigit(char theByte) {
    return theByte >= '0' && theByte <= '9';
}
constexpr bool isWmlNameStart(char theByte) {
    return (theByte >= 'a' && theByte <= 'z') || (theByte >= 'A' && theByte <= 'Z') ||
           theByte == '_';
}
constexpr bool isWmlNameChar(char theByte) {
    return isWmlNameStart(theByte) || isWmlDigit(theByte);
}

}  // namespace lumnis
