// White space as XML has it, and letters and digits as WML and the names of charsets have them:
// those of ASCII, whatever the locale. Bytes above 0x7F are none of them.
#pragma once

namespace lumnis {

// Blank, tab, line feed, carriage return (XML 1.0, 2.3).
constexpr bool isXmlSpace(char theByte) {
    // One comparison for most bytes.
    return static_cast<unsigned char>(theByte) <= ' ' &&
           (theByte == ' ' || theByte == '\t' || theByte == '\r' || theByte == '\n');
}
constexpr bool isAsciiDigit(char theByte) {
    return theByte >= '0' && theByte <= '9';
}
constexpr bool isAsciiLetter(char theByte) {
    return (theByte >= 'a' && theByte <= 'z') || (theByte >= 'A' && theByte <= 'Z');
}
// The small letter of a capital; other bytes as they are.
constexpr char asciiLower(char theByte) {
    return theByte >= 'A' && theByte <= 'Z' ? static_cast<char>(theByte - 'A' + 'a') : theByte;
}

}  // namespace lumnis
