// What single bytes are to content that is read past the scanner. A byte above 0x7F has no class:
// it ends neither text nor a value, and whether it belongs to a name only the scanner knows.
#pragma once

#include <array>
#include <string_view>

namespace lumnis {

class XpByteClass {
  public:
    static bool isSpace(unsigned char theByte) { return is(theByte, SPACE); }
    static bool isNameStart(unsigned char theByte) { return is(theByte, NAME_START); }
    static bool isName(unsigned char theByte) { return is(theByte, NAME); }
    static bool isDigit(unsigned char theByte) { return theByte >= '0' && theByte <= '9'; }
    static bool isHexDigit(unsigned char theByte) {
        const unsigned lower = theByte | 0x20u;
        return isDigit(theByte) || (lower >= 'a' && lower <= 'f');
    }
    // Ends a run of text, or makes it one that is not plain.
    static bool isTextEnd(unsigned char theByte) { return is(theByte, TEXT_END); }
    // The same for the value of an attribute.
    static bool isValueEnd(unsigned char theByte) { return is(theByte, VALUE_END); }

  private:
    enum Class : unsigned char {
        SPACE = 1,
        NAME_START = 2,
        NAME = 4,
        TEXT_END = 8,
        VALUE_END = 16
    };
    using Classes = std::array<unsigned char, 256>;

    static constexpr Classes makeClasses() {
        Classes classes{};
        const auto mark = [&](std::string_view theBytes, unsigned theClass) {
            for (const char byte : theBytes) {
                auto& place = classes[static_cast<unsigned char>(byte)];
                place = static_cast<unsigned char>(place | theClass);
            }
        };
        mark(" \t\n\r", SPACE);
        mark("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_:", NAME_START | NAME);
        mark("0123456789.-", NAME);
        mark(std::string_view("<&]\0", 4), TEXT_END);
        mark(std::string_view("<&\t\n\r\"'\0", 8), VALUE_END);
        return classes;
    }
    static bool is(unsigned char theByte, Class theClass) {
        return (theClasses[theByte] & theClass) != 0;
    }

    static const Classes theClasses;
};

inline constexpr XpByteClass::Classes XpByteClass::theClasses = XpByteClass::makeClasses();

}  // namespace lumnis
