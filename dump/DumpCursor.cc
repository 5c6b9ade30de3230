#include "DumpCursor.h"

namespace lumnis {

DumpFault DumpCursor::endsInside(const char* theWhat) const {
    return {positionM, std::string("the ") + wholeM + " ends inside of " + theWhat};
}

std::uint8_t DumpCursor::byte(const char* theWhat) {
    if (isAtEnd()) {
        throw endsInside(theWhat);
    }
    return static_cast<std::uint8_t>(bytesM[positionM++]);
}

std::uint32_t DumpCursor::word(const char* theWhat) {
    const std::uint32_t high = byte(theWhat);
    return high << 8 | byte(theWhat);
}

std::uint32_t DumpCursor::multiByte(const char* theWhat) {
    const std::uint32_t start = positionM;
    std::uint64_t value = 0;
    for (int i = 0; i < 5; ++i) {
        const std::uint8_t group = byte(theWhat);
        value = value << 7 | (group & 0x7Fu);
        if ((group & 0x80) == 0 && value <= 0xFFFFFFFF) {
            return static_cast<std::uint32_t>(value);
        }
    }
    throw DumpFault{start, std::string("a number of more than 32 bits in ") + theWhat};
}

std::string_view DumpCursor::take(std::uint32_t theCount, const char* theWhat) {
    if (theCount > rest()) {
        throw endsInside(theWhat);
    }
    positionM += theCount;
    return bytesM.substr(positionM - theCount, theCount);
}

std::string_view DumpCursor::terminated(std::uint32_t theWidth, const char* theWhat) {
    const std::string_view bytes = bytesM.substr(positionM, rest());
    const std::size_t length = terminatedLength(bytes, theWidth);
    if (length == std::string_view::npos) {
        throw endsInside(theWhat);
    }
    positionM += static_cast<std::uint32_t>(length) + theWidth;
    return bytes.substr(0, length);
}

std::size_t DumpCursor::terminatedLength(std::string_view theBytes, std::uint32_t theWidth) {
    if (theWidth == 1) {
        return theBytes.find('\0');
    }
    constexpr std::string_view theZeros("\0\0\0\0", 4);
    for (std::size_t i = 0; i + theWidth <= theBytes.size(); i += theWidth) {
        if (theBytes.substr(i, theWidth) == theZeros.substr(0, theWidth)) {
            return i;
        }
    }
    return std::string_view::npos;
}

}  // namespace lumnis
