#include "PrintableText.h"

#include <cstdint>

namespace lumnis {

namespace {

constexpr char theCapitalDigits[] = "0123456789ABCDEF";
constexpr char theSmallDigits[] = "0123456789abcdef";

}  // namespace

std::string hexByte(unsigned char theByte) {
    return {theCapitalDigits[theByte >> 4], theCapitalDigits[theByte & 15]};
}

std::size_t utf8SequenceLength(std::string_view theText, std::size_t thePosition) {
    const auto byteAt = [&](std::size_t i) -> std::uint32_t {
        return thePosition + i < theText.size()
                   ? static_cast<unsigned char>(theText[thePosition + i])
                   : 0u;
    };
    const std::uint32_t first = byteAt(0);
    if (first < 0x80) {
        return thePosition < theText.size() ? 1 : 0;
    }
    const std::size_t length = first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (length == 0 || first > 0xF4) {
        return 0;
    }
    std::uint32_t value = first & (0xFFu >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if ((byteAt(i) & 0xC0) != 0x80) {
            return 0;
        }
        value = value << 6 | (byteAt(i) & 0x3F);
    }
    const bool isOverlong = (length == 3 && value < 0x800) || (length == 4 && value < 0x10000);
    const bool isSurrogate = value >= 0xD800 && value <= 0xDFFF;
    return isOverlong || isSurrogate || value > 0x10FFFF ? 0 : length;
}

std::string visibleText(std::string_view theText) {
    std::string result;
    for (std::size_t i = 0; i < theText.size();) {
        const auto byte = static_cast<unsigned char>(theText[i]);
        const std::size_t length = utf8SequenceLength(theText, i);
        // U+0080 to U+009F are control characters in two bytes.
        const bool isC1 =
            length == 2 && byte == 0xC2 && static_cast<unsigned char>(theText[i + 1]) < 0xA0;
        if (byte == '\n' || byte == '\r') {
            result += byte == '\n' ? "\\n" : "\\r";
            ++i;
        } else if (length == 0 || isC1 || (byte < 0x20 && byte != '\t') || byte == 0x7F) {
            result += "\\x" + hexByte(byte);
            ++i;
        } else {
            result += theText.substr(i, length);
            i += length;
        }
    }
    return result;
}

std::string jsonString(std::string_view theText) {
    std::string result = "\"";
    for (std::size_t i = 0; i < theText.size();) {
        const char c = theText[i];
        const std::size_t length = utf8SequenceLength(theText, i);
        if (length == 0) {
            result += "\xEF\xBF\xBD";
        } else if (c == '"' || c == '\\') {
            result += {'\\', c};
        } else if (c == '\n' || c == '\r' || c == '\t') {
            result += c == '\n' ? "\\n" : c == '\r' ? "\\r" : "\\t";
        } else if (length == 1 && (static_cast<unsigned char>(c) < 0x20 || c == 0x7F)) {
            const auto byte = static_cast<unsigned char>(c);
            result += "\\u00";
            result += {theSmallDigits[byte >> 4], theSmallDigits[byte & 15]};
        } else {
            result += theText.substr(i, length);
        }
        i += length == 0 ? 1 : length;
    }
    return result + '"';
}

}  // namespace lumnis
